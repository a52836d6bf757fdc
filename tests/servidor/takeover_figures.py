#!/usr/bin/env python3
"""takeover_figures.py FOLDER [TIMES]: a second server takes over, so many times each way; FOLDER has the
programs. Four users write without a pause when the first server stops at once, or falls silent; the
second is promoted, and a grade is saved on it by the string that names both. Prints the seconds, and the
rows that had returned and aren't there. Ends with 1 when one is lost of those that the second server had
to confirm."""
import contextlib
import os
import pathlib
import re
import signal
import subprocess
import sys
import threading
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / 'tools'))
import numeros  # noqa: E402
from cluster import OWNER, PASSWORD, USER, Cluster  # noqa: E402
from con_servidor import DURABLE  # noqa: E402
from replica import Replica  # noqa: E402

ROOT = pathlib.Path(__file__).resolve().parents[2]
WRITERS = 4
WRITING = 1.0
SECOND = '127.0.0.2'
OPTIONS = 'target_session_attrs=read-write keepalives_count=3 tcp_user_timeout=20000'


class Writer(threading.Thread):
    """A user whose next row waits for the answer to the last."""

    def __init__(self, server, first):
        super().__init__()
        self.next, self.returned = first, []
        self.session = subprocess.Popen(
            [server.bin / 'psql', '-qAtX', '-h', '127.0.0.1', '-p', str(server.port), '-U', 'postgres', '-d',
             'centro'], env={**os.environ, 'PGPASSWORD': PASSWORD}, text=True, stdin=subprocess.PIPE,
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.start()

    def run(self):
        while True:
            try:
                self.session.stdin.write(f'INSERT INTO apuntes VALUES ({self.next}) RETURNING n;\n')
                self.session.stdin.flush()
            except BrokenPipeError:
                return
            answer = self.session.stdout.readline()
            if answer != f'{self.next}\n':
                return
            self.returned.append(self.next)
            self.next += 1

    def leave(self):
        self.session.kill()
        self.join()
        self.session.stdin.close()
        self.session.stdout.close()
        self.session.wait()


def processes(server):
    found = subprocess.run(['ps', '-o', 'pid=', '--ppid', str(server.process.pid)], text=True,
                           capture_output=True)
    return [server.process.pid, *map(int, found.stdout.split())]


def made(programs, server):
    """The sample school, and a table for the writers."""
    server.sql(f'CREATE DATABASE centro OWNER {OWNER}')
    subprocess.run([programs / 'quorvane-escuela', 'demo', '--odbc', server.string(OWNER, Database='centro')],
                   check=True, stdout=subprocess.DEVNULL)
    document = (ROOT / 'docs' / 'servidores.md').read_text(encoding='utf-8')
    grants = re.findall(r'^GRANT [^.;]*;$', document, re.M)
    server.sql(*grants, 'CREATE TABLE apuntes (n integer)', database='centro')


def save(programs, server):
    """Seconds until the teacher of the sample school has saved a grade, by the string that names both."""
    string = server.string(USER, Server=f'127.0.0.1,{SECOND}', Database='centro', pqopt='{' + OPTIONS + '}')
    begun = time.monotonic()
    done = subprocess.run([programs / 'quorvane-guion', '--odbc', string, '--usuario', '4', '--perfil', '1', '--hoy',
                           '03/03/2025', ROOT / 'docs' / 'ejemplos' / 'profesor.guion'], text=True,
                          capture_output=True, timeout=120)
    seconds = time.monotonic() - begun
    if 'fila ["Domínguez",-1]' not in done.stdout:
        sys.exit(done.stdout + done.stderr)
    return seconds


def tell(processes_told, what):
    for process in processes_told:
        with contextlib.suppress(ProcessLookupError):
            os.kill(process, what)


def take_over(programs, silent, confirmed):
    """The seconds of the promotion, of a grade afterwards, and the rows returned and lost."""
    with Cluster(**DURABLE) as server:
        made(programs, server)
        replica = Replica(server)
        stopped = []
        try:
            if confirmed:
                server.sql("ALTER SYSTEM SET synchronous_standby_names='*'", 'SELECT pg_reload_conf()')
            writers = [Writer(server, 1 + 1000000 * writer) for writer in range(WRITERS)]
            time.sleep(WRITING)
            if silent:
                stopped = processes(server)
                tell(stopped, signal.SIGSTOP)
            else:
                server.stop()
            begun = time.monotonic()
            replica.promote()
            promoted = time.monotonic() - begun
            saved = save(programs, server)
            there = set(map(int, replica.sql('SELECT n FROM apuntes', database='centro').split()))
            for writer in writers:
                writer.leave()
            returned = {row for writer in writers for row in writer.returned}
            return promoted, saved, len(returned), len(returned - there)
        finally:
            # Who is stopped hears of no end.
            tell(stopped, signal.SIGCONT)
            replica.leave()


def main():
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    programs, times = pathlib.Path(sys.argv[1]), numeros.plain_number(sys.argv[2]) if len(sys.argv) > 2 else 10
    lost_confirmed = 0
    for silent in False, True:
        for confirmed in True, False:
            rounds = [take_over(programs, silent, confirmed) for _ in range(times)]
            promoted, saved, returned, lost = zip(*rounds)
            print(f"{'El primero calla' if silent else 'El primero se para'}, "
                  f"{'con' if confirmed else 'sin'} confirmación del segundo, {times} veces: "
                  f'promover {max(promoted):.1f} s como mucho, poner una nota {max(saved):.1f} s como mucho, '
                  f'{sum(returned)} filas que habían vuelto, {sum(lost)} perdidas', flush=True)
            lost_confirmed += sum(lost) if confirmed else 0
    return 1 if lost_confirmed else 0


if __name__ == '__main__':
    sys.exit(main())
