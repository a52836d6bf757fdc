#!/usr/bin/env python3
"""copy_figures.py QUORVANE-ESCUELA STRING [STUDENTS]: how long a school takes from a file to the server
of that connection string and back, and in how much memory. Ends with 1 beyond 90 seconds, or when the
school that has come back isn't the one that went."""
import contextlib
import os
import pathlib
import sqlite3
import subprocess
import sys
import tempfile
import time

sys.path.append(str(pathlib.Path(__file__).parents[2] / 'tools'))
import numeros  # noqa: E402

LIMIT = 90


def timed(what, *command):
    """Runs it: its seconds, and its memory at most, in MB."""
    begun = time.monotonic()
    child = subprocess.Popen(command, stdout=subprocess.DEVNULL)
    _, status, used = os.wait4(child.pid, 0)
    child.returncode = os.waitstatus_to_exitcode(status)
    seconds = time.monotonic() - begun
    if child.returncode:
        sys.exit(f'{what}: ha acabado con {child.returncode}')
    print(f'{what}: {seconds:.1f} s, {used.ru_maxrss // 1024} MB', flush=True)
    return seconds


def dump(path):
    with contextlib.closing(sqlite3.connect(path)) as school:
        return sorted(school.iterdump())


def main():
    program, string = sys.argv[1:3]
    students = str(numeros.plain_number(sys.argv[3])) if len(sys.argv) > 3 else '200000'
    with tempfile.TemporaryDirectory() as folder:
        origin, back = pathlib.Path(folder, 'ida.sqlite'), pathlib.Path(folder, 'vuelta.sqlite')
        timed(f'Generar {students} alumnos', program, 'generar', str(origin), '--alumnos', students,
              '--semilla', '1')
        there = timed('Copiar al servidor', program, 'copiar', str(origin), string)
        again = timed('Copiar al fichero', program, 'copiar', string, str(back))
        same = dump(origin) == dump(back)
    print('Vuelve lo mismo que fue' if same else 'Lo que vuelve no es lo que fue')
    return 0 if same and max(there, again) <= LIMIT else 1


if __name__ == '__main__':
    sys.exit(main())
