#!/usr/bin/env python3
"""Spreads a large study over processes and machines that share a folder, by GNU parallel or Slurm.

    spread.py plan OUT [--models N] [OPTION...] -- MODEL...   cuts the models into parts of N (100)
    spread.py part OUT [K]                                    runs part K, from 1
    spread.py gather OUT                                      all summaries in one, and what failed

    parallel --sshloginfile hosts --workdir "$PWD" spread.py part OUT ::: $(seq "$(spread.py plan OUT -- *.vsk)")
    sbatch --array=1-"$(spread.py plan OUT -- *.vsk)" spread.py part OUT

The options are those of Veskora_batch, which is found by PATH or named by VESKORA_BATCH. Results of a
part stand in a folder of OUT/done, which is there whole or not at all. It is named after the options
and what the models hold: part again runs only what is not done or has changed, and of two at once one
waits for nothing and leaves the part to the other. The exit status of part is that of Veskora_batch,
75 where another has the part; that of gather is 1 when a model failed or a part is not done.
"""
import csv
import fcntl
import hashlib
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

BUSY = 75  # "try again later", as sendmail says it


def plan(out, arguments):
    size = 100
    if arguments[:1] == ["--models"]:
        size, arguments = int(arguments[1]), arguments[2:]
    options, models = arguments[:arguments.index("--")], arguments[arguments.index("--") + 1:]
    models = [os.path.abspath(model) for model in models]
    parts = [models[i:i + size] for i in range(0, len(models), size)]
    out.mkdir(parents=True, exist_ok=True)
    draft = out / f"plan.{os.getpid()}"
    draft.write_text(json.dumps({"options": options, "parts": parts}))
    draft.rename(out / "plan.json")
    print(len(parts))
    return 0


def parts_of(out):
    """Options, models and folder of each part, in their order."""
    planned = json.loads((out / "plan.json").read_text())
    for models in planned["parts"]:
        key = hashlib.sha256(json.dumps([planned["options"], models]).encode())
        for model in models:
            try:
                key.update(hashlib.sha256(pathlib.Path(model).read_bytes()).digest())
            except OSError:
                key.update(b"unreadable")
        yield planned["options"], models, out / "done" / key.hexdigest()[:32]


def part(out, number):
    options, models, done = list(parts_of(out))[number - 1]
    done.parent.mkdir(exist_ok=True)
    with open(f"{done}.lock", "w") as lock:
        try:
            fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)  # it goes with the process, however that ends
        except BlockingIOError:
            return BUSY
        if not done.exists():
            for left in done.parent.glob(done.name + ".work*"):
                shutil.rmtree(left)
            work = pathlib.Path(tempfile.mkdtemp(prefix=done.name + ".work", dir=done.parent))
            with open(work / "log", "w") as log:
                status = subprocess.run([os.environ.get("VESKORA_BATCH", "Veskora_batch"), "--out", work, "--summary",
                                         work / "summary.csv", *options, "--", *models], stderr=log).returncode
            if status not in (0, 1):  # wrong usage, or an end that tells nothing of the models
                sys.stderr.write((work / "log").read_text())
                shutil.rmtree(work)
                return status if status > 0 else 128 - status
            (work / "status").write_text(str(status))
            work.rename(done)
    return int((done / "status").read_text())


def gather(out):
    rows, failed, missing = [], [], []
    for number, (_, models, done) in enumerate(parts_of(out), 1):
        if not done.exists():
            missing.append(number)
            continue
        with open(done / "summary.csv", newline="") as table:
            names, *more = csv.reader(table)
            rows += more if rows else [names, *more]
        log = (done / "log").read_text().splitlines()
        failed += [line.removeprefix("Veskora_batch: ") for line in log
                   if line.startswith(tuple(f"Veskora_batch: {model}: " for model in models))]
    with open(out / "summary.csv", "w", newline="") as table:
        csv.writer(table, lineterminator="\n").writerows(rows)
    (out / "failed.txt").write_text("".join(line + "\n" for line in failed))
    print(f"{max(len(rows) - 1, 0)} models done; failed: {len(failed)}, see {out / 'failed.txt'}")
    if missing:
        print("parts not done:", *missing)
    return 1 if failed or missing else 0


if __name__ == "__main__":
    match sys.argv[1:]:
        case ["plan", folder, *rest] if "--" in rest:
            sys.exit(plan(pathlib.Path(folder), rest))
        case ["part", folder, *rest] if rest or "SLURM_ARRAY_TASK_ID" in os.environ:
            sys.exit(part(pathlib.Path(folder), int(rest[0] if rest else os.environ["SLURM_ARRAY_TASK_ID"])))
        case ["gather", folder]:
            sys.exit(gather(pathlib.Path(folder)))
    sys.exit(__doc__)
