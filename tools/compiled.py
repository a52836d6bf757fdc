"""The project's sources as the build compiles them, for the tools that read each with another compiler.

A source that passed a tool is remembered, by what it is made of, in the user's cache folder.
"""
import collections
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess

ROOT = pathlib.Path(__file__).resolve().parent.parent
Source = collections.namedtuple('Source', 'file flags mark')


def _dependencies(build):
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


def _flags(words):
    """What the meaning of a source hangs on: folders, definitions and the language."""
    words = iter(words)
    for word in words:
        if word in ('-isystem', '-I', '-D'):
            yield from (word, next(words))
        elif word.startswith(('-I', '-D', '-std=', '-fPI')):
            yield word


def _key(files, flags, base):
    digest = hashlib.sha256(base)
    digest.update('\0'.join(flags).encode() + b'\0')
    for file in files:
        if file.suffix != '.gch':
            digest.update(str(file.name).encode() + file.read_bytes())
    return digest.hexdigest()


def _parts(file, build):
    """The sources that a file of the build's own has compiled as one; else the file itself."""
    if not file.is_relative_to(build):
        return [file]
    return [pathlib.Path(name) for name in re.findall(r'^#include "(.*)"', file.read_text(), re.MULTILINE)]


def sources(build, tool, base):
    """Each source file once, tests and generated code aside; `base` is what else the tool's verdict
    hangs on, its own text among it. A mark that exists says that this state of the source has passed."""
    cache = pathlib.Path(os.environ.get('XDG_CACHE_HOME') or pathlib.Path.home() / '.cache') / tool
    cache.mkdir(parents=True, exist_ok=True)
    deps = _dependencies(build)
    seen = set()
    for entry in json.loads((build / 'compile_commands.json').read_text()):
        words = shlex.split(entry['command'])
        output = words[words.index('-o') + 1]
        for file in _parts(pathlib.Path(entry['file']).resolve(), build):
            inside = file.is_relative_to(ROOT) and not file.is_relative_to(build)
            if not inside or file in seen or file.relative_to(ROOT).parts[0] in ('tests', 'bench'):
                continue
            seen.add(file)
            flags = tuple(_flags(words))
            yield Source(file, flags, cache / _key([file, *deps.get(output, [])], flags, base))


def bundles(waiting, most):
    """What can be read together, the largest first: compiled alike, in one folder, and no more than `most`."""
    alike = collections.defaultdict(list)
    for source in waiting:
        folder = source.file.relative_to(ROOT).parts[:-1][:2]
        alike[source.flags, folder].append(source)
    parts = [group[i:i + most] for group in alike.values() for i in range(0, len(group), most)]
    return sorted(parts, key=len, reverse=True)
