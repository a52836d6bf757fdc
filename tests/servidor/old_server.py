"""A server that says that it is an older one: it hands all on to a real one, but for its version."""
import socket
import threading

OLD = b'server_version\x0011.22\x00'


def _older(data):
    """The first answer with the version in it, where the server says so by itself."""
    at = data.find(b'server_version\x00')
    if at < 0:
        return data
    end = data.index(b'\x00', at + len(b'server_version\x00')) + 1
    length = 4 + len(OLD)
    return data[:at - 5] + b'S' + length.to_bytes(4, 'big') + OLD + data[end:]


def _hand_on(one, other, change):
    try:
        while data := one.recv(65536):
            other.sendall(change(data))
    except OSError:
        pass
    for end in one, other:
        try:
            end.shutdown(socket.SHUT_RDWR)
        except OSError:
            pass


def _serve(listener, port):
    while True:
        client, _ = listener.accept()
        server = socket.create_connection(('127.0.0.1', port))
        threading.Thread(target=_hand_on, args=(client, server, bytes), daemon=True).start()
        threading.Thread(target=_hand_on, args=(server, client, _older), daemon=True).start()


def before(port):
    """Stands before the server at that port; the port that it listens on, while this program runs."""
    listener = socket.create_server(('127.0.0.1', 0))
    threading.Thread(target=_serve, args=(listener, port), daemon=True).start()
    return listener.getsockname()[1]
