"""Runs the network tests against real servers on loopback.

Usage: harness.py WINE_RUN TEST_EXE [ARGS...]

Starts, on 127.0.0.1 and free ports: an HTTP server with scripted routes,
the same routes over HTTPS with a self-signed certificate, and a server
that accepts connections and never answers. A port with nothing behind it
is found too. Their addresses reach the test program in environment
variables; the program's exit status is the harness's.
"""
import http.server
import json
import os
import select
import socket
import ssl
import subprocess
import sys
import tempfile
import threading
import time

RECORDS = {}


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def log_message(self, *args):
        pass

    def _body(self):
        length = int(self.headers.get("Content-Length") or 0)
        return self.rfile.read(length) if length else b""

    def _send(self, status, body, content_type="text/plain", extra=()):
        self.send_response(status)
        self.send_header("Content-Type", content_type)
        self.send_header("Content-Length", str(len(body)))
        for name, value in extra:
            self.send_header(name, value)
        self.end_headers()
        self.wfile.write(body)

    def _route(self):
        body = self._body()
        path = self.path
        if path.startswith("/status/"):
            code = int(path.split("/")[2])
            self._send(code, ("status %d" % code).encode())
        elif path == "/nolength":
            # No Content-Length: the end of the connection ends the body.
            self.send_response(200)
            self.send_header("Content-Type", "text/plain")
            self.send_header("Connection", "close")
            self.end_headers()
            self.wfile.write(b"x" * 10000)
            self.close_connection = True
        elif path == "/chunked":
            self.send_response(200)
            self.send_header("Transfer-Encoding", "chunked")
            self.end_headers()
            for piece in (b"hello ", b"chunked ", b"world"):
                self.wfile.write(b"%x\r\n%s\r\n" % (len(piece), piece))
            self.wfile.write(b"0\r\n\r\n")
        elif path == "/repeat":
            self._send(200, b"ok", extra=[("X-Twice", "first"), ("X-Twice", "second"),
                                          ("x-case", "lower"), ("X-CASE", "upper"),
                                          ("X-Spaced", "  padded value  ")])
        elif path.startswith("/size/"):
            self._send(200, b"a" * int(path.split("/")[2]))
        elif path.startswith("/biglength/"):
            # Announces far more than the cap, then waits to see whether the
            # client reads on or hangs up before any of the body.
            key = path.split("/")[2]
            self.send_response(200)
            self.send_header("Content-Length", "50000000")
            self.end_headers()
            self.wfile.flush()
            readable, _, _ = select.select([self.connection], [], [], 5)
            closed = bool(readable) and self.connection.recv(1) == b""
            RECORDS[key] = "closed" if closed else "waited"
            self.close_connection = True
        elif path.startswith("/record/"):
            key = path.split("/")[2]
            self._send(200, RECORDS.get(key, "none").encode())
        elif path == "/midclose":
            self.send_response(200)
            self.send_header("Content-Length", "10000")
            self.end_headers()
            self.wfile.write(b"m" * 5000)
            self.wfile.flush()
            self.connection.shutdown(socket.SHUT_RDWR)
            self.close_connection = True
        else:
            # Everything else echoes what arrived.
            echo = {
                "method": self.command,
                "target": path,
                "headers": {k: v for k, v in self.headers.items()},
                "headerNames": list(self.headers.keys()),
                "body": body.hex(),
            }
            self._send(200, json.dumps(echo).encode(), "application/json")

    do_GET = do_POST = do_PUT = do_PATCH = do_DELETE = do_HEAD = _route


def serve(server):
    threading.Thread(target=server.serve_forever, daemon=True).start()
    return "127.0.0.1:%d" % server.server_address[1]


def silent_server():
    """Accepts and reads, but never answers. Wine's WinINet does not apply
    a receive timeout, so after 3 s the server hangs up, which bounds the
    test's wait where the client's own timeout does not."""
    listener = socket.socket()
    listener.bind(("127.0.0.1", 0))
    listener.listen(8)

    def hold(conn):
        time.sleep(3)
        conn.close()

    def accept():
        while True:
            conn, _ = listener.accept()
            threading.Thread(target=hold, args=(conn,), daemon=True).start()

    threading.Thread(target=accept, daemon=True).start()
    return "127.0.0.1:%d" % listener.getsockname()[1]


def closed_port():
    s = socket.socket()
    s.bind(("127.0.0.1", 0))
    port = s.getsockname()[1]
    s.close()
    return "127.0.0.1:%d" % port


def https_server(folder):
    cert, key = os.path.join(folder, "cert.pem"), os.path.join(folder, "key.pem")
    subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2",
                    "-subj", "/CN=127.0.0.1", "-keyout", key, "-out", cert],
                   check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(cert, key)
    server.socket = context.wrap_socket(server.socket, server_side=True)
    return serve(server)


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    with tempfile.TemporaryDirectory() as folder:
        env = dict(os.environ)
        env["VELKAN_TEST_HTTP"] = serve(http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler))
        env["VELKAN_TEST_HTTPS"] = https_server(folder)
        env["VELKAN_TEST_SILENT"] = silent_server()
        env["VELKAN_TEST_CLOSED"] = closed_port()
        try:
            result = subprocess.run(sys.argv[1:], env=env, timeout=540)
        except subprocess.TimeoutExpired:
            print("network tests did not finish in time")
            sys.exit(1)
        sys.exit(result.returncode)


if __name__ == "__main__":
    main()
