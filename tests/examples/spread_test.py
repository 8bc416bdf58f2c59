"""Plans, runs and gathers with the real program and with ones that fail as machines do."""
import os, pathlib, subprocess, sys, tempfile

SPREAD, REAL = map(os.path.abspath, sys.argv[1:])
RUNNERS = {  # what each does before the program's work on a part; parts 1 and 2 are the same and have one lock
    "real": "", "killed": "kill -KILL $$", "silent": "exit 1", "blocked": "mkdir a.txt",
    "swapped": "cp ../../../../a.vsk ../b; echo >>../../../../a.vsk; cp ../b ../../../../a.vsk",
    "orphan": f'kill -KILL $PPID; cd ../../../..; VESKORA_BATCH=./real "{sys.executable}" "{SPREAD}" part OUT 2 2>/dev/null; echo $?; exit'}
STEPS = (("real", "plan OUT --out x -- a.vsk", 2), ("real", "plan OUT - -- a.vsk", 2), ("real", "plan OUT a.vsk -- a.vsk", 2),
         ("real", "plan OUT --models 0 -- a.vsk", 2), ("none", "plan OUT -- a.vsk", 127), ("real", "gather OUT", 2),
         ("real", "plan OUT --models 1 -- a.vsk a.vsk pipe", 0), ("real", "part OUT 0", 2), ("real", "part OUT 4", 2),
         ("killed", "part OUT 1", 137), ("silent", "part OUT 1", 75), ("blocked", "part OUT 1", 75), ("swapped", "part OUT 1", 75),
         ("orphan", "part OUT 1", -9), ("real", "part OUT 1", 0), ("killed", "part OUT 1", 0), ("killed", "part --again OUT 1", 137),
         ("real", "part OUT 3", 1), ("real", "gather OUT", 1))
with tempfile.TemporaryDirectory() as folder:
    os.chdir(folder)
    os.mkfifo("pipe")
    pathlib.Path("a.vsk").write_bytes(pathlib.Path(SPREAD).with_name("cantilever.vsk").read_bytes())
    for name, first in RUNNERS.items():
        pathlib.Path(name).write_text(f'#!/bin/sh\nif [ "$2" = . ]; then :; {first}\nfi\nexec "{REAL}" "$@"\n')
        os.chmod(name, 0o755)
    for runner, words, status in STEPS:
        run = subprocess.run([sys.executable, SPREAD, *words.split()], env={**os.environ, "VESKORA_BATCH": f"./{runner}"}, stdout=subprocess.PIPE)
        assert (run.returncode, runner != "orphan" or run.stdout) == (status, runner != "orphan" or b"75\n"), (runner, words, run)
        assert runner == "orphan" or not list(pathlib.Path("OUT").glob("done/*.work*")), (runner, words)
    assert run.stdout.startswith(b"3 models done; failed: 1,"), run.stdout
