#!/usr/bin/env python3
"""Writes twenty variants of the portal frame, analyses them and prints their largest moments.

    examples/study.py build/release/bin/Veskora_batch variants

The columns get 0.2 to 4 times their second moment of area. Models and results stay in the folder.
Change main() for a study of your own.
"""
import os
import pathlib
import re
import subprocess
import sys

# The lines of one row, the empty one behind it included.
ROW = {"Omades": 5, "Komboi": 10, "Stoixeia": 9}


def put(lines, section, row, place, value):
    """Sets one value of a model: the place counts from 0, the row's number."""
    title_count_and_empty_line = 3
    lines[lines.index(section) + title_count_and_empty_line + (row - 1) * ROW[section] + place] = str(value)


def analyse(batch, folder, models):
    """All models in one run, their results beside them, with a decimal point."""
    subprocess.run([batch, "--out", folder, "--", *models], env={**os.environ, "LC_ALL": "C"},
                   stderr=subprocess.DEVNULL, check=True)


def end_moments(report):
    """M of the diagram at the ends of all elements, as (M, element, node)."""
    section = report.partition("\nElement forces\n")[2].partition("\nConstraint-Spring reactions\n")[0]
    element = 0
    for head, node, moment in re.findall(r"(?m)^(\d*) +(\d+) .* (\S+) *$", section):
        element = int(head or element)
        yield (-float(moment) if head else float(moment)), element, int(node)


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
    analyse(batch, folder, variants.values())
    print("I columns     largest M  element  node     smallest M  element  node")
    for factor, model in variants.items():
        ends = list(end_moments(model.with_suffix(".txt").read_text()))
        print(f"{factor:9.1f}", *(f"{m:14.3f} {element:8} {node:5}" for m, element, node in (max(ends), min(ends))))


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
