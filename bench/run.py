#!/usr/bin/python3
"""Measures the programs on generated drawings and prints every figure beside what is asked of it.

run.py BUILD [--sizes 10,100]: needs kelvara and the programs of this folder in BUILD/bin; drawings
stand in BUILD/bench and are kept for the next run. The exit status is 1 when a figure is missed.
"""
import argparse
import csv
import json
import os
import pathlib
import re
import statistics
import subprocess
import sys
import time

HERE = pathlib.Path(__file__).resolve().parent
PYTHON = sys.executable
SOURCE, TARGET = "Português", "Deutsch"
# What `ezdxf_times.py` measures against the same spans of dxf_bench, and what is asked.
AGAINST_EZDXF = (
    ("load against ezdxf", ("load",), 150),
    ("walk of all texts, attributes, wires against ezdxf", ("walk",), 15),
    ("load, walk, edit, save against ezdxf", ("load", "walk", "edit", "save"), 120),
)


class Failure(Exception):
    pass


class Report:
    """The table; knows whether a figure was missed."""

    def __init__(self):
        self.missed = False

    def at_least(self, figure, measured, asked):
        self.line(figure, measured, ">=", asked, measured >= asked)

    def at_most(self, figure, measured, asked):
        self.line(figure, measured, "<=", asked, measured <= asked)

    def line(self, figure, measured, sign, asked, met):
        print(f"{figure:62} {measured:8.2f}  {sign} {asked:6.2f}  {'ok' if met else 'MISSED'}",
              flush=True)
        self.missed |= not met


class Run:
    """A child process that has ended: seconds, user time, peak memory in bytes, what it printed."""

    def __init__(self, command, allowed=(0,)):
        begin = time.perf_counter()
        child = subprocess.Popen([str(part) for part in command], stdout=subprocess.PIPE)
        self.out = child.stdout.read().decode()
        _, status, usage = os.wait4(child.pid, 0)
        self.seconds = time.perf_counter() - begin
        self.user = usage.ru_utime
        self.peak = usage.ru_maxrss * 1024
        self.status = child.returncode = os.waitstatus_to_exitcode(status)
        if self.status not in allowed:
            raise Failure(f"{' '.join(map(str, command))}: exit status {self.status}")


