#!/usr/bin/python3
"""Runs a program on a screen of its own: an X server in memory, with a window manager.

run_on_screen.py PROGRAM [ARGUMENT...]: its exit status is that of the program. What has not started
within a minute ends the run. Everything ends with the program, however that ends.
"""
import contextlib
import os
import select
import subprocess
import sys

SECONDS = 60
SCREEN = "1600x1000x24"


@contextlib.contextmanager
def running(command, environment, ready):
    """The child, once it has written to the pipe `ready`; what it wrote."""
    with subprocess.Popen(["setpriv", "--pdeathsig", "TERM", *command], pass_fds=[ready[1]],
                          env=environment, stderr=subprocess.DEVNULL) as child:
        try:
            ended = os.pidfd_open(child.pid)
            told = select.select([ready[0], ended], [], [], SECONDS)[0]
            os.close(ended)
            if ready[0] not in told:
                sys.exit(f"{command[0]} has not started")
            yield os.read(ready[0], 64).decode().strip()
        finally:
            child.terminate()


def main():
    ready = os.pipe()
    server = ["Xvfb", "-screen", "0", SCREEN, "-nolisten", "tcp", "-displayfd", str(ready[1])]
    # The session bus of whoever runs this is none of the program's business.
    environment = {**os.environ, "QT_QPA_PLATFORM": "xcb", "DBUS_SESSION_BUS_ADDRESS": "disabled:"}
    with running(server, environment, ready) as display:
        environment["DISPLAY"] = f":{display}"
        # The manager closes what it has inherited before it runs anything.
        tell = f"sh -c 'echo ready > /proc/{os.getpid()}/fd/{ready[1]}'"
        with running(["openbox", "--sm-disable", "--startup", tell], environment, ready):
            return subprocess.run(sys.argv[1:], env=environment, check=False).returncode


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    sys.exit(main())
