#!/usr/bin/env python3
"""con_servidor.py [--duena] [--duradero] PROGRAM [ARGUMENT...]: runs a program beside a server of its own.

The program finds in its environment how to reach it: QUORVANE_PRUEBAS_SERVIDOR as who works on a
school, QUORVANE_PRUEBAS_DUENA as who makes it; both strings lack the database alone. With --duena the
first is the second's too, for tests whose scripts change what only the school's owner may change. With
--duradero what is written reaches the disk, and the tables are looked after, as on a school's server.
"""
import os
import signal
import subprocess
import sys

from cluster import OWNER, USER, Cluster

DURABLE = {name: 'on' for name in ('fsync', 'full_page_writes', 'synchronous_commit', 'autovacuum')}


def main():
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    arguments = sys.argv[1:]
    user, settings = USER, {}
    while arguments[0].startswith('--'):
        option = arguments.pop(0)
        if option == '--duena':
            user = OWNER
        elif option == '--duradero':
            settings = DURABLE
        else:
            raise SystemExit(f'Opción desconocida: {option}')
    with Cluster(**settings) as cluster:
        environment = {**os.environ, 'QUORVANE_PRUEBAS_SERVIDOR': cluster.string(user),
                       'QUORVANE_PRUEBAS_DUENA': cluster.string(OWNER)}
        return subprocess.run(arguments, env=environment).returncode


if __name__ == '__main__':
    sys.exit(main())