def median(count, make):
    """The run of median time out of `count`."""
    runs = sorted((make() for _ in range(count)), key=lambda run: run.seconds)
    return runs[count // 2]


class Bench:
    def __init__(self, build):
        self.programs = build / "bin"
        self.folder = build / "bench"
        self.folder.mkdir(parents=True, exist_ok=True)
        self.report = Report()
        for name in ("kelvara", "dxf_bench", "dictionary_bench", "editor_bench", "list_view",
                     "dialog_bench", "painter_bench", "redefine_bench", "desktop_bench"):
            if not (self.programs / name).exists():
                raise Failure(f"{self.programs / name} is not there: configure with -DKV_BENCH=ON "
                              "and build")

    def drawing(self, name, *arguments):
        """A generated drawing, made anew when the generator is younger."""
        path, terms = self.folder / f"{name}.dxf", self.folder / f"{name}.csv"
        maker = HERE / "make_drawing.py"
        if not terms.exists() or terms.stat().st_mtime < maker.stat().st_mtime:
            print(f"making {path}", file=sys.stderr)
            Run([PYTHON, maker, arguments[0], path, *arguments[1:], "--dictionary", terms])
        return path

    def database(self, drawing):
        """A database with the terms of a drawing."""
        path = drawing.with_suffix(".sqlite")
        for suffix in ("", "-wal", "-shm", "-journal"):
            path.with_name(path.name + suffix).unlink(missing_ok=True)
        terms = drawing.with_suffix(".csv")
        languages = self.folder / "languages.txt"
        with open(terms, encoding="utf-8") as file:
            languages.write_text(file.readline().replace(",", "\n"), encoding="utf-8")
        self.kelvara(path, "db", "init", "--languages", languages)
        self.kelvara(path, "db", "import", terms)
        return path

    def kelvara(self, database, *arguments):
        named = ("--database", f"sqlite:{database}") if database else ()
        return Run([self.programs / "kelvara", "--quiet", *named, *arguments])

    def fresh(self, name):
        """A file to write that is not there yet: making an old one's pages free takes time too."""
        path = self.folder / name
        path.unlink(missing_ok=True)
        return path

    def translate(self, drawing, database):
        return self.kelvara(database, "translate", drawing, "--from", SOURCE, "--to", TARGET,
                            "-o", self.fresh("translated.dxf"))

    # --- the figures --------------------------------------------------------------------------

    def store(self, size):
        drawing = self.drawing(f"{size}mb", size, "--terms", size * 1000)
        run = Run([self.programs / "dxf_bench", drawing], allowed=(0, 1))
        print(run.out, end="", flush=True)
        self.report.missed |= run.status != 0

        ours = {name: float(value) / 1000
                for name, value in re.findall(r"\b(load|walk|edit|save) ([\d.]+) ms", run.out)}
        runs = [json.loads(self.ezdxf_times(drawing).out) for _ in range(3 if size <= 10 else 1)]
        counts = [times.pop("texts") for times in runs]
        counts.append(int(re.search(r"(\d+) texts", run.out)[1]))
        if len(set(counts)) > 1:
            raise Failure(f"{drawing}: the programs do not see the same texts: {counts}")
        theirs = {span: statistics.median(times[span] for times in runs) for span in runs[0]}
        print("ezdxf: " + ", ".join(f"{span} {value:.2f} s" for span, value in theirs.items()))
        for figure, spans, asked in AGAINST_EZDXF:
            if not set(spans) <= set(ours):
                raise Failure(f"dxf_bench tells no time of {', '.join(set(spans) - set(ours))}")
            self.report.at_least(figure, sum(theirs[span] for span in spans)
                                 / sum(ours[span] for span in spans), asked)

    def ezdxf_times(self, drawing):
        return Run([PYTHON, HERE / "ezdxf_times.py", drawing, self.fresh("ezdxf.dxf")])

    def program(self, name, *arguments):
        """A program that tells its figures itself, with windows that nobody sees."""
        environment = {"QT_QPA_PLATFORM": "offscreen", **os.environ}
        run = subprocess.run([self.programs / name, *arguments], env=environment, check=False)
        if run.returncode not in (0, 1):
            raise Failure(f"{name}: exit status {run.returncode}")
        self.report.missed |= run.returncode != 0

    def translation(self, size):
        drawing = self.drawing(f"{size}mb", size, "--terms", size * 1000)
        database = self.database(drawing)
        # Before and after the other program, whose one run is as long as many of these: the
        # machine's speed changes meanwhile.
        ours = [self.translate(drawing, database) for _ in range(5)]
        theirs = Run([PYTHON, HERE / "translate_ezdxf.py", drawing, database, SOURCE, TARGET,
                      self.fresh("ezdxf.dxf")])
        ours = sorted(ours + [self.translate(drawing, database) for _ in range(6)],
                      key=lambda run: run.seconds)
        peaks = sorted(run.peak for run in ours)
        print(f"translate: {ours[0].seconds:.2f} to {ours[-1].seconds:.2f} s, "
              f"{peaks[0] / 1e6:.0f} to {peaks[-1] / 1e6:.0f} MB")
        peak = peaks[len(peaks) // 2]
        ours = ours[len(ours) // 2]
        counts = [int(re.search(r"(\d+) strings changed", run.out)[1]) for run in (ours, theirs)]
        print(f"translate {drawing.name}: {ours.seconds:.2f} s, {peak / 1e6:.0f} MB; ezdxf "
              f"{theirs.seconds:.2f} s, {theirs.peak / 1e6:.0f} MB; {counts[0]} strings changed")
        if counts[0] != counts[1]:
            raise Failure(f"{drawing}: kelvara changed {counts[0]} strings, ezdxf {counts[1]}")
        self.report.at_least("translate with certificate against ezdxf without",
                             theirs.seconds / ours.seconds, 60)
        self.report.at_most("peak memory of translate over the file",
                            peak / drawing.stat().st_size, 3)

    def dictionary(self, size):
        drawing = self.drawing(f"{size}mb", size, "--terms", size * 1000)
        run = Run([self.programs / "dictionary_bench", self.database(drawing)], allowed=(0, 1))
        print(run.out, end="", flush=True)
        self.report.missed |= run.status != 0

    def language_switch(self, objects):
        """Half of the objects have a record, in two languages: 200,000 in 165 MB."""
        drawing = self.drawing(f"{objects}objects", 0, "--objects", objects, "--terms", 100000)
        recorded = self.folder / "recorded.dxf"
        terms = drawing.with_suffix(".csv")
        two = self.folder / "two.csv"
        with open(terms, encoding="utf-8", newline="") as file, \
                open(two, "w", encoding="utf-8", newline="") as out:
            csv.writer(out).writerows((row[0], row[2]) for row in csv.reader(file))
        database = self.database(two)
        self.kelvara(database, "translate", drawing, "--from", SOURCE, "--to", TARGET, "--record",
                     "-o", self.fresh(recorded.name))
        ours = median(3, lambda: self.kelvara(None, "switch", recorded, "--to", "1", "-o",
                                              self.fresh("switched.dxf")))
        theirs = Run([PYTHON, HERE / "switch_ezdxf.py", recorded, "2", "1",
                      self.fresh("ezdxf.dxf")])
        counts = [int(re.search(r"(\d+) strings changed", run.out)[1]) for run in (ours, theirs)]
        print(f"switch {recorded.name} of {recorded.stat().st_size / 1e6:.0f} MB: "
              f"{ours.seconds:.2f} s, {ours.peak / 1e6:.0f} MB; ezdxf {theirs.seconds:.2f} s; "
              f"{counts[0]} strings changed")
        if counts[0] != counts[1]:
            raise Failure(f"{recorded}: kelvara changed {counts[0]} strings, ezdxf {counts[1]}")
        self.report.at_least("switch with its trial and certificate against ezdxf without",
                             theirs.seconds / ours.seconds, 40)

    def editor(self, size):
        drawing = self.drawing(f"{size}mb", size, "--terms", size * 1000)
        self.program("editor_bench", self.database(drawing))

    def growth(self):
        seconds = []
        for count, terms in ((20000, 10000), (200000, 100000)):
            drawing = self.drawing(f"{count}objects", 0, "--objects", count, "--terms", terms)
            database = self.database(drawing)
            seconds.append(median(5, lambda: self.translate(drawing, database)).seconds)
        self.report.at_most("translate 200,000 objects, 100,000 terms over 20,000, 10,000",
                            seconds[1] / seconds[0], 12)

    def scan(self, drawing):
        """Seconds of the scan alone, as the program tells them."""
        told = subprocess.run([self.programs / "kelvara", "--verbose", "texts", drawing],
                              check=True, encoding="utf-8",
                              stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
        return float(re.search(r"^scanning: ([\d.]+) s", told.stderr, re.MULTILINE)[1])

    def many_pages(self):
        seconds = []
        for pages in (1, 500):
            drawing = self.drawing(f"{pages}pages", 50, "--pages", pages)
            seconds.append(statistics.median(self.scan(drawing) for _ in range(5)))
        self.report.at_most("scan of 500 pages over the same entities on one",
                            seconds[1] / seconds[0], 3)

    def painting(self, size):
        drawing = self.drawing(f"{size}mb", size, "--terms", size * 1000)
        info = median(5, lambda: self.kelvara(None, "info", drawing))
        painted = median(5, lambda: Run([self.programs / "desktop_bench", drawing]))
        print(painted.out, end="")
        self.report.at_most("a drawing on the screen over kelvara info",
                            int(re.search(r"open (\d+) ms", painted.out)[1]) / 1e3 / info.seconds, 3)
        run = Run([self.programs / "painter_bench", "repaint"])
        print(run.out, end="")
        ours, theirs = (float(time) for time in re.findall(r"([\d.]+) ms", run.out))
        self.report.at_most("repaint of 100,000 entities over a QGraphicsView", ours / theirs, 1)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--sizes", default="10,100", help="megabytes of the drawings")
    options = parser.parse_args()
    sizes = [int(size) for size in options.sizes.split(",")]
    bench = Bench(options.build.resolve())
    bench.program("list_view")
    bench.program("dialog_bench")
    for size in sizes:
        bench.store(size)
    bench.translation(sizes[-1])
    bench.dictionary(sizes[-1])
    bench.editor(sizes[-1])
    bench.growth()
    bench.program("redefine_bench")
    bench.language_switch(400000)
    bench.many_pages()
    bench.painting(sizes[-1])
    return 1 if bench.report.missed else 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except Failure as failure:
        sys.exit(f"bench: {failure}")
