"""An HTTP/1.1 server on 127.0.0.1 for the tests of remote files.

It serves the files under ROOT, or with --always the one file REPLY on
every path, on a port the system picks, which it prints as the first line
of its standard output. Each request line goes to LOG as it arrives.

A few path prefixes misbehave on purpose (N and CODE are numbers):
  /redirect/N/rest  answers 302 and sends the client on to /redirect/N-1/rest,
                    and from /redirect/0/rest on to /rest
  /gzip/rest        sends the file rest with Content-Encoding: gzip
  /stall/rest       sends the headers of the file rest, then nothing more
  /silent/rest      accepts the request and never answers
  /status/CODE/rest answers with that status

The server ends when its standard input closes (the test that started it has
gone) or after a bounded time, whichever comes first.
"""

import argparse
import gzip
import http.server
import os
import sys
import threading

LIFETIME_SECONDS = 120
HOLD_SECONDS = 60


def parse_arguments():
    parser = argparse.ArgumentParser()
    parser.add_argument("--root", required=True)
    parser.add_argument("--log", required=True)
    parser.add_argument("--always")
    return parser.parse_args()


class Handler(http.server.SimpleHTTPRequestHandler):
    protocol_version = "HTTP/1.1"
    log_lock = threading.Lock()

    def log_message(self, *args):
        pass

    def record(self):
        with Handler.log_lock, open(self.server.log_path, "a") as log:
            log.write(self.requestline + "\n")

    def send_bytes(self, status, body, headers=()):
        self.send_response(status)
        for name, value in headers:
            self.send_header(name, value)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def file_bytes(self, rest):
        path = os.path.join(self.server.root, rest.split("?")[0].lstrip("/"))
        with open(path, "rb") as f:
            return f.read()

    def do_GET(self):
        self.record()
        if self.server.always is not None:
            with open(self.server.always, "rb") as f:
                self.send_bytes(200, f.read())
            return
        parts = self.path.split("/", 3)
        kind = parts[1] if len(parts) > 2 else ""
        try:
            if kind == "redirect":
                count = int(parts[2])
                rest = parts[3] if len(parts) > 3 else ""
                target = "/redirect/%d/%s" % (count - 1, rest) if count > 0 else "/" + rest
                self.send_bytes(302, b"moved\n", [("Location", target)])
            elif kind == "gzip":
                body = gzip.compress(self.file_bytes(self.path[len("/gzip/"):]))
                self.send_bytes(200, body, [("Content-Encoding", "gzip")])
            elif kind == "stall":
                body = self.file_bytes(self.path[len("/stall/"):])
                self.send_response(200)
                self.send_header("Content-Length", str(len(body)))
                self.end_headers()
                self.wfile.flush()
                self.server.ending.wait(HOLD_SECONDS)
                self.close_connection = True
            elif kind == "silent":
                self.server.ending.wait(HOLD_SECONDS)
                self.close_connection = True
            elif kind == "status":
                self.send_bytes(int(parts[2]), b"<html>status page</html>\n")
            else:
                super().do_GET()
        except (OSError, ValueError):
            self.send_bytes(404, b"<html>no such file</html>\n")

    def do_HEAD(self):
        self.record()
        super().do_HEAD()


def end_when_stdin_closes(server):
    sys.stdin.buffer.read()
    os._exit(0)


def main():
    arguments = parse_arguments()
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    server.daemon_threads = True
    server.root = arguments.root
    server.log_path = arguments.log
    server.always = arguments.always
    server.ending = threading.Event()
    open(server.log_path, "w").close()
    threading.Thread(target=end_when_stdin_closes, args=(server,), daemon=True).start()
    timer = threading.Timer(LIFETIME_SECONDS, lambda: os._exit(0))
    timer.daemon = True
    timer.start()
    print(server.server_address[1], flush=True)
    os.chdir(server.root)
    server.serve_forever()


if __name__ == "__main__":
    main()
