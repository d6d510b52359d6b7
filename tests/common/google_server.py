#!/usr/bin/env python3
"""A stand-in for the services of Google Fonts, over HTTPS on the loopback address. It knows nothing of the program that
asks it.

    google_server.py CERTIFICATE KEY PLAN LOG

prints its two ports, which answer alike. The plan is a JSON file, read anew for each request:

    "metadata"   the answer to /metadata/fonts
    "css"        answers to /css2 by family; else a style sheet that leads to /font/FAMILY, once for each style
    "font"       answers to /font/FAMILY, or to /font/FAMILY/STYLE; else the bytes of "fontFile"
    "list"       answers to /download/list by family; else 404

An answer is an object with one of: "status" (with an optional "body"), "body", "file", "base64", "redirect" (an
address), "stall" (seconds), "cut" (bytes that are sent of 10,000), "endless" (true), "close" (true), "reset" (true: without a
goodbye). "delay" (seconds) may stand with any. Each request is a line of the log: the open connections, a tab, the path.
"""

import base64
import json
import socket
import ssl
import struct
import sys
import threading
import time
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer
from pathlib import Path
from urllib.parse import parse_qs, quote, unquote, urlsplit

CERTIFICATE, KEY, PLAN, LOG = sys.argv[1:]
turn = threading.Lock()
connections = set()
ports = []


def is_open(connection: socket.socket) -> bool:
    """As the system has it: the thread that serves a connection hears late of its end."""
    established = 1
    try:
        return connection.getsockopt(socket.IPPROTO_TCP, socket.TCP_INFO, 1)[0] == established
    except OSError:
        return False


class Handler(BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"
    timeout = 60

    def setup(self):
        with turn:
            connections.add(self.request)
        self.request.settimeout(self.timeout)
        self.request.do_handshake()
        super().setup()

    def finish(self):
        try:
            super().finish()
        finally:
            with turn:
                connections.discard(self.request)

    def do_GET(self):
        with turn, open(LOG, "a", encoding="utf-8") as log:
            log.write(f"{sum(map(is_open, connections))}\t{self.path}\n")
        plan = json.loads(Path(PLAN).read_text(encoding="utf-8"))
        try:
            self.give(self.planned(plan))
        except (BrokenPipeError, ConnectionResetError, ssl.SSLError, TimeoutError):
            self.close_connection = True

    def planned(self, plan: dict) -> dict:
        address = urlsplit(self.path)
        query = parse_qs(address.query)
        family, _, spec = query.get("family", [""])[0].partition(":")
        if address.path == "/metadata/fonts":
            return plan.get("metadata", {"status": 404})
        if address.path == "/css2":
            return plan.get("css", {}).get(family) or {"body": self.style_sheet(family, spec)}
        if address.path == "/download/list":
            return plan.get("list", {}).get(family, {"status": 404})
        if address.path.startswith("/font/"):
            name = unquote(address.path.removeprefix("/font/"))
            return plan.get("font", {}).get(name, {"file": plan.get("fontFile")})
        return {"status": 404}

    def style_sheet(self, family: str, spec: str) -> str:
        family = family if family.strip(".") else "dots"  # which no path may hold
        styles = spec.split("@")[1].split(";") if ";" in spec else [""]
        addresses = [f"https://127.0.0.1:{ports[0]}/font/{quote(family, safe='')}" +
                     (f"/{quote(style)}" if style else "") for style in styles]
        return "".join(f"@font-face {{ src: url({address}) format('truetype'); }}\n" for address in addresses)

    def give(self, answer: dict):
        time.sleep(answer.get("delay", 0))
        if "stall" in answer:
            time.sleep(answer["stall"])
        if answer.get("reset"):
            self.request.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
            self.request.close()
            self.close_connection = True
        elif answer.get("close") or "stall" in answer:
            self.close_connection = True
        elif "redirect" in answer:
            self.begin(302, [("Location", answer["redirect"]), ("Content-Length", "0")])
        elif "cut" in answer:
            self.begin(200, [("Content-Length", "10000")])
            self.wfile.write(b"x" * answer["cut"])
            self.close_connection = True
        elif answer.get("endless"):
            self.begin(200, [])
            self.close_connection = True
            while True:
                self.wfile.write(b"x" * 65536)
        else:
            self.give_body(answer)

    def give_body(self, answer: dict):
        body = answer.get("body", "").encode()
        if "file" in answer:
            body = Path(answer["file"]).read_bytes()
        if "base64" in answer:
            body = base64.b64decode(answer["base64"])
        self.begin(answer.get("status", 200), [("Content-Length", str(len(body)))])
        self.wfile.write(body)

    def begin(self, status: int, headers: list):
        self.send_response(status)
        for name, value in headers:
            self.send_header(name, value)
        self.end_headers()

    def log_message(self, *_):
        pass


class Server(ThreadingHTTPServer):
    daemon_threads = True
    request_queue_size = 64

    def handle_error(self, *_):
        pass


def serve() -> Server:
    server = Server(("127.0.0.1", 0), Handler)
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(CERTIFICATE, KEY)
    server.socket = context.wrap_socket(server.socket, server_side=True, do_handshake_on_connect=False)
    ports.append(server.server_port)
    return server


def main():
    first, second = serve(), serve()
    threading.Thread(target=second.serve_forever, daemon=True).start()
    print(*ports, flush=True)
    first.serve_forever()


if __name__ == "__main__":
    main()
