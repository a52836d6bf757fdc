#!/usr/bin/env python3
"""The tools' own programs under sanitizers: every order of quorvane-escuela once, and every screen by
quorvane-guion, on the sample school, on one that somebody has made to harm and on one that a disk has
harmed. None of them may find anything, and none ends otherwise than by a status of its own."""
import contextlib
import os
import pathlib
import shutil
import sqlite3
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
ORDERS = [line.split() for line in (ROOT / 'tests/escuela/orders.txt').read_text(encoding='utf-8').splitlines()
          if not line.startswith('#')]
YEAR = ROOT / 'tests/odbc/curso.guion'
FOUND = 86
# What a name may do to a terminal, and to who counts its letters.
NAME = '\x1b[2J\u202e' + 'ñ' * 3000 + '\n\x07'
HOSTILE = [
    ('UPDATE Alumno SET Nombre=?, Apellido_1=?', (NAME, NAME)),
    ('UPDATE Usuario SET Nombre=?', (NAME,)),
    ("UPDATE Materia SET Nombre=x'fffe00'", ()),
    ('UPDATE Curso SET Orden=99999999999 WHERE IDCurso=2', ()),
    ('UPDATE EvaluacionPte SET CodNota=? WHERE IDEvaluacionPte=1', ('x',)),
    ('UPDATE PublicacionPte SET IDPublicacionPte=2147483647', ()),
    ('INSERT INTO Seccion_AlumnoPte SELECT * FROM Seccion_AlumnoPte', ()),
    ('UPDATE AlumnoPte_MatDet SET CodAlumno=NULL WHERE IDAlumnoPte_MatDet=2', ()),
    ('CREATE UNIQUE INDEX "\x1b[2J" ON BloqueoPte (CodMatDet)', ()),
    ("CREATE TRIGGER a BEFORE UPDATE ON EvaluacionPte BEGIN SELECT RAISE(ABORT,'no'); END", ()),
]


def run(program, *arguments, folder, text=''):
    return subprocess.run([os.environ[program], *arguments], cwd=folder, input=text, text=True, errors='replace',
                          capture_output=True, timeout=250)


class SessionsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.sample = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.sample.cleanup)
        folder = pathlib.Path(cls.sample.name)
        made = run('QUORVANE_ESCUELA', 'demo', 'escuela.sqlite', folder=folder)
        assert made.returncode == 0, made.stderr
        with contextlib.closing(sqlite3.connect(folder / 'escuela.sqlite')) as school:
            school.execute('PRAGMA journal_mode=DELETE')
        cls.path = folder / 'escuela.sqlite'

    def check(self, done):
        for word in ('Sanitizer', 'runtime error: ', 'terminate called'):
            self.assertNotIn(word, done.stderr, done.args)
        self.assertIn(done.returncode, (0, 1, 2), (done.args, done.stderr))

    def play_all(self, harm):
        """Each order on a school as those before have left it. Gives how many ended well."""
        well = 0
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            school = folder / 'escuela.sqlite'
            shutil.copy(self.path, school)
            (folder / 'lista.csv').write_text('alumno,sección,materia\n1,3º ESO A,Lengua\n', encoding='utf-8')
            harm(school)
            for number, order in enumerate(ORDERS):
                paths = {'S': 'escuela.sqlite', 'C': 'lista.csv', 'N': f'nuevo{number}'}
                words = [paths.get(word, word.replace('N.', f'nuevo{number}.')) for word in order]
                done = run('QUORVANE_ESCUELA', *words, folder=folder, text='una clave larga\n' * 2)
                self.check(done)
                well += done.returncode == 0
            done = run('QUORVANE_GUION', '--bd', 'escuela.sqlite', folder=folder,
                       text=YEAR.read_text(encoding='utf-8'))
            self.check(done)
            return well + (done.returncode == 0)

    def test_the_sample_school(self):
        # But for what the list asks for that isn't there.
        self.assertGreaterEqual(self.play_all(lambda school: None), len(ORDERS) - 4)

    def test_a_hostile_school(self):
        def harm(path):
            with contextlib.closing(sqlite3.connect(path)) as school:
                for statement, values in HOSTILE:
                    with contextlib.suppress(sqlite3.IntegrityError):
                        school.execute(statement, values)
                school.commit()
        self.assertGreater(self.play_all(harm), 5)

    def test_a_corrupt_school(self):
        def harm(path):
            # The first page alone tells where the others are: without it there is nothing to read.
            pages = bytearray(path.read_bytes())
            for place in range(5000, len(pages), 997):
                pages[place] ^= 0x55
            path.write_bytes(pages)
        self.play_all(harm)

    def test_a_fault_would_be_seen(self):
        done = subprocess.CompletedProcess([], FOUND, '', 'SUMMARY: AddressSanitizer: heap-buffer-overflow')
        with self.assertRaises(AssertionError):
            self.check(done)


if __name__ == '__main__':
    unittest.main()
