#!/usr/bin/env python3
"""Spreads a large study over processes and machines that share a folder, by GNU parallel or Slurm.

    spread.py plan OUT [--models N] [OPTION...] -- MODEL...   cuts the models into parts of N (100)
    spread.py part [--again] OUT [K]                          runs part K, from 1
    spread.py gather OUT                                      all summaries in one, and what failed

    parallel --sshloginfile hosts --workdir "$PWD" spread.py part OUT ::: $(seq "$(spread.py plan OUT -- *.vsk)")
    sbatch --array=1-"$(spread.py plan OUT -- *.vsk)" spread.py part OUT

The options are those of Veskora_batch, which is found by PATH or named by VESKORA_BATCH. Results of a
part stand in a folder of OUT/done, which is there whole or not at all. It is named after the options,
the program's version and the locale at the time of the plan, and what the models hold: part again runs
only what is not done or has changed, with --again what is done too, and of two at once one waits for
nothing and leaves the part to the other. The exit status of part is that of Veskora_batch; 75 where it
is not done but can be tried again: another has it, the machine failed, it has another version of the
program, or a model changed meanwhile. That of gather is 1 when a model failed or a part is not done;
wrong usage has 2, and 127 that there is no Veskora_batch.
"""
import csv
import errno
import fcntl
import hashlib
import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile

TRY_AGAIN = 75  # as sendmail says it
LOCALE = ("LC_ALL", "LC_NUMERIC", "LANG")  # reports and tables change with them
TEXT = {"encoding": sys.getfilesystemencoding(), "errors": "surrogateescape"}  # names are any bytes


def stop(status, why):
    print(f"spread.py: {why}", file=sys.stderr)
    sys.exit(status)


def runner():
    name = os.environ.get("VESKORA_BATCH", "Veskora_batch")
    return os.path.abspath(shutil.which(name) or stop(127, f"there is no program {name}"))


def version():
    return subprocess.run([runner(), "--version"], stdout=subprocess.PIPE, **TEXT).stdout


def whole(text):
    """A whole number from 1, or 0 where it is none."""
    return int(text) if re.fullmatch("[1-9][0-9]{0,8}", text) else 0


def plan(out, arguments):
    options, models = arguments[:arguments.index("--")], arguments[arguments.index("--") + 1:]
    size = 100
    if options[:1] == ["--models"]:
        size, options = whole("".join(options[1:2])), options[2:]
    if not size or not models:
        stop(2, "--models needs a whole number from 1" if models else "no model given")
    # A folder that cannot be made: whatever the options are, this runs no model.
    tried = subprocess.run([runner(), "--out", "/dev/null/none", "--summary", "none", *options, "--"],
                           stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, **TEXT)
    complaint = tried.stderr.partition("\n")[0].removeprefix("Veskora_batch: ")
    if complaint != "no model given":
        stop(2, complaint if tried.returncode == 2 else "only options that shape results go before --")
    models = [os.path.abspath(model) for model in models]
    parts = [models[i:i + size] for i in range(0, len(models), size)]
    locale = {name: os.environ[name] for name in LOCALE if name in os.environ}
    out.mkdir(parents=True, exist_ok=True)
    draft = out / f"plan.{os.getpid()}"
    draft.write_text(json.dumps({"options": options, "version": version(), "locale": locale, "parts": parts}))
    draft.rename(out / "plan.json")
    print(len(parts))
    return 0


def planned_in(out):
    try:
        return json.loads((out / "plan.json").read_text())
    except FileNotFoundError:
        stop(2, f"{out} has no plan")


def contents(models):
    """A digest of each model and when it was changed; None for one that cannot be read."""
    found = []
    for path in map(pathlib.Path, models):
        try:  # a pipe would be waited for; the program tells of it
            found.append((hashlib.sha256(path.read_bytes()).hexdigest(), path.stat().st_ctime_ns)
                         if path.is_file() else None)
        except OSError:
            found.append(None)
    return found


def folder_of(out, planned, models, held):
    digests = [was and was[0] for was in held]
    facts = json.dumps([planned["options"], planned["version"], planned["locale"], models, digests])
    return out / "done" / hashlib.sha256(facts.encode()).hexdigest()[:32]


def summary_in(folder):
    """Its delimiter, which is another with --regional, and its rows."""
    with open(folder / "summary.csv", newline="", **TEXT) as table:
        delimiter = table.read(len("model,"))[-1]
        table.seek(0)
        return delimiter, list(csv.reader(table, delimiter=delimiter))


