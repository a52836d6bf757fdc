#!/usr/bin/env python3
"""Run clang-tidy over the project's sources, each once for each state of it and its headers.

Sources that are compiled alike and lie in one folder are read together, so that the headers which
they share are read once; names of theirs that clash part them again.
"""
import concurrent.futures
import os
import pathlib
import subprocess
import sys
import tempfile

from compiled import ROOT, bundles, sources

TOGETHER = 32
FOLDERS = 'platform|frame|register|selection|grades|adapters|apps|fuzz|tools'
HEADERS = rf'({FOLDERS})/.*\.(h|cpp)$'


def tidy(bundle):
    """Whether they pass, and what there is to say: where they can't be read together, None and why."""
    with tempfile.TemporaryDirectory() as folder:
        file = bundle[0].file
        if len(bundle) > 1:
            file = pathlib.Path(folder, 'together.cpp')
            file.write_text(''.join(f'#include "{one.file}"\n' for one in bundle))
        done = subprocess.run(['clang-tidy', '--quiet', f'--config-file={ROOT}/.clang-tidy',
                               f'--header-filter={HEADERS}', str(file), '--', *bundle[0].flags,
                               '-Wno-unknown-warning-option'], text=True, capture_output=True)
    if done.returncode == 0:
        for one in bundle:
            one.mark.touch()
        return True, ''
    if len(bundle) > 1 and 'clang-diagnostic-error' in done.stdout:
        return None, done.stdout
    return False, f'{done.stdout}{done.stderr}clang-tidy ended with {done.returncode}'


def check(bundle):
    passed, text = tidy(bundle)
    if passed is not None:
        return [(bundle, passed, text)]
    apart = [one for one in bundle[1:] if f'{one.file.relative_to(ROOT)}:' in text]
    apart = apart or bundle[len(bundle) // 2:]
    return check([one for one in bundle if one not in apart]) + check(apart)


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    version = subprocess.run(['clang-tidy', '--version'], check=True, capture_output=True).stdout
    base = version + (ROOT / '.clang-tidy').read_bytes() + pathlib.Path(__file__).read_bytes()
    every = list(sources(build, 'quorvane-tidy', base))
    waiting = [source for source in every if not source.mark.exists()]
    done = failed = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for job in concurrent.futures.as_completed(pool.submit(check, one) for one in bundles(waiting, TOGETHER)):
            for bundle, passed, text in job.result():
                done += len(bundle)
                if sys.stderr.isatty():
                    print(f'\r{done}/{len(waiting)}', end='', file=sys.stderr)
                if not passed:
                    failed += 1
                    print(text)
    print(f'clang-tidy: {len(every)} sources, {len(waiting)} of them read; '
          + (f'{failed} times something to say' if failed else 'nothing to say'))
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main())
