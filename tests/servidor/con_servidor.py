#!/usr/bin/env python3
"""con_servidor.py [--duena] PROGRAM [ARGUMENT...]: runs a program beside a server of its own.

The program finds in its environment how to reach it: QUORVANE_PRUEBAS_SERVIDOR as who works on a
school, QUORVANE_PRUEBAS_DUENA as who makes it; both strings lack the database alone. With --duena the
first is the second's too, for tests whose scripts change what only the school's owner may change.
SIGUSR1 to the process in QUORVANE_PRUEBAS_MANDO stops the server at once and starts it again.
"""
import os
import signal
import subprocess
import sys

from cluster import OWNER, USER, Cluster


def main():
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    arguments = sys.argv[1:]
    user = OWNER if arguments[0] == '--duena' else USER
    if user == OWNER:
        del arguments[0]
    # A server that stops at once keeps what it has acknowledged, as where it is used.
    with Cluster(synchronous_commit='on') as cluster:
        def again(*_):
            cluster.stop()
            cluster.start()
        signal.signal(signal.SIGUSR1, again)
        environment = {**os.environ, 'QUORVANE_PRUEBAS_SERVIDOR': cluster.string(user),
                       'QUORVANE_PRUEBAS_DUENA': cluster.string(OWNER),
                       'QUORVANE_PRUEBAS_MANDO': str(os.getpid())}
        return subprocess.run(arguments, env=environment).returncode


if __name__ == '__main__':
    sys.exit(main())
