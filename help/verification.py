#!/usr/bin/env python3
"""Makes the verification chapter: published values beside those of the program's own reports.

    verification.py BATCH_BINARY MODELS TEMPLATE OUTPUT PROBLEMS.txt...

MODELS or a folder in it holds the model file of each problem, named by the first word of its title. The template's
${...} are filled; a value out of tolerance or without a report ends the build.
"""
import html
import os
import pathlib
import re
import subprocess
import sys
from decimal import Decimal
from string import Template

TITLES = {"u": "Node displacements", "f": "Element forces", "r": "Constraint-Spring reactions"}
NAMES = {
    "u": ("u<sub>x</sub>", "u<sub>y</sub>", "rotation"),
    "r": ("R<sub>x</sub>", "R<sub>y</sub>", "moment"),
    "f": ("axial force", "shear force", "moment") * 2,
}


def problems(path):
    """Title, source and expected values (table, row, column, text as published) of each block."""
    for block in re.split(r"(?m)^# (?=.*\n# Source: )", pathlib.Path(path).read_text(encoding="utf-8"))[1:]:
        title, source, *rows = block.splitlines()
        records = [r.split() for row in rows if not row.startswith("#") for r in row.split(";")]
        yield title, source.removeprefix("# Source: "), [
            (r[1], int(r[2]), int(r[3]), r[4]) for r in records if r and r[0] == "="]


def report(batch, model):
    """The batch runner's report, its numbers with a decimal point."""
    run = subprocess.run([batch, "-", "--", model], env={**os.environ, "LC_ALL": "C"},
                         capture_output=True, text=True, encoding="utf-8", check=False)
    if run.returncode != 0:
        sys.exit(run.stderr)
    return run.stdout


def results(text):
    """The number texts of a report by (table, row, column); columns of an element count to six."""
    found = {}
    section, row, end = "", 0, 0
    for line in text.splitlines():
        section = next((t for t, name in TITLES.items() if line == name), section)
        head, values = line[:8].strip(), line[8:]
        if section == "f" and re.match(r"\d", values):
            row, end = (int(head), 0) if head else (row, 3)
            values = values[8:]
        elif section in ("u", "r") and head.isdigit():
            row, end = int(head), 0
        else:
            continue
        for k in range(3):
            found[section, row, end + k + 1] = values[25 * k:25 * k + 25].strip()
    return found


def rounding(published):
    """Half a unit of the last published digit, relative: what rounding can make of a value."""
    digits = Decimal(published)
    return float(Decimal("0.5").scaleb(digits.as_tuple().exponent) / abs(digits))


def shown(number):
    """The text of a number, a zero before a point that has none."""
    return re.sub(r"(?<!\d)\.", "0.", number)


def percent(ratio):
    number, _, power = f"{100 * ratio:.2g}".partition("e")
    if ratio < 5e-13:
        return "0"
    return f"{number}·10<sup>{int(power)}</sup> %" if power else f"{number} %"


def main(batch, models, template, output, *files):
    rows, values = [], 0
    worst = dict.fromkeys(("rounded", "exact", "polygon"), (0.0, ""))
    for path in files:
        for title, source, expected in problems(path):
            name, _, heading = title.partition(" ")
            model = next(pathlib.Path(models).rglob(f"{name}.vsk"))
            found = results(report(batch, model))
            link = f"example:{model.relative_to(models).as_posix()}"
            limit = re.search(r"Compare within ([\d.]+) %", source)
            rows.append(f'<tr><td colspan="6" class="problem">'
                        f'<b><a href="{link}">{name}</a></b> {html.escape(heading)}'
                        f"<br><small>{html.escape(source)}</small></td></tr>")
            for table, row, column, published in expected:
                ours = found[table, row, column]
                stated = limit and f"{published} is published rounded" not in source
                difference = abs(float(ours) / float(published) - 1)
                allowed = float(limit[1]) / 100 if stated else rounding(published)
                if difference > allowed:
                    sys.exit(f"{title}: {table} {row} {column} is {ours}, published {published}")
                group = "polygon" if name.startswith("V20") else "exact" if stated else "rounded"
                worst[group] = max(worst[group], (difference, name))
                values += 1
                place = f"element {row}, end {'ij'[column > 3]}" if table == "f" else f"node {row}"
                rows.append(f"<tr><td>{place}</td><td>{NAMES[table][column - 1]}</td>"
                            f'<td class="number">{shown(published)}</td>'
                            f'<td class="number">{shown(ours)}</td>'
                            f'<td class="number">{percent(difference)}</td>'
                            f'<td class="number">{percent(allowed)}</td></tr>')
    filled = {f"{group}_{what}": value for group, (difference, name) in worst.items()
              for what, value in (("worst", percent(difference)), ("name", name))}
    text = Template(pathlib.Path(template).read_text(encoding="utf-8")).substitute(
        filled, table="\n".join(rows), values=values,
        problems=sum('class="problem"' in row for row in rows))
    with open(output, "w", encoding="utf-8") as chapter:
        chapter.write(text)
    plain = {group: f"{100 * difference:.2g} % ({name})"
             for group, (difference, name) in worst.items()}
    print(f"Verification: {values} values; worst relative difference from values published rounded "
          f"{plain['rounded']}, from precise ones {plain['exact']}, of polygons {plain['polygon']}")


main(*sys.argv[1:])
