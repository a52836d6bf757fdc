"""The programs on a server, held to what they do on a file: scripts with the same transcript and the same
rows afterwards, and every order of quorvane-escuela. Who works has the rights of docs/servidores.md."""
import contextlib
import os
import pathlib
import pty
import re
import shutil
import signal
import sqlite3
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from cluster import OWNER, PASSWORD, USER, Cluster  # noqa: E402

ROOT = pathlib.Path(__file__).resolve().parents[2]
YEAR = ROOT / 'tests' / 'odbc' / 'curso.guion'
# What a copy may take: the program itself and the rows of one statement, however large the school is.
COPY_KIB = 40 * 1024
SCRIPTS = [*sorted((ROOT / 'docs' / 'ejemplos').glob('*.guion')), ROOT / 'docs' / 'sesion-de-muestra.guion', YEAR]


def run(program, *arguments):
    done = subprocess.run([os.environ[program], *arguments], text=True, capture_output=True, timeout=300)
    return done.stdout + done.stderr, done.returncode


def escuela(*arguments):
    return run('QUORVANE_ESCUELA', *arguments)


def check(arguments):
    """Of a file it says besides that it has no passwords, which a server has of its own."""
    told, status = escuela('comprobar', *arguments)
    return re.sub('^Sin contraseñas: .*\n', '', told, flags=re.M), status


class Place:
    """Where a school is: how its owner names it to a program, and how who works on it."""

    def __init__(self, owner, worker):
        self.owner = owner
        self.worker = worker


class ProgramsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp(prefix='quorvane-programas-'))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        cls.server = Cluster()
        cls.addClassCleanup(cls.server.remove)
        cls.count = 0

    def file(self):
        type(self).count += 1
        path = str(self.folder / f'{self.count}.sqlite')
        return Place([path], [path])

    def database(self):
        type(self).count += 1
        self.name = f'escuela_{self.count}'
        self.server.sql(f'CREATE DATABASE {self.name} OWNER {OWNER}')
        return Place(*(['--odbc', self.server.string(user, Database=self.name)] for user in (OWNER, USER)))

    def grant(self):
        """As the owner, what the document tells."""
        text = (ROOT / 'docs' / 'servidores.md').read_text(encoding='utf-8')
        grants = [line for line in re.findall(r'^GRANT [^.\n]*;$', text, re.M) if ' DATABASE ' not in line]
        self.assertGreater(len(grants), 20)
        self.server.sql(f'SET ROLE {OWNER}', *grants, database=self.name)

    def on_server(self, *order):
        place = self.database()
        self.assertEqual(escuela(*order, *place.owner)[1], 0)
        self.grant()
        return place

    def on_file(self, *order):
        place = self.file()
        self.assertEqual(escuela(*order, *place.owner)[1], 0)
        return place

    def rows(self, place):
        """All rows of the school's tables; what a server has comes through a copy."""
        path = place.worker[-1]
        if len(place.worker) > 1:
            path = str(self.folder / f'copia-{self.name}.sqlite')
            told = escuela('copiar', place.worker[-1], path)
            self.assertEqual(told[1], 0, told[0])
        with sqlite3.connect(path) as school:
            tables = [name for (name,) in school.execute("SELECT name FROM sqlite_master WHERE type='table'")]
            found = {table: sorted(map(repr, school.execute(f'SELECT * FROM {table}'))) for table in tables}
        school.close()
        return found

    def play(self, arguments, script, *options):
        path = self.folder / 'guion'
        path.write_text(script, encoding='utf-8')
        arguments = ['--bd', *arguments] if len(arguments) == 1 else arguments
        told, status = run('QUORVANE_GUION', *arguments, *options, str(path))
        # Where a statement asks for no order each engine has its own, and a later one lists what it found.
        return re.sub(r'IN ?\(([\d,]+)\)', lambda found: f'IN({sorted(found[1].split(","))})', told), status

    def test_scripts_have_the_transcript_of_the_file(self):
        for path in SCRIPTS:
            with self.subTest(path.name):
                script = path.read_text(encoding='utf-8')
                played = re.search(r'^# Se juega con: (.*)$', script, re.M)
                options = played[1].split() if played else ['--usuario', '1', '--perfil', '0']
                # A comparison among the columns is a truth there and a number in a file.
                script = re.sub(r'(\w+\.\w+)>0 FROM', r'CASE WHEN \1>0 THEN 1 ELSE 0 END FROM', script)
                # What the year finds at its beginning is the owner's to change.
                before, begins, rest = script.partition('\nnodo ') if path == YEAR else ('', '', script)
                file, server = self.on_file('demo'), self.on_server('demo')
                for place in (file, server):
                    told = self.play(place.owner, before)
                    self.assertEqual((told[1], 'error' in told[0]), (0, False), told[0])
                expected = self.play(file.worker, begins + rest, *options)
                self.assertEqual(self.play(server.worker, begins + rest, *options), expected)
                self.assertGreater(expected[0].count('\nsql centro '), 10)
                self.assertEqual(self.rows(server), self.rows(file))

    def test_the_orders_that_make_a_school(self):
        for order in (['crear'], ['demo'], ['generar', '--alumnos', '120', '--semilla', '7']):
            with self.subTest(order[0]):
                file, server = self.file(), self.database()
                expected, status = escuela(*order, *file.owner)
                self.assertEqual(status, 0)
                told, status = escuela(*order, *server.owner)
                shown = re.search(r'Driver=[^ \n]*(?: Unicode)?[^ \n]*', told)[0]
                self.assertNotIn('PWD', shown)
                self.assertEqual((told.replace(shown, file.owner[0]), status), (expected, 0))
                self.grant()
                self.assertEqual(self.rows(server), self.rows(file))
                told, status = escuela(*order, *server.owner)
                self.assertIn('ya tiene la tabla', told)
                self.assertEqual(status, 1)
                self.assertEqual(check(server.worker), check(file.worker))

    def test_who_works_makes_no_school(self):
        server = self.database()
        for order in (['crear'], ['demo'], ['generar', '--alumnos', '3', '--semilla', '7']):
            told, status = escuela(*order, *server.worker)
            self.assertEqual(status, 1)
            self.assertIn('[42501] ERROR: permission denied for schema public', told)
            self.assertIn('No ha quedado nada escrito', told)
        told, status = check(server.worker)
        self.assertIn('no es una escuela: no tiene ninguna de sus tablas', told)
        self.assertEqual(status, 1)

    def test_the_order_that_checks(self):
        file, server = self.on_file('demo'), self.on_server('demo')
        damage = ['INSERT INTO Seccion_AlumnoPte VALUES (5,9000,0,0)', 'UPDATE MateriaDetalles SET CodMateria=777',
                  'INSERT INTO Profesor_Pte VALUES (1,20)', 'INSERT INTO Profesor_Pte VALUES (2,20)',
                  'INSERT INTO EvaluacionPte SELECT IDEvaluacionPte+1000, CodAlumnoPte_MatDet, CodNumEvaluacion, '
                  'Evaluado, CodNota, CodNotaActitud, CodNotaObservacion, CodNotaConcepto, CodNotaProcedimiento, '
                  'UltimaEvaluada FROM EvaluacionPte', 'DELETE FROM Nota WHERE IDNota=5',
                  'UPDATE BloqueoPte SET CodPublicacion=70', 'DROP TABLE FechaNotas',
                  'ALTER TABLE TipoNota DROP COLUMN Observacion']
        findings = set()
        for statement in damage:
            with sqlite3.connect(file.owner[0]) as school:
                school.execute(statement)
            school.close()
            self.server.sql(statement, database=self.name)
            expected = check(file.worker)
            self.assertEqual(check(server.worker), expected)
            self.assertEqual(expected[1], 1)
            findings.add(expected[0])
        self.assertGreater(len(findings), 5)
        self.assertIn('Falta la tabla FechaNotas', expected[0])

    def test_the_order_that_shows_and_removes_locks(self):
        file, server = self.on_file('demo'), self.on_server('demo')
        statement = 'INSERT INTO BloqueoPte VALUES (0,3,20,3,70)'
        with sqlite3.connect(file.owner[0]) as school:
            school.execute(statement)
        school.close()
        self.server.sql(statement, database=self.name)
        for more in ([], ['--borrar', '2'], ['--borrar', '1'], ['--borrar', '1'], [], ['--borrar', '70'], []):
            expected = escuela('bloqueos', *file.worker, *more)
            self.assertEqual(escuela('bloqueos', *server.worker, *more), expected)
        self.assertEqual(expected, ('No hay publicaciones ni bloqueos\n', 0))

    def test_the_order_that_copies(self):
        file, server = self.on_file('demo'), self.database()
        told, status = escuela('copiar', file.owner[0], server.owner[1])
        self.assertEqual(status, 0, told)
        self.assertRegex(told, r'\n  Alumno  +\d+\n')
        self.assertNotIn('contraseñas', told)
        self.grant()
        before = self.rows(file)
        self.assertEqual(self.rows(server), before)
        self.assertEqual(escuela('copiar', file.owner[0], server.owner[1])[1], 1)
        other = self.database()
        self.assertEqual(escuela('copiar', server.worker[1], other.owner[1])[1], 0)
        self.grant()
        self.assertEqual(self.rows(other), before)

    def test_the_order_that_copies_says_that_a_server_keeps_no_passwords(self):
        file, server = self.on_file('demo'), self.database()
        set_one = [os.environ['QUORVANE_ESCUELA'], 'usuarios', file.owner[0], 'clave', '3']
        subprocess.run(set_one, input='alcachofas azules\n', text=True, check=True, capture_output=True)
        told, status = escuela('copiar', file.owner[0], server.owner[1])
        self.assertEqual(status, 0, told)
        self.assertIn('La copia no tiene las contraseñas de los usuarios: en un servidor, ', told)
        self.assertNotIn('ClaveUsuario', told)

    def test_the_order_that_copies_tells_a_terminal_how_far_it_is(self):
        school, server = self.on_file('generar', '--alumnos', '300', '--semilla', '1'), self.database()
        ours, theirs = os.openpty()
        done = subprocess.run([os.environ['QUORVANE_ESCUELA'], 'copiar', school.owner[0], server.owner[1]],
                              text=True, stdout=subprocess.PIPE, stderr=theirs, timeout=300)
        os.close(theirs)
        # In as many pieces as the kernel hands on, until it says that the other end is closed.
        shown = b''
        with contextlib.suppress(OSError):
            while piece := os.read(ours, 4096):
                shown += piece
        os.close(ours)
        shown = shown.decode()
        self.assertEqual(done.returncode, 0)
        self.assertTrue(shown.endswith('\r\033[K'), shown)  # the line is taken away again
        told = [int(part) for part in re.findall(r'\rCopiando\.\.\. (\d+) %', shown)]
        self.assertEqual(told, sorted(told))
        self.assertEqual(told[-1], 100)
        self.assertNotIn('Copiando', done.stdout)

    def test_the_order_that_copies_keeps_a_part_of_the_school_alone(self):
        school, server = self.on_file('generar', '--alumnos', '20000', '--semilla', '1'), self.database()
        process = subprocess.Popen([os.environ['QUORVANE_ESCUELA'], 'copiar', school.owner[0], server.owner[1]],
                                   stdout=subprocess.DEVNULL)
        _, status, used = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        self.assertEqual(process.returncode, 0)
        # Sanitizers keep what has been given back for long.
        if b'__asan_init' not in pathlib.Path(os.environ['QUORVANE_ESCUELA']).read_bytes():
            self.assertLess(used.ru_maxrss, COPY_KIB)

    def test_a_password_needs_no_command_line(self):
        server = self.on_server('demo')
        string = re.sub(r';PWD=\{.*?\}(?=;|$)', '', server.worker[1])
        self.assertNotIn('PWD', string)
        script = str(self.folder / 'clave.guion')
        pathlib.Path(script).write_text('nodo 123\ncerrar\n', encoding='utf-8')
        orders = ([os.environ['QUORVANE_ESCUELA'], 'bloqueos', '--odbc', string],
                  [os.environ['QUORVANE_GUION'], '--odbc', string, script])
        passwords = self.folder / 'pgpass'
        escaped = PASSWORD.replace('\\', '\\\\').replace(':', '\\:')
        passwords.write_text(f'*:*:*:*:{escaped}\n', encoding='utf-8')
        passwords.chmod(0o600)
        for order in orders:
            # Nowhere: an error, and nobody is asked, since there is no terminal.
            done = subprocess.run(order, text=True, capture_output=True, timeout=60, stdin=subprocess.DEVNULL,
                                  start_new_session=True, env={**os.environ, 'HOME': str(self.folder)})
            self.assertNotEqual(done.returncode, 0)
            self.assertIn('password', done.stderr)
            # Where the server's own client looks.
            done = subprocess.run(order, text=True, capture_output=True, timeout=60, start_new_session=True,
                                  env={**os.environ, 'PGPASSFILE': str(passwords)})
            self.assertEqual(done.returncode, 0, done.stderr)
            # At the terminal, which shows nothing of it.
            shown, status = self.at_terminal(order, PASSWORD)
            self.assertEqual(status, 0, shown)
            self.assertIn('Contraseña de Driver=', shown)
            self.assertNotIn(PASSWORD, shown)
            self.assertNotIn(PASSWORD[:5], shown)
            self.assertNotEqual(self.at_terminal(order, 'otra')[1], 0)

    def at_terminal(self, order, typed):
        process, terminal = pty.fork()
        if process == 0:
            os.environ['HOME'] = str(self.folder)
            os.execv(order[0], order)
        shown = b''
        asked = False
        with contextlib.suppress(OSError):
            while piece := os.read(terminal, 4096):
                shown += piece
                if not asked and shown.decode(errors='replace').endswith(': '):
                    asked = True
                    os.write(terminal, typed.encode() + b'\n')
        status = os.waitstatus_to_exitcode(os.waitpid(process, 0)[1])
        os.close(terminal)
        return shown.decode(), status


if __name__ == '__main__':
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    unittest.main(verbosity=1)
