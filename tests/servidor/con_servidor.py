#!/usr/bin/env python3
"""con_servidor.py [--duena] PROGRAM [ARGUMENT...]: runs a program beside a server of its own.

The program finds in its environment how to reach it: QUORVANE_PRUEBAS_SERVIDOR as who works on a
school, QUORVANE_PRUEBAS_DUENA as who makes it; both strings lack the database alone. With --duena the
first is the second's too, for tests whose scripts change what only the school's owner may change.
QUORVANE_PRUEBAS_ANTIGUO is the port of one that says that it is of version 11, QUORVANE_PRUEBAS_DISCO
a tablespace on a disk of its own, of 8 MB, where this machine lets one be made.
"""
import os
import signal
import subprocess
import sys

import old_server
from cluster import OWNER, USER, Cluster


def main():
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    arguments = sys.argv[1:]
    user = OWNER if arguments[0] == '--duena' else USER
    if user == OWNER:
        del arguments[0]
    with Cluster() as cluster:
        environment = {**os.environ, 'QUORVANE_PRUEBAS_SERVIDOR': cluster.string(user),
                       'QUORVANE_PRUEBAS_DUENA': cluster.string(OWNER),
                       'QUORVANE_PRUEBAS_ANTIGUO': str(old_server.before(cluster.port)),
                       'QUORVANE_PRUEBAS_DISCO': cluster.tiny_disk('8m')}
        return subprocess.run(arguments, env=environment).returncode


if __name__ == '__main__':
    sys.exit(main())
