#!/usr/bin/env python3
"""con_servidor.py PROGRAM [ARGUMENT...]: runs a program beside a server of its own.

The program finds in its environment how to reach it: QUORVANE_PRUEBAS_SERVIDOR as who works on a
school, QUORVANE_PRUEBAS_DUENA as who makes it; both strings lack the database alone.
"""
import os
import signal
import subprocess
import sys

from cluster import OWNER, USER, Cluster


def main():
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    with Cluster() as cluster:
        environment = {**os.environ, 'QUORVANE_PRUEBAS_SERVIDOR': cluster.string(USER),
                       'QUORVANE_PRUEBAS_DUENA': cluster.string(OWNER)}
        return subprocess.run(sys.argv[1:], env=environment).returncode


if __name__ == '__main__':
    sys.exit(main())