def fault_of_machine(made, models, held, log):
    """What another run may not meet again, empty when nothing."""
    if contents(models) != held:
        return "a model changed meanwhile"
    if not (made / "summary.csv").exists():
        return log.strip().rpartition("\n")[2] or "there is no summary"
    for model, status, *_ in summary_in(made)[1]:
        if status == "killed":
            return f"{model}: killed"
    faults = tuple(f": {os.strerror(number)}" for number in errno.errorcode)
    gone = tuple(f" There was an error opening the file: {model}: " for model, was in zip(models, held) if not was)
    return next((line for line in log.split("\n") if line.endswith(faults) and not line.startswith(gone)), "")


def part(out, text, again=False):
    planned = planned_in(out)
    number = whole(text)
    if not 1 <= number <= len(planned["parts"]):
        stop(2, f"there is no part {text}: parts are 1 to {len(planned['parts'])}")
    if version() != planned["version"]:
        stop(TRY_AGAIN, "the program is of another version than when the plan was made; plan again")
    models = planned["parts"][number - 1]
    held = contents(models)
    done = folder_of(out, planned, models, held)
    done.parent.mkdir(exist_ok=True)
    with open(f"{done}.lock", "w") as lock:
        try:
            fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            stop(TRY_AGAIN, f"another process has part {number}")
        for left in done.parent.glob(done.name + ".work*"):
            shutil.rmtree(left)
        if done.exists() and not again:
            return int((done / "status").read_text())
        with tempfile.TemporaryDirectory(prefix=done.name + ".work", dir=done.parent) as work:
            made = pathlib.Path(work, "made")
            made.mkdir()
            others = {name: value for name, value in os.environ.items() if name not in LOCALE}
            run = subprocess.run(
                [runner(), "--out", ".", "--summary", "summary.csv", *planned["options"], "--", *models],
                cwd=made, env=others | planned["locale"],
                pass_fds=[lock.fileno()],  # the lock lives as long as the last of the two
                stderr=subprocess.PIPE, **TEXT)
            if run.returncode not in (0, 1):  # an end that tells nothing of the models
                sys.stderr.write(run.stderr)
                return run.returncode if run.returncode > 0 else 128 - run.returncode
            if fault := fault_of_machine(made, models, held, run.stderr):
                stop(TRY_AGAIN, f"part {number} is not kept: {fault}")
            (made / "log").write_text(run.stderr, **TEXT)
            (made / "status").write_text(str(run.returncode))
            if done.exists():
                done.rename(pathlib.Path(work, "old"))
            made.rename(done)
    return run.returncode


def gather(out):
    planned = planned_in(out)
    rows, index, reasons, failed, missing, delimiter = [], [("model", "folder")], [], set(), [], ","
    for number, models in enumerate(planned["parts"], 1):
        done = folder_of(out, planned, models, contents(models))
        if not done.exists():
            missing.append(number)
            continue
        delimiter, (names, *more) = summary_in(done)
        rows += more if rows else [names, *more]
        index += [(model, done.relative_to(out)) for model in models]
        log = (done / "log").read_text(**TEXT).split("\n")
        for model in dict.fromkeys(models):
            lines = [line.removeprefix("Veskora_batch: ") for line in log if line.startswith(f"Veskora_batch: {model}: ")]
            reasons += lines
            failed |= {model} if lines else set()
    for name, table, between in ("summary.csv", rows, delimiter), ("index.csv", index, ","):
        with open(out / name, "w", newline="", **TEXT) as file:
            csv.writer(file, delimiter=between, lineterminator="\n").writerows(table)
    (out / "failed.txt").write_text("".join(line + "\n" for line in reasons), **TEXT)
    print(f"{len(index) - 1} models done; failed: {len(failed)}, see failed.txt")
    if missing:
        print("parts not done:", *missing)
    return 1 if failed or missing else 0


def main(arguments):
    task = [os.environ[name] for name in ["SLURM_ARRAY_TASK_ID"] if name in os.environ]
    match arguments:
        case ["plan", folder, *rest] if "--" in rest:
            return plan(pathlib.Path(folder), rest)
        case ["part", "--again", folder, *rest] | ["part", folder, *rest] if len(rest or task) == 1:
            return part(pathlib.Path(folder), *(rest or task), again=arguments[1] == "--again")
        case ["gather", folder]:
            return gather(pathlib.Path(folder))
    sys.stderr.write(__doc__)
    return 2


if __name__ == "__main__":
    for ending in (signal.SIGINT, signal.SIGTERM):  # the runner ends too, and what it had begun goes
        signal.signal(ending, lambda number, _: sys.exit(128 + number))
    try:
        sys.exit(main(sys.argv[1:]))
    except OSError as error:
        stop(TRY_AGAIN, error)
