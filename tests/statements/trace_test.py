#!/usr/bin/env python3
"""Holds what test programs have issued, as their traces tell (QUORVANE_TRAZA), against the list of the
module's statements, both ways: nothing is issued that isn't in the list, and no line of it is never
issued, but those that it says no event reaches.
"""
import argparse
import collections
import re
import sys

from statement_list import LIST, read_list

NUMBERS = re.compile('-?[0-9]+(?:,-?[0-9]+)*')
PLACES = re.compile(r'\{[nbl]\}')
SHOWN = 20  # statements at most
USERS = ' FROM Usuario '  # the one statement that goes to the application's own database


def shape(text):
    return NUMBERS.sub('#', text)


def issued(traces):
    """Pairs of connection and statement, each once."""
    found = {}
    for trace in traces:
        with open(trace, encoding='utf-8', errors='replace') as lines:
            found.update(dict.fromkeys(tuple(line.rstrip('\n').split(' ', 2)[1:]) for line in lines
                                       if line.startswith('sql ')))
    return found


def compare(statements, lines):
    """The statements that are in no line, one of each shape, and the numbers of the lines seen."""
    by_shape = collections.defaultdict(list)
    for line in lines:
        by_shape[shape(PLACES.sub('1', line.text))].append((line, line.issued_as()))
    strange, seen = {}, set()
    for connection, text in statements:
        fitting = [line for line, pattern in by_shape[shape(text)] if pattern.fullmatch(text)]
        if not fitting or (connection == 'entrada') != (USERS in text):
            strange.setdefault(shape(text), f'{connection}: |{text}|')
        else:
            # The most literal one: a place takes any number that another line writes out.
            seen.add(min(fitting, key=lambda line: line.text.count('{')).number)
    return list(strange.values()), seen


def main():
    parser = argparse.ArgumentParser(description=__doc__.split('\n\n')[0])
    parser.add_argument('traces', nargs='+', metavar='TRACE')
    lines = read_list()
    strange, seen = compare(issued(parser.parse_args().traces), lines)
    for statement in strange[:SHOWN]:
        print(f'in no line of the list, on {statement}')
    never = [line for line in lines if not line.mark and line.number not in seen]
    for line in never:
        print(f'{LIST.name}:{line.number}: never issued: |{line.text}|')
    print(f'{len(seen)} lines issued, {len(never)} never; {len(strange)} statements unknown')
    return 1 if strange or never else 0


if __name__ == '__main__':
    sys.exit(main())
