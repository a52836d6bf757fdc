"""A second server that follows the tests' own."""
import os
import shutil
import signal
import subprocess
import time

from cluster import PASSWORD, become_server


class Replica:
    """A second server that follows the first, on the same port of another address."""

    def __init__(self, first):
        self.bin = first.bin
        self.folder = first.folder / 'replica'
        self.port = first.port
        self.call('pg_basebackup', '-h', '127.0.0.1', '-p', str(first.port), '-U', 'postgres', '-D',
                  str(self.folder), '-R', '-X', 'stream', '-c', 'fast')
        settings = {'listen_addresses': '127.0.0.2', 'port': self.port, 'hot_standby': 'on',
                    'unix_socket_directories': '', 'max_connections': '90'}
        arguments = [word for name, value in settings.items() for word in ('-c', f'{name}={value}')]
        self.process = subprocess.Popen([str(self.bin / 'postgres'), '-D', str(self.folder), *arguments],
                                        preexec_fn=become_server, cwd=first.folder,
                                        stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        for _ in range(600):
            if self.call('pg_isready', '-q', '-h', '127.0.0.2', '-p', str(self.port), must=False) == 0:
                return
            if self.process.poll() is not None:
                break
            time.sleep(0.05)
        self.leave()
        raise RuntimeError('the replica does not start')

    def call(self, program, *arguments, must=True):
        done = subprocess.run([str(self.bin / program), *arguments], preexec_fn=become_server,
                              cwd='/', env={**os.environ, 'PGPASSWORD': PASSWORD}, text=True,
                              capture_output=True, timeout=120)
        if must and done.returncode != 0:
            raise RuntimeError(done.stderr)
        return done.returncode

    def wait_for_all_that(self, first):
        for _ in range(600):
            if first.sql('SELECT pg_current_wal_flush_lsn()=replay_lsn FROM pg_stat_replication') == 't\n':
                return
            time.sleep(0.05)
        raise RuntimeError('the replica does not follow')

    def sql(self, statement, database):
        """As its administrator."""
        done = subprocess.run([str(self.bin / 'psql'), '-qAtX', '-h', '127.0.0.2', '-p', str(self.port), '-U',
                               'postgres', '-d', database, '-c', statement],
                              env={**os.environ, 'PGPASSWORD': PASSWORD}, text=True, capture_output=True,
                              check=True)
        return done.stdout

    def promote(self):
        self.call('pg_ctl', 'promote', '-D', str(self.folder))

    def leave(self):
        self.process.send_signal(signal.SIGQUIT)
        self.process.wait(60)
        shutil.rmtree(self.folder, ignore_errors=True)
