"""Puts what quorvane-bench printed (standard input) into the page's README.md and draws its pictures.

    page.py FOLDER
"""

import re
import sys
from html import escape
from pathlib import Path

ON_FILE, ON_SERVER = "medidas", "medidas-servidor"
COLOURS = ["#1f6fb2", "#8c8c8c", "#c4c4c4", "#6aa84f"]
PARTS = ["#8c8c8c", "#c9a227", "#6aa84f", "#9fc5e8", "#1f6fb2", "#b4418e", "#e06666"]
FONT = 'font-family="sans-serif" font-size="12"'


def tables(text):
    """Each table under its title, as lists of cells, the heading first."""
    found = {}
    for section in re.split(r"^### ", text, flags=re.M)[1:]:
        title, _, body = section.partition("\n")
        lines = [line for line in body.splitlines() if line.startswith("|")]
        found[title] = [[cell.strip() for cell in line.strip("|").split("|")]
                        for line in lines if not line.startswith("|---")]
    return found


def number(cell):
    return float(cell.replace(",", ""))


def svg(width, height, parts):
    return "\n".join([
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
        f'viewBox="0 0 {width} {height}">',
        f'<rect width="{width}" height="{height}" fill="white"/>', *parts, "</svg>", ""])


def text(x, y, content, anchor="start", colour="#222"):
    return (f'<text x="{x:.0f}" y="{y:.0f}" {FONT} text-anchor="{anchor}" fill="{colour}">'
            f"{escape(content)}</text>")


def bar(x, y, width, height, colour):
    return f'<rect x="{x:.1f}" y="{y:.1f}" width="{width:.1f}" height="{height}" fill="{colour}"/>'


def comparison(table):
    """What each thing takes, the plain replay as 1."""
    head, *rows = table
    names = [name.removesuffix(", ms") for name in head if name.endswith(", ms")]
    left, unit, thick, gap, most = 230, 300, 8, 10, 1.6
    step = thick * len(names) + gap
    parts = []
    for i, name in enumerate(names):
        parts += [bar(left + 110 * i, 12, 12, 12, COLOURS[i]), text(left + 17 + 110 * i, 22, name)]
    top = 40
    bottom = top + step * len(rows)
    for share in (0.5, 1.0, 1.5):
        x = left + unit * share
        parts += [f'<line x1="{x}" y1="{top}" x2="{x}" y2="{bottom}" stroke="#ddd"/>',
                  text(x, bottom + 14, f"{share:g}", "middle")]
    for row, cells in enumerate(rows):
        y = top + step * row
        times = [number(cell) for cell in cells[2:2 + len(names)]]
        parts.append(text(left - 8, y + step / 2, cells[0], "end"))
        for i, time in enumerate(times):
            share = time / times[1]
            parts.append(bar(left, y + thick * i, unit * min(share, most), thick, COLOURS[i]))
    parts.append(text(left, bottom + 30, "Processor time; the plain sqlite3 replay is 1"))
    return svg(left + int(unit * most) + 40, bottom + 40, parts)


def statement(table):
    """Where the time of one cached statement goes."""
    rows = [(cells[0], number(cells[1])) for cells in table[1:]]
    rows = rows[:next(i for i, row in enumerate(rows) if row[0].startswith("**"))]
    whole = sum(time for _, time in rows)
    left, width, top = 20, 720, 20
    parts, x = [], left
    for i, (name, time) in enumerate(rows):
        length = width * time / whole
        parts.append(bar(x, top, length, 40, PARTS[i]))
        y = top + 64 + 20 * i
        parts += [bar(left, y - 10, 12, 12, PARTS[i]), text(left + 18, y, f"{name}: {time:.0f} ns")]
        x += length
    return svg(left * 2 + width, top + 60 + 20 * len(rows), parts)


def main():
    folder = Path(sys.argv[1])
    printed = sys.stdin.read().strip()
    found = tables(printed)
    page = folder / "README.md"
    mark = ON_SERVER if any(title.startswith("Server: ") for title in found) else ON_FILE
    begin, end = f"<!-- {mark} -->", f"<!-- /{mark} -->"
    before, _, rest = page.read_text(encoding="utf-8").partition(begin)
    after = rest.partition(end)[2]
    page.write_text(f"{before}{begin}\n\n{printed}\n\n{end}{after}", encoding="utf-8")
    if mark == ON_SERVER:
        return
    largest = [table for title, table in found.items() if title.endswith("processor time")
               and "students" in title][-1]
    cost = next(table for title, table in found.items() if title.startswith("What a cached"))
    (folder / "comparison.svg").write_text(comparison(largest), encoding="utf-8")
    (folder / "statement.svg").write_text(statement(cost), encoding="utf-8")


main()
