#!/usr/bin/env python3
"""con_servidor.py [--duena] [--duradero] [--repartidor N] PROGRAM [ARGUMENT...]: runs a program beside a
server of its own.

The program finds in its environment how to reach it: QUORVANE_PRUEBAS_SERVIDOR as who works on a
school, QUORVANE_PRUEBAS_DUENA as who makes it; both strings lack the database alone. With --duena the
first is the second's too, for tests whose scripts change what only the school's owner may change.
An argument {zendria} or {duena} is the string of one of them with a database that has no tables yet.
QUORVANE_PRUEBAS_ANTIGUO is the port of one that says that it is of version 11, QUORVANE_PRUEBAS_ENCHUFE
the file by which it is reached without a port, QUORVANE_PRUEBAS_DISCO
a tablespace on a disk of its own, of 8 MB, where this machine lets one be made. SIGUSR1 to the process
in QUORVANE_PRUEBAS_MANDO stops the server at once and starts it again.

--duradero: the server writes to its disk before it answers, and tidies up, as one does that isn't thrown
away. --repartidor N: who works reaches it through PgBouncer in transaction mode with N connections.
"""
import argparse
import contextlib
import os
import resource
import signal
import subprocess
import pathlib
import sys

sys.path.append(str(pathlib.Path(__file__).parents[2] / 'tools'))
import numeros  # noqa: E402
import old_server
from cluster import OWNER, USER, Cluster
from pooler import Pooler

STACK = 64 << 20
DURABLE = {'fsync': 'on', 'full_page_writes': 'on', 'synchronous_commit': 'on', 'autovacuum': 'on',
           'shared_buffers': '128MB'}


def main():
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    parser = argparse.ArgumentParser()
    parser.add_argument('--duena', action='store_true')
    parser.add_argument('--duradero', action='store_true')
    parser.add_argument('--repartidor', type=numeros.positive)
    parser.add_argument('command', nargs=argparse.REMAINDER)
    asked = parser.parse_args()
    if not asked.command:
        parser.error('falta el programa que se ejecuta junto al servidor')
    # A server that stops at once keeps what it has acknowledged, as where it is used. Thousands of
    # connections are opened, and the stronger proof of a password takes longer than the rest of one.
    settings = DURABLE if asked.duradero else {'synchronous_commit': 'on', 'password_encryption': 'md5'}
    with Cluster(**settings) as cluster, contextlib.ExitStack() as stack:
        def again(*_):
            cluster.stop()
            cluster.start()
        signal.signal(signal.SIGUSR1, again)
        pooler = stack.enter_context(Pooler(cluster, asked.repartidor)) if asked.repartidor else None
        owner = cluster.string(OWNER)
        user = cluster.string(USER, Port=pooler.port if pooler else cluster.port)
        named = {'{zendria}': f'{user};Database=escuela', '{duena}': f'{owner};Database=escuela'}
        if set(named) & set(asked.command):
            cluster.sql(f'CREATE DATABASE escuela OWNER {OWNER}')
        environment = {**os.environ, 'QUORVANE_PRUEBAS_SERVIDOR': owner if asked.duena else user,
                       'QUORVANE_PRUEBAS_DUENA': owner,
                       'QUORVANE_PRUEBAS_MANDO': str(os.getpid()),
                       'QUORVANE_PRUEBAS_ANTIGUO': str(old_server.before(cluster.port)),
                       'QUORVANE_PRUEBAS_ENCHUFE': str(cluster.folder / f'.s.PGSQL.{cluster.port}'),
                       'QUORVANE_PRUEBAS_DISCO': cluster.tiny_disk('8m')}
        # The sanitizers' frames are large, and shows nest.
        resource.setrlimit(resource.RLIMIT_STACK, (STACK, resource.getrlimit(resource.RLIMIT_STACK)[1]))
        status = subprocess.run([named.get(word, word) for word in asked.command],
                                env=environment).returncode
        if not pooler:
            return status
        print(f'Conexiones con el servidor a la vez: {pooler.most}, por {asked.repartidor} de PgBouncer')
        return status if 1 < pooler.most <= asked.repartidor else 1


if __name__ == '__main__':
    sys.exit(main())
