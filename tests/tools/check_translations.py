#!/usr/bin/python3
"""Translates real drawings and holds the result against ezdxf: check_translations.py KELVARA.

The dictionary of each drawing (of the project's fixtures and of KV_DRAWINGS) is made of its own
texts, each with a mark behind it. After `kelvara translate`, which certifies, exactly the values that
the scan names must differ, tag by tag, and an audit by ezdxf must find no more errors than before.
Drawings over AUDITED bytes are not audited, since that would take most of the time, nor are those
that ezdxf loads no document from.
"""
import csv
import io
import multiprocessing
import os
import pathlib
import re
import subprocess
import sys
import tempfile
from collections import Counter

import ezdxf

from extract_texts import decoded, read_tags, BLANKS

FIXTURES = pathlib.Path(__file__).parent.parent / "fixtures"
MARK = " (B)"
TERMS = 300
AUDITED = 4_000_000
REFUSED = 3
TEXT_CODES = (1, 3, 1000)


class Fault(Exception):
    """What a drawing shows that must not be."""


class Refused(Exception):
    """The program reads no drawing in the file, or ezdxf reads none."""


def run(*command, failure=Fault):
    done = subprocess.run(command, capture_output=True, encoding="utf-8",
                          errors="surrogateescape")
    if done.returncode != 0:
        raise failure(f"{command[1]}: status {done.returncode}: {done.stderr.strip()}")
    return done.stdout


def unescaped(text):
    return re.sub(r"\\([trn\\])", lambda m: {"t": "\t", "r": "\r", "n": "\n"}.get(m[1], "\\"), text)


def one_kind_of_break(text):
    """A text of several lines is written with \\P, whatever it had."""
    return text.replace("\\P", "\n")


def named_texts(listing):
    """(handle, text) of each object that the scan names."""
    lines = [line.split("\t") for line in listing.split("\n") if line]
    return [(key, unescaped(text)) for _, key, text in lines]


def chosen(named):
    """Texts that are printed as they are, and have room in the dictionary with their mark."""
    whole = [text for _, text in named
             if len(text) <= 250 - len(MARK) and not set(text) & {"\ufffd", "\0"}]
    return set(list(dict.fromkeys(whole))[:TERMS])


def dictionary(kelvara, folder, texts):
    url = f"sqlite:{folder}/dictionary.sqlite"
    (folder / "languages.txt").write_text("A\nB\n")
    rows = io.StringIO()
    csv.writer(rows).writerows([("A", "B")] + [(text, text + MARK) for text in texts])
    (folder / "terms.csv").write_text(rows.getvalue(), "utf-8", newline="")
    run(kelvara, "db", "init", "--languages", f"{folder}/languages.txt", "--database", url)
    run(kelvara, "db", "import", f"{folder}/terms.csv", "--database", url)
    return url


def records(path):
    """The tags of each object, and of the header."""
    result = [[]]
    for tag in read_tags(path)[0]:
        if tag.code == 0:
            result.append([])
        result[-1].append(tag)
    return result


def readable_records(drawing):
    try:
        return records(drawing)
    except ezdxf.DXFError as error:
        raise Refused from error


def strings(record):
    """The texts of an object. One of several lines may stand in pieces; inside an attribute it
    follows its group 101."""
    lines = next((i for i, tag in enumerate(record) if tag.code == 101), len(record))
    if record[0].value == "MTEXT":
        lines = 0
    pieces = [value for code, value in record[lines:] if code in (1, 3)]
    return ["".join(pieces)] + [
        value for code, value in record[:lines] if code in TEXT_CODES] + [
        value for code, value in record[lines:] if code == 1000]


def others(record):
    return [tag for tag in record if tag.code not in TEXT_CODES]


def handle(record):
    return next((value.upper().lstrip("0") for code, value in record if code == 5), "-")


def as_named(value):
    return one_kind_of_break(decoded(value).strip(BLANKS))


def changes(before, after):
    """(handle, old text, new text) of each value that differs."""
    if len(before) != len(after):
        raise Fault(f"{len(before)} objects became {len(after)}")
    for old, new in zip(before, after):
        if old == new:
            continue
        if others(old) != others(new) or len(strings(old)) != len(strings(new)):
            raise Fault(f"{old[0].value} {handle(old)}: more than texts differ")
        for was, now in zip(strings(old), strings(new)):
            if was != now:
                yield handle(old), as_named(was), as_named(now)


def compare(before, after, report, named, terms):
    found = list(changes(before, after))
    # Each object once, although every reference to its block names it. Not by its handle: the
    # program makes one up where the file has none.
    names = Counter(one_kind_of_break(text) for _, text in set(named) if text in terms)
    for key, was, now in found:
        if was not in names or now != was + MARK:
            raise Fault(f"{key}: {was!r} became {now!r}")
    certified = re.search(r"(\d+) strings? changed, 0 other values changed", report)
    if not certified or int(certified[1]) != len(found):
        raise Fault(f"{len(found)} strings differ, and the report says:\n{report}")
    missing = names - Counter(was for _, was, _ in found)
    if missing or len(found) != names.total():
        raise Fault(f"{len(found)} of {names.total()} texts changed; not {list(missing)}")
    return len(found)


def errors(path):
    return len(ezdxf.readfile(path).audit().errors)


def audit(drawing, output):
    """Whether there was an audit."""
    if os.path.getsize(drawing) > AUDITED:
        return False
    try:
        before = errors(drawing)
    except Exception:  # whatever it stumbles over
        return False
    if errors(output) > before:
        raise Fault("an audit finds more errors than before")
    return True


def check(kelvara, drawing):
    """How many strings were translated, and whether both files were audited."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        before = readable_records(drawing)
        named = named_texts(run(kelvara, "texts", drawing, "--layer-0", failure=Refused))
        terms = chosen(named)
        if not terms:
            return 0, False
        url = dictionary(kelvara, folder, terms)
        output = folder / "output.dxf"
        report = run(kelvara, "translate", drawing, "--layer-0", "--from", "A", "--to", "B", "-o",
                     output, "--database", url)
        count = compare(before, records(output), report, named, terms)
        return count, audit(drawing, output)


def outcome(task):
    """(strings translated, audits made, refused, faults) of one drawing."""
    kelvara, drawing = task
    try:
        count, audited = check(kelvara, drawing)
        return count, int(audited), 0, []
    except Refused:
        return 0, 0, 1, []
    except Fault as fault:
        return 0, 0, 0, [f"{drawing.name}: {fault}"]


def main():
    folders = {str(FIXTURES), os.environ.get("KV_DRAWINGS") or str(FIXTURES)}
    paths = [path for folder in sorted(folders) for path in sorted(pathlib.Path(folder).rglob("*"))]
    tasks = [(sys.argv[1], path) for path in paths if path.suffix.lower() in (".dxf", ".dxb")]
    with multiprocessing.Pool(2) as pool:
        counts, audits, refusals, faults = zip(*pool.imap_unordered(outcome, tasks))
    found = sum(faults, [])
    print(f"{len(tasks)} drawings, {sum(refusals)} refused, {sum(counts)} strings translated, "
          f"{sum(audits)} audits before and after", *found, sep="\n")
    return bool(found) or sum(refusals) > REFUSED or not sum(counts) or not sum(audits)


if __name__ == "__main__":
    sys.exit(main())
