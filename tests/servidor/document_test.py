"""docs/servidores.md against a server: its commands are run as they stand there, and what it says of
certificates, copies, a second server and errors is tried."""
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from cluster import OWNER, PASSWORD, USER, Cluster  # noqa: E402
from replica import Replica  # noqa: E402

ROOT = pathlib.Path(__file__).resolve().parents[2]
INSTALLED = '/usr/share/doc/quorvane'
PORT = '5432'
EXAMPLE = ROOT / 'docs' / 'ejemplos' / 'profesor.guion'
SAVED = ('SELECT CodNota FROM EvaluacionPte WHERE CodNumEvaluacion=2 AND CodAlumnoPte_MatDet=1')


def section(heading):
    text = (ROOT / 'docs' / 'servidores.md').read_text(encoding='utf-8')
    return re.split(r'^##+ ', text.split(f'\n### {heading}\n')[1], flags=re.M)[0]


def blocks(heading, language):
    """The fenced blocks of a section, each as its lines."""
    found = re.findall(r'^ *```(\w*)\n(.*?)^ *```$', section(heading), re.S | re.M)
    return [[line.strip() for line in block.splitlines()] for kind, block in found if kind == language]


def in_braces(value):
    return '{' + value.replace('}', '}}') + '}'


class Machine:
    """A user at a computer on which everything is installed, beside the server."""

    def __init__(self):
        self.home = pathlib.Path(tempfile.mkdtemp(prefix='quorvane-tecnico-'))
        self.home.chmod(0o755)
        programs = self.home / 'bin'
        programs.mkdir()
        for program in ('QUORVANE_ESCUELA', 'QUORVANE_GUION'):
            path = pathlib.Path(os.environ[program])
            (programs / path.name).symlink_to(path.resolve())
        self.script(programs / 'apt-get', f'echo "$@" >{self.home}/instalado')
        self.server = Cluster()
        # The document makes them.
        self.server.sql(f'DROP ROLE {OWNER}', f'DROP ROLE {USER}')
        self.script(programs / 'sudo', f"""[ "$1 $2" = "-u postgres" ] || exit 9
            shift 2
            PGHOST={self.server.folder} PGUSER=postgres PGPASSWORD='{PASSWORD}' exec "$@\"""")
        kept = {name: value for name, value in os.environ.items() if not name.startswith('PG')}
        self.environment = {**kept, 'HOME': str(self.home), 'PGPORT': str(self.server.port),
                            'PATH': f'{programs}:{self.server.bin}:{os.environ["PATH"]}'}

    @staticmethod
    def script(path, text):
        path.write_text('#!/bin/sh\n' + text + '\n', encoding='utf-8')
        path.chmod(0o755)

    def here(self, text):
        return text.replace(PORT, str(self.server.port)).replace(INSTALLED, str(ROOT))

    def run(self, command, typed='', **environment):
        # In a session of its own: a password is asked for on the terminal where there is one.
        return subprocess.run(['bash', '-c', self.here(command)], input=typed, text=True, timeout=120,
                              capture_output=True, start_new_session=True, cwd=self.home,
                              env={**self.environment, **environment})

    def string(self, **more):
        words = {'Driver': 'PostgreSQL Unicode', 'Server': 'localhost', 'Port': PORT,
                 'Database': 'centro', 'UID': USER, **more}
        return ';'.join(f'{key}={value}' for key, value in words.items() if value is not None)

    def check(self, string=None, **more):
        """What the check of a school over that string prints, and its exit status."""
        environment = more.pop('environment', {})
        string = string or self.string(**more)
        done = self.run(f"quorvane-escuela comprobar --odbc '{string}'", **environment)
        return done.stdout + done.stderr, done.returncode

    def play(self, script, string=None):
        done = self.run(f"quorvane-guion --odbc '{string or self.string()}' --usuario 4 --perfil 1 "
                        f'--hoy 03/03/2025 {script}')
        return done.stdout + done.stderr

    def leave(self):
        self.server.remove()
        shutil.rmtree(self.home, ignore_errors=True)


class DocumentTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.machine = Machine()
        cls.addClassCleanup(cls.machine.leave)
        [cls.commands] = blocks('De la instalación a la primera nota', 'sh')
        [cls.passwords] = blocks('De la instalación a la primera nota', '')
        passwords = cls.machine.here('\n'.join(cls.passwords) + '\n')
        for role in (OWNER, USER):
            passwords = passwords.replace(f'la contraseña de {role}', PASSWORD)
        typed = {'createuser': f'{PASSWORD}\n{PASSWORD}\n', 'cat >>': passwords}
        cls.done = []
        for command in cls.commands:
            text = ''.join(answer for part, answer in typed.items() if part in command)
            cls.done.append(cls.machine.run(command, text))
        cls.server = cls.machine.server
        cls.saved = int(cls.server.sql(SAVED, database='centro'))

    def sql(self, *statements, database='centro'):
        return self.server.sql(*statements, database=database).strip()

    def clear(self):
        """What sessions that failed, or whose server went, have left would keep the next one out."""
        self.sql('DELETE FROM BloqueoPte', 'DELETE FROM PublicacionPte', 'UPDATE EvaluacionPte SET CodNota=0')

    def assert_saves(self, string=None):
        self.clear()
        self.assertIn('fila ["Domínguez",-1]', self.machine.play(EXAMPLE, string))
        self.assertGreater(int(self.sql(SAVED)), 0)

    def test_ten_commands_lead_to_a_saved_grade(self):
        self.assertEqual(len(self.commands), 10)
        for command, done in zip(self.commands, self.done):
            with self.subTest(command):
                self.assertEqual((done.returncode, done.stderr if 'createuser' not in command else ''),
                                 (0, ''))
        self.assertIn('Apta para el módulo, sin avisos', self.done[7].stdout)
        for row in re.findall(r'`(fila .*?)`', section('De la instalación a la primera nota')):
            self.assertIn(row + '\n', self.done[8].stdout)
        self.assertNotIn('\nerror ', self.done[8].stdout)
        self.assertIn('(jefatura)', self.done[9].stdout)
        self.assertGreater(self.saved, 0)

    def test_installs_what_a_debian_has(self):
        words = (self.machine.home / 'instalado').read_text(encoding='utf-8').split()
        self.assertEqual(words[0], 'install')
        for package in words[1:]:
            if package.startswith('./'):
                version = [int(part) for part in (ROOT / 'VERSION').read_text().split('.')]
                self.assertEqual(package, './quorvane_{}.{}.{}_amd64.deb'.format(*version))
            elif package != 'sudo':
                self.assertEqual(subprocess.run(['dpkg', '-s', package], capture_output=True).returncode,
                                 0, package)

    def test_the_readme_shows_three_of_them(self):
        text = (ROOT / 'README.md').read_text(encoding='utf-8')
        commands = text.split('```\nsudo -u postgres ')[1].split('```')[0].splitlines()
        self.assertEqual([f'sudo -u postgres {commands[0]}', *commands[1:]],
                         [self.commands[place] for place in (1, 3, 5)])

    def test_passwords_stay_out_of_the_commands_and_of_the_reach_of_others(self):
        self.assertEqual((self.machine.home / '.pgpass').stat().st_mode & 0o777, 0o600)
        for command in self.commands:
            self.assertNotIn('PWD', command)

    def test_the_driver_logs_no_statement(self):
        log = subprocess.run(['bash', '-c', self.machine.here(
            f"quorvane-escuela comprobar --odbc '{self.machine.string()}' >&2 & wait $!; echo $!")],
            env=self.machine.environment, text=True, capture_output=True)
        self.assertIn('Apta', log.stderr)
        for path in pathlib.Path('/tmp').glob(f'psqlodbc*{log.stdout.strip()}.log'):
            text = path.read_text(encoding='utf-8')
            path.unlink()
            self.assertNotIn('SELECT', text)
            self.assertLess(len(text), 100)

    def test_a_list_is_in_spanish_order(self):
        names = "unnest(ARRAY['Zapata','Ñíguez','Oria','Nadal','Álvarez','Bravo']) AS nombre"
        self.assertEqual(self.sql(f"SELECT string_agg(nombre, ' ' ORDER BY nombre) FROM {names}"),
                         'Álvarez Bravo Nadal Ñíguez Oria Zapata')

    def test_a_copy_is_restored(self):
        with open(self.machine.home / '.pgpass', 'a', encoding='utf-8') as passwords:
            passwords.write(self.machine.here('\n'.join(
                re.findall(r'localhost:5432:\*:duena:', section('Copias de seguridad')))) + PASSWORD + '\n'
                + f'localhost:{self.server.port}:centro_copia:{USER}:{PASSWORD}\n')
        for block in blocks('Copias de seguridad', 'sh'):
            for command in block:
                done = self.machine.run(command)
                self.assertEqual((done.returncode, done.stderr), (0, ''), command)
        self.assertIn('Apta para el módulo, sin avisos', done.stdout)
        tables = self.sql("SELECT table_name FROM information_schema.tables WHERE table_schema='public'")
        self.assertGreater(len(tables.split()), 25)
        everything = ';'.join(f"SELECT '{table}', t::text FROM {table} AS t ORDER BY 2"
                              for table in sorted(tables.split()))
        rights = ("SELECT table_name, privilege_type FROM information_schema.table_privileges "
                  f"WHERE grantee='{USER}' ORDER BY 1, 2")
        for question in (everything, rights):
            self.assertEqual(self.sql(question), self.sql(question, database='centro_copia'))

    def test_a_second_server_takes_over(self):
        [[wanted]] = blocks('Otro servidor que toma el relevo', '')
        string = wanted.replace('Server=escuela1,escuela2', f'Server=127.0.0.2,localhost;Port={PORT}')
        self.assertNotEqual(string, wanted)
        string += f';PWD={in_braces(PASSWORD)}'
        alone = self.machine.string(Server='127.0.0.2', PWD=in_braces(PASSWORD))
        replica = Replica(self.server)
        self.addCleanup(replica.leave)
        self.addCleanup(self.restart)
        self.assertIn('[25006] ERROR: cannot execute', self.machine.play(EXAMPLE, alone))
        self.assert_saves(string)
        replica.wait_for_all_that(self.server)
        self.server.stop()
        self.assertIn('[08001]', self.machine.check(string)[0])
        replica.promote()
        output = self.machine.play(EXAMPLE, string)
        self.assertIn('fila ["Domínguez",-1]', output)
        self.assertNotIn('\nerror ', output)

    def restart(self):
        self.server.stop()
        self.server.start()

    def test_certificates(self):
        home = self.machine.home
        [commands] = [block for block in blocks('TLS', '') if block[0].startswith('openssl')]
        for command in commands:
            done = self.machine.run(command.replace('escuela.centro.lan', 'localhost'))
            self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn('server does not support SSL', self.machine.check(sslmode='require')[0])
        self.encrypt(home)
        self.addCleanup(self.sql, 'ALTER SYSTEM RESET ssl', 'SELECT pg_reload_conf()')
        self.assertEqual(self.machine.check(sslmode='require')[1], 0)
        self.assertIn('root certificate file', self.machine.check(sslmode='verify-full')[0])
        # The three places.
        kept = 'keepalives_count=3 tcp_user_timeout=20000'
        self.assertIn(f'/etc/ssl/centro.crt {kept}', section('TLS'))
        pqopt = f'{{sslrootcert={home}/ca.crt {kept}}}'
        self.assertEqual(self.machine.check(sslmode='verify-full', pqopt=pqopt)[1], 0)
        self.assertEqual(self.machine.check(sslmode='verify-full',
                                            environment={'PGSSLROOTCERT': f'{home}/ca.crt'})[1], 0)
        (home / '.postgresql').mkdir()
        shutil.copy(home / 'ca.crt', home / '.postgresql' / 'root.crt')
        self.addCleanup(shutil.rmtree, home / '.postgresql')
        self.assertEqual(self.machine.check(sslmode='verify-full')[1], 0)
        self.assert_told('does not match host name', self.machine.check(
            sslmode='verify-full', Server='127.0.0.1', PWD=in_braces(PASSWORD))[0])
        self.machine.run('openssl req -new -x509 -nodes -subj /CN=otra -newkey ec '
                         '-pkeyopt ec_paramgen_curve:P-256 -keyout otra.key -out otra.crt')
        other = f'{{sslrootcert={home}/otra.crt}}'
        self.assert_told('certificate verify failed',
                         self.machine.check(sslmode='verify-full', pqopt=other)[0])

    def encrypt(self, folder):
        for name in ('server.crt', 'server.key'):
            target = self.server.data / name
            shutil.copy(folder / name, target)
            if os.getuid() == 0:
                shutil.chown(target, 'postgres', 'postgres')
            target.chmod(0o600)
        self.sql('ALTER SYSTEM SET ssl=on', 'SELECT pg_reload_conf()')
        for _ in range(100):
            if self.machine.check(sslmode='require')[1] == 0:
                return
            time.sleep(0.05)

    def test_a_data_source(self):
        [lines] = blocks('La cadena y el origen de datos', 'ini')
        source = self.machine.home / 'odbc.ini'
        text = '\n'.join(lines).replace('escuela.centro.lan', 'localhost').replace('verify-full', 'prefer')
        source.write_text(self.machine.here(text) + '\n', encoding='utf-8')
        environment = {'ODBCINI': str(source)}
        [string] = re.findall(r'Un origen de datos \| `(.*?)`', section('La cadena y el origen de datos'))
        self.assertEqual(self.machine.check(string, environment=environment)[1], 0)
        source.write_text(source.read_text(encoding='utf-8').replace('Servername', 'Server'),
                          encoding='utf-8')
        self.assert_told('connection to server on socket',
                         self.machine.check(string, environment=environment)[0])

    def assert_told(self, part, output):
        """What has been told stands in the table of errors, as it was told."""
        rows = [text for text in self.told() if part in text]
        self.assertEqual(len(rows), 1, part)
        pattern = '.*'.join(re.escape(piece) for piece in rows[0].split(' … '))
        self.assertRegex(output, re.compile(pattern, re.S))

    @staticmethod
    def told():
        return re.findall(r'^\| `(.*?)` \|', section('Cuando algo falla'), re.M)

    def test_connections_that_fail(self):
        check = self.machine.check
        self.assert_told('password authentication', check(PWD='otra')[0])
        self.assert_told('no password', check(environment={'PGPASSFILE': '/dev/null'})[0])
        self.assert_told('does not exist', check(Database='nada', PWD=in_braces(PASSWORD))[0])
        self.assert_told('Connection refused', check(Port=1)[0])
        self.assert_told('could not translate', check(Server='escuela.invalid')[0])
        self.assert_told("Can't open lib", check(Driver='PostgreSQL')[0])
        self.assert_told('nueve primeros', check(Port='15432,15433')[0])
        self.assert_told('Data source name not found', check('DSN=NoHay')[0])
        self.assert_told('does not support SSL', check(sslmode='require')[0])
        self.assert_told('root certificate', self.with_tls(lambda: check(sslmode='verify-full')[0]))
        for statement in re.findall(r'`(REVOKE CONNECT .*?)`', section('Derechos')):
            self.sql(statement)
        self.assertEqual(check()[1], 0)
        self.sql(f'REVOKE CONNECT ON DATABASE centro FROM {USER}')
        self.assert_told('permission denied for database', check()[0])
        self.sql(f'GRANT CONNECT ON DATABASE centro TO {USER}')
        rules = self.server.data / 'pg_hba.conf'
        before = rules.read_text(encoding='utf-8')
        rules.write_text('local all all scram-sha-256\n', encoding='utf-8')
        self.sql('SELECT pg_reload_conf()')
        output = self.until(lambda: check()[0], 'pg_hba')
        rules.write_text(before, encoding='utf-8')
        self.sql('SELECT pg_reload_conf()')
        self.until(lambda: check()[0], 'Apta')
        self.assert_told('no pg_hba.conf entry', output)

    def with_tls(self, ask):
        for command in [block for block in blocks('TLS', '') if block[0].startswith('openssl')][0]:
            self.machine.run(command.replace('escuela.centro.lan', 'localhost'))
        self.encrypt(self.machine.home)
        output = ask()
        self.sql('ALTER SYSTEM RESET ssl', 'SELECT pg_reload_conf()')
        self.until(lambda: self.machine.check(sslmode='require')[0], 'does not support')
        return output

    def until(self, ask, part):
        for _ in range(100):
            output = ask()
            if part in output:
                return output
            time.sleep(0.05)
        self.fail(output)

    def test_statements_that_fail(self):
        self.clear()
        self.sql(f'REVOKE UPDATE ON EvaluacionPte FROM {USER}')
        self.assert_told('permission denied for table', self.machine.play(EXAMPLE))
        self.sql(f'GRANT UPDATE ON EvaluacionPte TO {USER}', 'ALTER TABLE EvaluacionPte RENAME TO otra')
        self.assert_told('ERROR: relation', self.machine.play(EXAMPLE))
        self.sql('ALTER TABLE otra RENAME TO EvaluacionPte')
        self.sql(f'ALTER ROLE {USER} SET default_transaction_read_only=on')
        self.assert_told('[25006]', self.machine.play(EXAMPLE))
        self.sql(f'ALTER ROLE {USER} RESET default_transaction_read_only')
        self.assert_told('duplicate key', self.session(
            'sql "INSERT INTO PublicacionPte SELECT * FROM PublicacionPte"'))
        self.sql(f'ALTER ROLE {USER} SET statement_timeout=100')
        self.assert_told('statement timeout', self.session('sql "SELECT pg_sleep(5)"'))
        self.sql(f'ALTER ROLE {USER} RESET statement_timeout')

    def test_a_server_that_goes(self):
        backends = f"SELECT pid FROM pg_stat_activity WHERE usename='{USER}'"
        self.assert_told('[57P01]', self.session(
            'nodo 123', lambda: self.sql(f'SELECT pg_terminate_backend(pid) FROM ({backends}) AS b'),
            'elegir cboTEnsenanza #0'))

        def kill():
            for backend in self.sql(backends).split():
                os.kill(int(backend), signal.SIGKILL)
            time.sleep(0.5)
        self.assert_told('[08S01]', self.session('nodo 123', kill, 'elegir cboTEnsenanza #0'))
        self.until(lambda: self.machine.check()[0], 'Apta')

    def session(self, *steps):
        """What a session prints that is told line by line; between them, what happens meanwhile."""
        program = subprocess.Popen(
            ['quorvane-guion', '--odbc', self.machine.here(self.machine.string())], text=True,
            env=self.machine.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT, executable=self.machine.home / 'bin' / 'quorvane-guion')
        for step in steps:
            if callable(step):
                for line in iter(program.stdout.readline, ''):
                    if line.startswith('muestra '):
                        break
                else:
                    self.fail('the program has ended before it showed anything')
                time.sleep(0.2)
                step()
            else:
                program.stdin.write(step + '\n')
                program.stdin.flush()
        return program.communicate(timeout=60)[0]


if __name__ == '__main__':
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    unittest.main(verbosity=1)
