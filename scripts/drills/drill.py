"""What the drills share: their arguments, where their programs are, a user's folders of their own."""
import os
import pathlib
import sys
import threading

ROOT = pathlib.Path(__file__).resolve().parents[2]


def program(name, preset="release"):
    """Path of a built program; the drill ends where there is none."""
    for folder in ("bin", "tests"):
        path = ROOT / "build" / preset / folder / name
        if path.exists():
            return path
    sys.exit(f"{name} is not built: cmake --preset {preset} && cmake --build --preset {preset}")


def rounds_and_seed(doc, usual_rounds):
    """Of the command line, where each may be missing."""
    try:
        given = [int(word) for word in sys.argv[1:]]
    except ValueError:
        sys.exit(doc)
    if len(given) > 2 or min(given, default=1) < 1:
        sys.exit(doc)
    return (*given, *(usual_rounds, 1)[len(given):])


def environment(folder, **more):
    """Of a process with no display, and with settings, data and scratch files in that folder."""
    return dict(os.environ, QT_QPA_PLATFORM="offscreen", XDG_CONFIG_HOME=f"{folder}/config",
                XDG_DATA_HOME=f"{folder}/data", TMPDIR=str(folder), PATH="", **more)


def read_line(process, seconds):
    """The next line that it prints, or nothing when it has ended; it is killed when none comes so long."""
    limit = threading.Timer(seconds, process.kill)
    limit.start()
    try:
        return process.stdout.readline()
    finally:
        limit.cancel()
