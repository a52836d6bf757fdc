#!/usr/bin/env python3
"""Holds the list of the module's statements (tests/sqlite/statements.txt) and the string literals
of its sources against each other, both ways: whoever reads a statement in a trace finds its home by
searching for it, and no literal issues what the list doesn't know.

A statement is one literal, the whole of a line, or the beginning of one where a part that isn't
always there follows; such a part is a literal too. Neither is cut where a number stands: numbers
have places in it.
"""
import argparse
import re
import sys

from statement_list import LIST, ROOT, read_list

FOLDERS = ['frame', 'register', 'selection', 'grades']

# The database itself: no statement of the forms.
LEFT_OUT = 'frame/schema/'
# What isn't sent to a database, and what is made for any table.
KNOWN = {
    ('selection/MateriasSeccion.cpp', 'IDMATERIADETALLES={} AND Aprobado=0'),  # a filter of rows
    ('frame/modGeneral.cpp', 'SELECT MAX('),
}

TOKEN = re.compile(r'''//[^\n]*|/\*.*?\*/|'(?:\\.|[^'\\\n])'|"(?:\\.|[^"\\\n])*"(?:\s*"(?:\\.|[^"\\\n])*")*''',
                   re.S)
PIECE = re.compile(r'"((?:\\.|[^"\\\n])*)"')
STATEMENT = re.compile(r'\s*(SELECT|INSERT INTO|UPDATE|DELETE FROM|EXEC)\b', re.I)
# A part of a statement: clauses as no text for the user has them, or an end that wants a number.
PART = re.compile(r'\b(FROM|WHERE|ORDER BY|JOIN|UNION|VALUES|SET)\b.*[=(]|'
                  r'^[ )]*(AND|OR|WHERE|ORDER BY|UNION|FROM|SET|ON|VALUES)\b|'
                  r'\b(WHERE|AND|IN|SET|VALUES|FROM|BY|UNION) ?\(?$|\w\s*=\s*$')
CUT_AT_A_NUMBER = re.compile(r'[=<>(,]\s*$')

# One rule, wherever a statement asks for the students who are still there.
ACTIVE = re.compile(r'\bAnticipado\b')
ACTIVE_STUDENT = "Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL)"


class Literal:
    """A literal of a source, of so many pieces beside each other."""

    def __init__(self, file, line, text, pieces):
        self.file, self.place, self.text, self.pieces = file, f'{file}:{line}', text, pieces
        self.is_statement = STATEMENT.match(text) is not None
        self.is_part = not self.is_statement and PART.search(text) is not None


def literals_in(file, source):
    source = re.sub(r'^\s*#\s*include[^\n]*', '', source, flags=re.M)
    for match in TOKEN.finditer(source):
        if match.group().startswith('"'):
            pieces = PIECE.findall(match.group())
            line = source.count('\n', 0, match.start()) + 1
            yield Literal(file, line, ''.join(pieces).replace('\\"', '"'), len(pieces))


def read_literals(folders):
    """The statements of the sources, and what may be parts of one."""
    for folder in folders:
        for path in sorted((ROOT / folder).rglob('*')):
            file = path.relative_to(ROOT).as_posix()
            if path.suffix not in ('.h', '.cpp') or file.startswith(LEFT_OUT):
                continue
            for literal in literals_in(file, path.read_text(encoding='utf-8')):
                if literal.is_statement or literal.is_part:
                    if (file, literal.text) not in KNOWN:
                        yield literal


def homeless(lines, literals):
    """What the lines lack in the sources."""
    for line in lines:
        # What no event reaches may be made of parts; of two joinings one is in use.
        if not line.mark and not any(line.head in literal.text for literal in literals):
            yield f'{LIST.name}:{line.number}: up to its first number in no literal: |{line.head}|'


def strange(literals, lines):
    """What the literals say that no line does, or as a search doesn't find it."""
    for literal in literals:
        if literal.pieces > 1:
            yield f'{literal.place}: broken over lines: |{literal.text}|'
        whole = any(literal.text == line.whole for line in lines)
        if not whole and CUT_AT_A_NUMBER.search(literal.text):
            yield f'{literal.place}: cut where a number stands: |{literal.text}|'
        begins = any(line.whole.startswith(literal.text) for line in lines)
        within = any(literal.text in line.whole for line in lines)
        if not (begins if literal.is_statement else within):
            yield f'{literal.place}: in no line of the list: |{literal.text}|'
        if ACTIVE.search(literal.text) and ACTIVE_STUDENT not in literal.text:
            yield f'{literal.place}: an active student is |{ACTIVE_STUDENT}|'


def main():
    parser = argparse.ArgumentParser(description=__doc__.split('\n\n')[0])
    parser.add_argument('--carpetas', nargs='+', choices=FOLDERS, default=FOLDERS,
                        help='folders of the module to look at (all of them)')
    folders = parser.parse_args().carpetas
    lines = read_list()
    literals = list(read_literals(folders))
    wanted = [line for line in lines if 'grades' in folders or not line.of_grades]
    faults = [*homeless(wanted, literals), *strange(literals, lines)]
    for fault in faults:
        print(fault)
    print(f'{len(wanted)} lines of the list, {len(literals)} statements and parts in '
          f'{" ".join(folders)}: {len(faults)} faults')
    return 1 if faults else 0


if __name__ == '__main__':
    sys.exit(main())
