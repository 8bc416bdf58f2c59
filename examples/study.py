#!/usr/bin/env python3
"""Writes twenty variants of the portal frame, analyses them and prints their largest moments.

    examples/study.py build/release/bin/Veskora_batch variants

The columns get 0.2 to 4 times their second moment of area. Models and results stay in the folder.
Change main() for a study of your own.
"""
import csv
import pathlib
import subprocess
import sys

# The lines of one row, the empty one behind it included.
ROW = {"Omades": 5, "Komboi": 10, "Stoixeia": 9}


def put(lines, section, row, place, value):
    """Sets one value of a model: the place counts from 0, the row's number."""
    title_count_and_empty_line = 3
    lines[lines.index(section) + title_count_and_empty_line + (row - 1) * ROW[section] + place] = str(value)


def analyse(batch, folder, models):
    """All models in one run, their reports beside them; the rows of the summary."""
    summary = folder / "summary.csv"
    run = subprocess.run([batch, "--out", folder, "--summary", summary, "--", *models], stderr=subprocess.PIPE, text=True)
    if run.returncode != 0:
        sys.stderr.write(run.stderr)  # the log of all of them; the table says which
    with open(summary, newline="") as table:
        return list(csv.DictReader(table))


def main(batch, folder):
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    original = pathlib.Path(__file__).with_name("portal_frame.vsk").read_text().splitlines()
    variants = {}
    for step in range(1, 21):
        factor = step / 5
        lines = original.copy()
        put(lines, "Omades", 1, 3, 0.0002517 * factor)
        variants[factor] = folder / f"columns_{factor}.vsk"
        variants[factor].write_text("\n".join(lines))
    print("I columns     largest M  element       x     smallest M  element       x")
    rows = analyse(batch, folder, variants.values())
    for factor, row in zip(variants, rows):
        if row["status"] == "ok":
            print(f"{factor:9.1f}", *(f"{float(row[m]):14.3f} {row[m + '_element']:>8} {float(row[m + '_x']):7.3f}"
                                      for m in ("max_M", "min_M")))
        else:
            print(f"{factor:9.1f} {row['status']}")
    return 0 if all(row["status"] == "ok" for row in rows) else 1


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
