#!/usr/bin/env python3
"""Run clang-tidy over the project's sources, each once for each state of it and its headers.

A file that passed is remembered, by what it is made of, in the user's cache folder.
"""
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
OUTPUT = re.compile(r' -o (\S+) ')
CACHE = pathlib.Path(os.environ.get('XDG_CACHE_HOME') or pathlib.Path.home() / '.cache') / 'quorvane-tidy'


def dependencies(build):
    """The project's files that each object was made from, as the build has noted them."""
    text = subprocess.run(['ninja', '-C', str(build), '-t', 'deps'], check=True, text=True,
                          capture_output=True).stdout
    found = {}
    for block in text.split('\n\n'):
        lines = block.strip().splitlines()
        if len(lines) > 1:
            files = (pathlib.Path(build, line.strip()).resolve() for line in lines[1:])
            found[lines[0].split(':')[0]] = sorted(f for f in files if f.is_relative_to(ROOT))
    return found


def sources(build):
    """Pairs of a source file and the files that it is made of; tests and generated code aside."""
    deps = dependencies(build)
    for entry in json.loads((build / 'compile_commands.json').read_text()):
        file = pathlib.Path(entry['file']).resolve()
        inside = file.is_relative_to(ROOT) and not file.is_relative_to(build)
        if inside and file.relative_to(ROOT).parts[0] not in ('tests', 'bench'):
            output = OUTPUT.search(entry['command']).group(1)
            yield file, deps.get(output, [file])


def key(files, base):
    digest = hashlib.sha256(base)
    for file in files:
        digest.update(str(file.name).encode() + file.read_bytes())
    return CACHE / digest.hexdigest()


def check(build, file, mark):
    if mark.exists():
        return True, ''
    done = subprocess.run(['clang-tidy', '-p', str(build), '--quiet',
                           '--extra-arg=-Wno-unknown-warning-option', str(file)], text=True,
                          capture_output=True)
    if done.returncode == 0:
        mark.touch()
    return done.returncode == 0, done.stdout


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    CACHE.mkdir(parents=True, exist_ok=True)
    version = subprocess.run(['clang-tidy', '--version'], check=True, capture_output=True).stdout
    base = version + (ROOT / '.clang-tidy').read_bytes()
    work = [(file, key(files, base)) for file, files in sources(build)]
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        jobs = {pool.submit(check, build, file, mark): file for file, mark in work}
        for number, job in enumerate(concurrent.futures.as_completed(jobs), 1):
            fine, text = job.result()
            if sys.stderr.isatty():
                print(f'\r{number}/{len(work)}', end='', file=sys.stderr)
            if not fine:
                failed += 1
                print(f'{jobs[job].relative_to(ROOT)}\n{text}')
    print(f'clang-tidy: {len(work) - failed} passed, {failed} failed')
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main())
