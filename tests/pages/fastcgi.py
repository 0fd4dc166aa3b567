"""A client for one FastCGI request, so that php-fpm can be tested without a web server in front."""

import socket
import struct

BEGIN_REQUEST, END_REQUEST, PARAMS, STDIN, STDOUT = 1, 3, 4, 5, 6


def record(kind, content):
    return struct.pack("!BBHHBB", 1, kind, 1, len(content), 0, 0) + content


def stream(kind, content):
    """The records of a stream, with the empty one that ends it."""
    pieces = [content[at:at + 65535] for at in range(0, len(content), 65535)]
    return b"".join(record(kind, piece) for piece in pieces) + record(kind, b"")


def pair(name, value):
    lengths = struct.pack("!II", len(name) | 0x80000000, len(value) | 0x80000000)
    return lengths + name + value


class Request:
    """A request that was sent and whose answer can be read piece by piece, or be left."""

    def __init__(self, address, params, body=b""):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.settimeout(60)
        try:
            self.socket.connect(address)
        except OSError:
            self.socket.close()
            raise
        encoded = b"".join(pair(name.encode(), value) for name, value in params.items())
        self.socket.sendall(record(BEGIN_REQUEST, struct.pack("!HB5x", 1, 0)) + stream(PARAMS, encoded)
                            + stream(STDIN, body))
        self.file = self.socket.makefile("rb")

    def read(self, at_least=None):
        """What the page writes to its end, or until so many bytes have come."""
        output = b""
        while at_least is None or len(output) < at_least:
            header = self.file.read(8)
            if len(header) < 8:
                break
            _, kind, _, length, padding, _ = struct.unpack("!BBHHBB", header)
            content = self.file.read(length + padding)[:length]
            if kind == STDOUT:
                output += content
            elif kind == END_REQUEST:
                break
        return output

    def leave(self):
        self.file.close()
        self.socket.close()
