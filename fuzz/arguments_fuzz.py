#!/usr/bin/env python3
"""arguments_fuzz.py SECONDS SEED QUORVANE-ESCUELA QUORVANE-GUION: runs the tools with arguments out of words
that they know, words that they don't, and noise. A tool ends by a status of its own, at once, prints nothing
that acts on a terminal and no password. It works in an empty folder and stays there."""
import os
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile
import time
import unicodedata

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / 'tools'))
import numeros  # noqa: E402

LIST = pathlib.Path(__file__).parent.parent / 'tests/escuela/orders.txt'
LINES = [line.split() for line in LIST.read_bytes().splitlines() if not line.startswith(b'#')]
ORDERS = sorted({line[0] for line in LINES})
OPTIONS = sorted({word for line in LINES for word in line if word.startswith(b'--')})
OPTIONS += [b'--odbc', b'--help', b'-h', b'--bd', b'--entrada',
           b'--usuario', b'--perfil', b'--centro', b'--sqlserver', b'--inactiva', b'--hoy', b'--', b'-', b'--version']
VALUES = [b'escuela.sqlite', b'otra.sqlite', b'nueva', b'file:zz', b':memory:', b'', b' ', b'.', b'a' * 260, b'0', b'1',
          b'010', b'0x1', b'-1', b'99999999999999999999', b'1e9', b'Driver=SQLite3;Database=escuela.sqlite',
          b'Driver=SQLite3;Database=no', b'Driver=' + b'x' * 1100, b'DSN=nadie;PWD=secreto', b'PWD={secreto', b'=',
          b'01/01/2026', b'\x1b[2J', b'\xe2\x80\xae', b'\xff\xfe', b'guion.txt', b'uno\ndos', b'%s%n', b'lista.csv', b'321',
          b'2025-03-03']
VALUES += sorted({word for line in LINES for word in line[1:] if len(word) > 1 and not word.startswith(b'--')})
PLACES = {b'S': b'escuela.sqlite', b'C': b'lista.csv', b'N': b'nueva'}
SIGNS = 'ñ=;{}[]()\'"\\%$ \t\n\x1b\x7f'


def noise(chance):
    return bytes(chance.randrange(1, 256) for _ in range(chance.randrange(12)))


def harmless(word):
    """Of what may be a path: nothing outside of the folder."""
    return word.replace(b'/', b'_').replace(b'\0', b'').replace(b'..', b'_')


def argument(chance):
    word = chance.choice(chance.choice([ORDERS, OPTIONS, VALUES, VALUES]))
    turn = chance.randrange(10)
    if turn == 0:
        word = noise(chance)
    elif turn == 1:
        at = chance.randrange(len(word) + 1)
        word = word[:at] + chance.choice(SIGNS).encode() + word[at:]
    elif turn == 2:
        word += b'=' + chance.choice(VALUES)
    return harmless(word)


def nearly(chance, line):
    """An order as it is meant, but for one word."""
    words = [PLACES.get(word, word) for word in line]
    words[chance.randrange(len(words))] = argument(chance)
    return words


def acts(text):
    return any(unicodedata.category(letter) in ('Cc', 'Zl', 'Zp') and letter not in '\n\t'
               or unicodedata.bidirectional(letter) in ('LRE', 'RLE', 'LRO', 'RLO', 'PDF', 'LRI', 'RLI', 'FSI', 'PDI')
               for letter in text)


def fail(what, order, done=None):
    print(what, order, done, sep='\n')
    sys.exit(1)


def main():
    seconds, seed = map(numeros.plain_number, sys.argv[1:3])
    tools = sys.argv[3:]
    chance = random.Random(seed)
    folder = pathlib.Path(tempfile.mkdtemp(prefix='quorvane-argumentos-'))
    environment = {**os.environ, 'HOME': str(folder), 'LANG': 'C.UTF-8'}
    environment.pop('QUORVANE_TRAZA', None)
    runs = 0
    try:
        until = time.monotonic() + seconds
        while time.monotonic() < until:
            if runs % 50 == 0:
                shutil.rmtree(folder)
                folder.mkdir()
                subprocess.run([tools[0], 'demo', 'escuela.sqlite'], cwd=folder, check=True, capture_output=True)
                (folder / 'lista.csv').write_text('alumno,sección,materia\n1,A,Lengua\n', encoding='utf-8')
                (folder / 'guion.txt').write_text('nodo 123\ncerrar\n', encoding='utf-8')
            words = [argument(chance) for _ in range(chance.randrange(7))]
            tool = chance.choice(tools)
            if tool == tools[0] and chance.randrange(4):
                words.insert(0, chance.choice(ORDERS))
                if chance.randrange(2):
                    words = nearly(chance, chance.choice(LINES))
            elif tool == tools[1] and chance.randrange(2):
                words[:0] = [b'--bd', b'escuela.sqlite']
            # A school of any size is no mistake.
            words = [word if word != b'--alumnos' else b'--alumnos=2' for word in words]
            order = [tool.encode(), *words]
            try:
                done = subprocess.run(order, cwd=folder, stdin=subprocess.DEVNULL, capture_output=True, timeout=60,
                                      start_new_session=True, env=environment)
            except subprocess.TimeoutExpired:
                fail('It doesn\'t end', order)
            if done.returncode not in (0, 1, 2, 3):
                fail(f'It ends with {done.returncode}', order, done)
            try:
                told = (done.stdout + done.stderr).decode().replace('\r\n', '\n')
            except UnicodeDecodeError:
                fail('It prints what is no UTF-8', order, done)
            if acts(told):
                fail('It prints what acts on a terminal', order, done)
            if 'secreto' in told:
                fail('It prints a password', order, done)
            runs += 1
    finally:
        shutil.rmtree(folder, ignore_errors=True)
    print(f'{runs} runs')


if __name__ == '__main__':
    main()
