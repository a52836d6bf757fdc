#!/usr/bin/env python3
"""Ask include-what-you-use for includes that nobody uses, in each source and in its own header.

What it would add isn't asked for: a form's header may bring what every user of the form needs. An
include that is there for its effect bears "// IWYU pragma: keep".
"""
import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys

from compiled import ROOT, sources

REMOVE = re.compile(r'^(\S+) should remove these lines:\n((?:- .*\n)*)', re.MULTILINE)
# Libraries whose names it finds in headers other than those that their users include.
MISJUDGED = re.compile(r'- #include <(Q\w+|private/.*|X11/.*|xcb/.*|CLI/.*|sqlucode\.h|'
                       r'cctype|chrono|cmath|concepts|[io]?f?stream)>')


def check(source):
    done = subprocess.run(['include-what-you-use', *source.flags, '-Xiwyu', '--no_fwd_decls', '-Xiwyu',
                           '--quoted_includes_first', str(source.file)], text=True, capture_output=True,
                          cwd=ROOT)
    # It tells of each file that it has read; one that ended early says nothing, or not all.
    judged = ' has correct #includes/fwd-decls)' in done.stderr or ' should remove these lines:' in done.stderr
    if ' error: ' in done.stderr or done.returncode < 0 or not judged:
        return [f'{source.file}: include-what-you-use ended with {done.returncode}\n{done.stderr}']
    found = []
    for file, lines in REMOVE.findall(done.stderr):
        for line in lines.splitlines():
            if line.startswith('- #include') and not MISJUDGED.match(line):
                include, _, number = line[2:].partition('  // lines ')
                name = pathlib.Path(file)
                name = name.relative_to(ROOT) if name.is_absolute() else name
                found.append(f'{name}:{number.split("-")[0]}: nobody uses {include.strip()}')
    if not found:
        source.mark.touch()
    return found


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    base = subprocess.run(['include-what-you-use', '--version'], check=True, capture_output=True).stdout
    base += pathlib.Path(__file__).read_bytes()
    every = list(sources(build, 'quorvane-includes', base))
    waiting = [source for source in every if not source.mark.exists()]
    said = set()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for number, found in enumerate(pool.map(check, waiting), 1):
            if sys.stderr.isatty():
                print(f'\r{number}/{len(waiting)}', end='', file=sys.stderr)
            said.update(found)
    for text in sorted(said):
        print(text)
    print(f'include-what-you-use: {len(every)} sources, {len(waiting)} of them read; '
          + (f'{len(said)} includes too many' if said else 'nothing to say'))
    return 1 if said else 0


if __name__ == '__main__':
    sys.exit(main())
