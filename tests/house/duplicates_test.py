#!/usr/bin/env python3
"""Holds that no two places in the sources share a run of twelve or more identical lines. Blank lines,
comments and includes don't count, nor does how far a line is indented."""
import collections
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDERS = ['platform', 'frame', 'register', 'selection', 'grades', 'adapters', 'apps']
LEAST = 12

TOKEN = re.compile(r'''//[^\n]*|/\*.*?\*/|R"([^(\s]*)\(.*?\)\1"|'(?:\\.|[^'\\\n])+'|"(?:\\.|[^"\\\n])*"''',
                   re.S)
INCLUDE = re.compile(r'#\s*include\b')


def without_comments(source):
    """The source with its lines in their places."""
    return TOKEN.sub(lambda token: '\n' * token.group().count('\n') if token.group()[0] == '/'
                     else token.group(), source)


def counted_lines(source):
    """What counts, as pairs of the line's number and its text."""
    for number, line in enumerate(without_comments(source).split('\n'), 1):
        text = ' '.join(line.split())
        if text and not INCLUDE.match(text):
            yield number, text


def longest_runs(files):
    """Pairs of places (file, index of a counted line) with the length of the run that they share,
    each once and from its beginning; `files` gives the counted lines of each."""
    homes = collections.defaultdict(list)
    for file, lines in files.items():
        for at in range(len(lines) - LEAST + 1):
            homes[tuple(text for _, text in lines[at:at + LEAST])].append((file, at))

    def text(place):
        file, at = place
        return files[file][at][1] if 0 <= at < len(files[file]) else None

    def moved(place, by):
        return place[0], place[1] + by

    for places in homes.values():
        for number, one in enumerate(places):
            for other in places[number + 1:]:
                if text(moved(one, -1)) == text(moved(other, -1)) is not None:
                    continue  # told from its beginning
                length = LEAST
                while text(moved(one, length)) == text(moved(other, length)) is not None:
                    length += 1
                if one[0] != other[0] or other[1] - one[1] >= LEAST:
                    yield one, other, length


def main():
    files = {}
    for folder in FOLDERS:
        for path in sorted((ROOT / folder).rglob('*')):
            if path.suffix in ('.h', '.cpp'):
                name = path.relative_to(ROOT).as_posix()
                files[name] = list(counted_lines(path.read_text(encoding='utf-8')))

    def told(place, length):
        file, at = place
        return f'{file}:{files[file][at][0]}-{files[file][at + length - 1][0]}'

    found = sorted(longest_runs(files), key=lambda run: (-run[2], run[0], run[1]))
    for one, other, length in found:
        print(f'{length} lines: {told(one, length)} ~ {told(other, length)}')
    print(f'{len(files)} files: {len(found)} pairs of places share {LEAST} lines or more')
    return 1 if found else 0


if __name__ == '__main__':
    sys.exit(main())
