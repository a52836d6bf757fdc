"""PgBouncer before a throwaway server: in transaction mode, reached by loopback alone, and gone with the
process that made it."""
import pathlib
import shutil
import socket
import subprocess
import tempfile
import threading
import time

from cluster import OWNER, PASSWORD, USER, become_server, free_port


class Pooler:
    """Hands out so many connections with the server to whoever executes a statement."""

    def __init__(self, cluster, connections):
        program = shutil.which('pgbouncer', path='/usr/sbin:/usr/bin')
        if program is None:
            raise SystemExit('No está PgBouncer: instale el paquete pgbouncer')
        self.cluster = cluster
        self.most = 0
        self.port = free_port()
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix='repartidor-', dir=cluster.folder))
        self.folder.chmod(0o755)
        users = self.folder / 'usuarios'
        users.write_text(''.join(f'"{user}" "{PASSWORD}"\n' for user in (OWNER, USER)), encoding='utf-8')
        settings = self.folder / 'pgbouncer.ini'
        settings.write_text(
            f'[databases]\n* = host=127.0.0.1 port={cluster.port}\n[pgbouncer]\nlisten_addr = 127.0.0.1\n'
            f'listen_port = {self.port}\nunix_socket_dir =\nauth_type = scram-sha-256\nauth_file = {users}\n'
            f'pool_mode = transaction\ndefault_pool_size = {connections}\nmax_client_conn = 400\n'
            'log_connections = 0\nlog_disconnections = 0\nlog_stats = 0\n', encoding='utf-8')
        with open(cluster.folder / 'registro', 'ab') as log:
            self.process = subprocess.Popen([program, str(settings)], preexec_fn=become_server,
                                            cwd=self.folder, stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        self._wait()
        self._ended = threading.Event()
        self._counter = threading.Thread(target=self._count, daemon=True)
        self._counter.start()

    def _wait(self):
        for _ in range(200):
            with socket.socket() as probe:
                if probe.connect_ex(('127.0.0.1', self.port)) == 0:
                    return
            if self.process.poll() is not None:
                break
            time.sleep(0.05)
        raise SystemExit((self.cluster.folder / 'registro').read_text(encoding='utf-8'))

    def _count(self):
        """How many the server has had at once of who works."""
        while not self._ended.wait(0.2):
            count = self.cluster.sql(f"SELECT count(*) FROM pg_stat_activity WHERE usename='{USER}'")
            self.most = max(self.most, int(count))

    def remove(self):
        self._ended.set()
        self._counter.join()
        self.process.terminate()
        self.process.wait(60)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.remove()
