#!/usr/bin/env python3
"""Ask include-what-you-use for includes that nobody uses, in each source and in its own header.

What it would add isn't asked for: a form's header may bring what every user of the form needs. An
include that is there for its effect bears "// IWYU pragma: keep".
"""
import collections
import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys
import tempfile

from compiled import ROOT, bundles, sources

TOGETHER = (16, 6)
REMOVE = re.compile(r'^(\S+) should remove these lines:\n((?:- .*\n)*)', re.MULTILINE)
# Libraries whose names it finds in headers other than those that their users include.
MISJUDGED = re.compile(r'- #include <(Q\w+|private/.*|X11/.*|xcb/.*|CLI/.*|sqlucode\.h|'
                       r'cctype|chrono|cmath|concepts|[io]?f?stream)>')


def ask(sources, file):
    """What the tool says of those sources, compiled by way of `file`: whether it has judged each, and what is
    too much, by the file that holds it."""
    also = [name for source in sources for name in (source.file, source.file.with_suffix('.h')) if name.exists()]
    done = subprocess.run(['include-what-you-use', *sources[0].flags, '-Xiwyu', '--no_fwd_decls', '-Xiwyu',
                           '--quoted_includes_first',
                           *(word for name in also for word in ('-Xiwyu', f'--check_also={name}')), str(file)],
                          text=True, capture_output=True, cwd=ROOT)
    # It tells of each file that it has read; one that ended early says nothing, or not all.
    judged = all(f'({name} has correct #includes' in done.stderr or f'{name} should remove these lines:' in done.stderr
                 for name in also)
    found = collections.defaultdict(list)
    for name, lines in REMOVE.findall(done.stderr):
        for line in lines.splitlines():
            if line.startswith('- #include') and not MISJUDGED.match(line):
                include, _, number = line[2:].partition('  // lines ')
                found[pathlib.Path(ROOT, name)].append((number.split('-')[0], include.strip()))
    sound = judged and ' error: ' not in done.stderr and done.returncode >= 0
    return sound, found, done


def alone(source):
    sound, found, done = ask([source], source.file)
    if not sound:
        return [f'{source.file}: include-what-you-use ended with {done.returncode}\n{done.stderr}']
    said = [f'{name.relative_to(ROOT)}:{number}: nobody uses {include}'
            for name, includes in found.items() for number, include in includes]
    if not said:
        source.mark.touch()
    return said


def check(bundle):
    """Who of them is complained of, or wasn't judged. Sources that are read together share the reading of
    their headers, and what one of them includes may seem useless there for another has included it before."""
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder, 'together.cpp')
        file.write_text(''.join(f'#include "{source.file}"\n' for source in bundle))
        sound, found, _ = ask(bundle, file)
    left = [source for source in bundle
            if not sound or found[source.file] or found[source.file.with_suffix('.h')]]
    for source in bundle:
        if source not in left:
            source.mark.touch()
    return left


def shown(results, text):
    for number, result in enumerate(results, 1):
        if sys.stderr.isatty():
            print(f'\r{text} {number}', end='', file=sys.stderr)
        yield from result


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    base = subprocess.run(['include-what-you-use', '--version'], check=True, capture_output=True).stdout
    base += pathlib.Path(__file__).read_bytes()
    every = list(sources(build, 'quorvane-includes', base))
    waiting = left = [source for source in every if not source.mark.exists()]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        # Beside fewer others, and behind others, most of the complaints go; the rest are asked about alone.
        for most in TOGETHER:
            left = list(shown(pool.map(check, bundles(left[::-1], most)), f'{most} at once:'))
        said = set(shown(pool.map(alone, left), 'alone:'))
    for text in sorted(said):
        print(text)
    print(f'include-what-you-use: {len(every)} sources, {len(waiting)} of them read; '
          + (f'{len(said)} includes too many' if said else 'nothing to say'))
    return 1 if said else 0


if __name__ == '__main__':
    sys.exit(main())
