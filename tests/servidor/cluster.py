"""A throwaway PostgreSQL server for tests: made in a temporary folder, reached by a socket there and by
loopback, and gone with the process that made it, however that ends."""
import ctypes
import glob
import os
import pathlib
import pwd
import random
import shutil
import signal
import socket
import subprocess
import tempfile
import time

OWNER = 'duena'      # makes the tables
USER = 'zendria'     # works on them, with the rights that docs/servidores.md tells to grant
PASSWORD = 'una clave; con {signos}'
SETTINGS = {
    'fsync': 'off', 'full_page_writes': 'off', 'synchronous_commit': 'off', 'max_connections': '90',
    'shared_buffers': '32MB', 'max_wal_size': '256MB', 'autovacuum': 'off', 'log_min_messages': 'fatal', 'password_encryption': 'scram-sha-256',
    'log_min_error_statement': 'fatal', 'logging_collector': 'off', 'jit': 'off'}


def programs():
    """The folder of the newest server's programs."""
    found = sorted(glob.glob('/usr/lib/postgresql/*/bin/initdb'),
                   key=lambda path: int(path.split('/')[4]))
    if not found:
        raise SystemExit('No hay un servidor de PostgreSQL: instale el paquete postgresql')
    return pathlib.Path(found[-1]).parent


def become_server():
    """In the child: the server refuses to run as root, and has to go when its parent goes."""
    if os.getuid() == 0:
        account = pwd.getpwnam('postgres')
        os.setgroups([])
        os.setgid(account.pw_gid)
        os.setuid(account.pw_uid)
    ctypes.CDLL(None).prctl(1, signal.SIGQUIT)  # PR_SET_PDEATHSIG


def free_port():
    """One that nobody listens at, and that the system gives to no client. To be asked for just before it is
    taken: other servers of the tests look for theirs too."""
    for port in random.sample(range(20000, 32000), 200):
        with socket.socket() as probe:
            probe.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
            try:
                probe.bind(('127.0.0.1', port))
            except OSError:
                continue
            return port
    raise SystemExit('Las pruebas no encuentran un puerto libre entre 20000 y 31999')


PREFIX = 'quorvane-servidor-'


def sweep():
    """Removes what those have left whom nobody let clean up: killed, or beyond their time. Their
    servers have gone with them."""
    for folder in pathlib.Path(tempfile.gettempdir()).glob(PREFIX + '*'):
        process = folder.name.removeprefix(PREFIX).split('-')[0]
        if process.isdigit() and not pathlib.Path('/proc', process).exists():
            subprocess.run(['umount', str(folder / 'disco')], capture_output=True)
            shutil.rmtree(folder, ignore_errors=True)


class Cluster:
    def __init__(self, **settings):
        self.bin = programs()
        sweep()
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix=f'{PREFIX}{os.getpid()}-'))
        self.process = None
        self.disk = None
        try:
            self._make(settings)
        except BaseException:
            self.remove()
            raise

    def _make(self, settings):
        if os.getuid() == 0:
            shutil.chown(self.folder, 'postgres', 'postgres')
        self.folder.chmod(0o755)
        self.settings = {**SETTINGS, **settings}
        self._run('initdb', '-D', str(self.data), '-U', 'postgres', f"--auth={self.settings['password_encryption']}",
                  '--pwfile', self._password_file(), '-E', 'UTF8', '--locale=C.UTF-8', '-N')
        self.port = free_port()
        self.start()
        self.sql(f"CREATE ROLE {OWNER} LOGIN CREATEDB PASSWORD '{PASSWORD}'",
                 f"CREATE ROLE {USER} LOGIN PASSWORD '{PASSWORD}'")

    @property
    def data(self):
        return self.folder / 'data'

    def _password_file(self):
        path = self.folder / 'clave'
        path.write_text(PASSWORD + '\n', encoding='utf-8')
        path.chmod(0o644)
        return str(path)

    def _run(self, program, *arguments):
        done = subprocess.run([str(self.bin / program), *arguments], preexec_fn=become_server,
                              cwd=self.folder, text=True, capture_output=True)
        if done.returncode != 0:
            raise SystemExit(f'{program}: {done.stderr}')

    def start(self):
        settings = {'listen_addresses': '127.0.0.1', 'port': self.port,
                    'unix_socket_directories': str(self.folder), **self.settings}
        arguments = [word for name, value in settings.items() for word in ('-c', f'{name}={value}')]
        with open(self.folder / 'registro', 'ab') as log:
            self.process = subprocess.Popen([str(self.bin / 'postgres'), '-D', str(self.data), *arguments],
                                            preexec_fn=become_server, cwd=self.folder,
                                            stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        for _ in range(600):
            if self.process.poll() is not None:
                raise SystemExit((self.folder / 'registro').read_text(encoding='utf-8'))
            ready = subprocess.run([str(self.bin / 'pg_isready'), '-q', '-h', str(self.folder), '-p',
                                    str(self.port)])
            if ready.returncode == 0:
                return
            time.sleep(0.05)
        raise SystemExit('El servidor de las pruebas no arranca')

    def stop(self, how=signal.SIGQUIT):
        """At once, or with SIGINT once it has told its clients."""
        if self.process and self.process.poll() is None:
            self.process.send_signal(how)
            self.process.wait(60)

    def sql(self, *statements, database='postgres'):
        """As the server's administrator."""
        environment = {**os.environ, 'PGPASSWORD': PASSWORD}
        done = subprocess.run([str(self.bin / 'psql'), '-qAtX', '-v', 'ON_ERROR_STOP=1', '-h',
                               str(self.folder), '-p', str(self.port), '-U', 'postgres', '-d', database,
                               *[word for one in statements for word in ('-c', one)]],
                              env=environment, text=True, capture_output=True)
        if done.returncode != 0:
            raise RuntimeError(done.stderr)
        return done.stdout

    def tiny_disk(self, size):
        """A tablespace on a disk of that size, which the owner may use; '' where none can be mounted."""
        disk = self.folder / 'disco'
        disk.mkdir()
        done = subprocess.run(['mount', '-t', 'tmpfs', '-o', f'size={size}', 'tmpfs', str(disk)],
                              capture_output=True)
        if done.returncode != 0:
            return ''
        self.disk = disk
        shutil.chown(disk, 'postgres', 'postgres')
        self.sql(f"CREATE TABLESPACE disco LOCATION '{disk}'",
                 f'GRANT CREATE ON TABLESPACE disco TO {OWNER}')
        return 'disco'

    def string(self, user, **more):
        """A connection string without the database."""
        words = {'Driver': 'PostgreSQL Unicode', 'Server': '127.0.0.1', 'Port': self.port, 'UID': user,
                 'PWD': '{' + PASSWORD.replace('}', '}}') + '}', **more}
        return ';'.join(f'{key}={value}' for key, value in words.items())

    def remove(self):
        self.stop()
        if self.disk:
            subprocess.run(['umount', str(self.disk)], capture_output=True)
        shutil.rmtree(self.folder, ignore_errors=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.remove()
