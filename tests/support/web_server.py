#!/usr/bin/env python3
"""A web server with every habit, good and bad, that a link check meets.

Usage: web_server.py PORT [TLS_PORT CERTIFICATE KEY]; 0 is any free port. It prints the ports in one
line and listens on all of 127.0.0.0/8. It counts the requests of each path; /report answers with one
line "COUNT PATH" for each ("COUNT HEAD PATH" for those without a body), and with the most requests
that were under way at once, in all and to one host.
"""

import asyncio
import functools
import gzip
import ssl
import sys
import time
from collections import Counter
from email.utils import formatdate

NOT_FOUND = b"<h1>404 File Not Found</h1>"
MEGABYTE = b"x" * 1024 * 1024

REQUESTS, BUSY, MOST = Counter(), Counter(), Counter()
STAMPS = []  # The pause of the last /later.
HEADERS = []  # Of the last request: "Name:value".


def begin(host, path, method):
    REQUESTS[path if method == "GET" else f"{method} {path}"] += 1
    for key, name in (("in all", "in all"), (host, "to one host")):
        BUSY[key] += 1
        MOST[name] = max(MOST[name], BUSY[key])


def report(*_):
    counts = sorted(REQUESTS.items()) + sorted(MOST.items())
    counts += [("ms of pause", int(1000 * pause)) for pause in STAMPS]
    return answer("".join(f"{count} {name}\n" for name, count in counts).encode())


def answer(body, status="200 OK", *headers):
    head = [f"HTTP/1.1 {status}", f"Content-Length: {len(body)}", *headers]
    return "\r\n".join(head).encode() + b"\r\n\r\n" + body


def redirect(target, status="302 Found"):
    return answer(b"", status, f"Location: {target}")


def zipped(body):
    return answer(gzip.compress(body, 1), "200 OK", "Content-Encoding: gzip")


def page(path, _writer):
    return answer(f"This is {path}".encode())


def status(path, _writer):
    """/status/404"""
    return answer(b"", path.split("/")[2] + " So it is")


def headless(path, _writer):
    """/headless/404 answers so to HEAD only."""
    return answer(b"Here") if REQUESTS[path] else status(path, _writer)


async def mute(path, _writer):
    """Never answers a HEAD."""
    return answer(b"Here") if REQUESTS[path] else await never(path, _writer)


def asked(path):
    return REQUESTS[path] + REQUESTS[f"HEAD {path}"]


def busy(path, _writer):
    """/busy/503/2 is busy for two requests."""
    _, _, code, times = path.split("/")
    return status(f"/status/{code}", None) if asked(path) <= int(times) else answer(b"Here")


def later(path, _writer):
    """/later/2 wants a pause of two seconds, and says so in seconds; /later/date/2 as a date."""
    if asked(path) > 1:
        STAMPS.append(time.monotonic() - STAMPS.pop())
        return answer(b"Here")
    STAMPS.append(time.monotonic())
    wish = path.rsplit("/", 1)[1]
    if "date" in path:
        wish = formatdate(time.time() + int(wish), usegmt=True)
    return answer(b"", "429 Too Many Requests", f"Retry-After: {wish}")


def wants(path, _writer):
    """/wants/NAME:VALUE is there for those who send that header."""
    return answer(b"", "200 OK" if path.split("/")[2] in HEADERS else "404 Not Found")


def cookie(path, _writer):
    """Redirects to itself until it gets its cookie back."""
    if "Cookie:seen=yes" in HEADERS:
        return answer(b"Here")
    return answer(b"", "302 Found", f"Location: {path}", "Set-Cookie: seen=yes; Path=/")


def ids(_path, _writer):
    return answer(b"<h1 id=here>Here</h1><h1 id=user-content-made>", "200 OK",
                  "Content-Type: text/html; charset=utf-8")


def hop(path, _writer):
    left = int(path.rsplit("/", 1)[1])
    return redirect(f"/hop/{left - 1}") if left else answer(b"Arrived")


async def slow(path, _writer):
    """/slow/ALL/HOST waits until so many requests came at once, in all and to one host."""
    most_in_all, most_to_one = (int(number) for number in path.split("/")[2:4])
    for _ in range(1000):
        if MOST["in all"] >= most_in_all and MOST["to one host"] >= most_to_one:
            break
        await asyncio.sleep(0.02)
    await asyncio.sleep(0.02)
    return page(path, _writer)


async def after(path, _writer):
    """/after/50 answers after so many milliseconds."""
    await asyncio.sleep(int(path.split("/")[2]) / 1000)
    return page(path, _writer)


async def never(_path, _writer):
    await asyncio.sleep(3600)


async def big(_path, writer):
    writer.write(f"HTTP/1.1 200 OK\r\nContent-Length: {8 * len(MEGABYTE)}\r\n\r\n".encode())
    for _ in range(8):
        writer.write(MEGABYTE)
        await writer.drain()


@functools.cache
def bomb():
    return zipped(bytes(200 * len(MEGABYTE)))


async def split(_path, writer):
    """Sends a text in two pieces."""
    writer.write(f"HTTP/1.1 200 OK\r\nContent-Length: {len(NOT_FOUND)}\r\n\r\n".encode())
    writer.write(NOT_FOUND[:9])
    await writer.drain()
    await asyncio.sleep(0.2)
    return NOT_FOUND[9:]


async def short(_path, writer):
    """Promises more than it sends."""
    writer.write(b"HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nThat was all")
    raise ConnectionError


async def without_end(head, piece, writer):
    writer.write(b"HTTP/1.1 200 OK\r\n" + head)
    while True:
        writer.write(piece)
        await writer.drain()


HABITS = {
    "page": page,
    "missing": lambda *_: answer(NOT_FOUND, "404 Not Found"),
    "hop": hop,
    "slow": slow,
    "after": after,
    "never": never,
    "big": big,
    "to": lambda path, _: redirect(path.split("?", 1)[1]),
    "good": lambda path, _: redirect(path.split("?", 1)[1], "301 For Good"),
    "better": lambda path, _: redirect(path.split("?", 1)[1], "308 For Good"),
    "loop": lambda path, _: redirect(path),
    "status": status,
    "headless": headless,
    "mute": mute,
    "busy": busy,
    "later": later,
    "wants": wants,
    "cookie": cookie,
    "ids": ids,
    "lie": lambda *_: answer(NOT_FOUND),
    "zipped": lambda *_: zipped(NOT_FOUND),
    "damaged": lambda *_: answer(b"no gzip", "200 OK", "Content-Encoding: gzip"),
    "bomb": lambda *_: bomb(),
    "split": split,
    "short": short,
    "endless": lambda _, writer: without_end(b"\r\n", MEGABYTE, writer),
    "header": lambda _, writer: without_end(b"", b"a: b\r\n" * 1000, writer),
    "report": report,
}


async def serve(reader, writer):
    host = writer.get_extra_info("sockname")[0]
    try:
        while head := await reader.readuntil(b"\r\n\r\n"):
            method, path = head.decode("latin-1").split(" ", 2)[:2]
            HEADERS[:] = head.decode("latin-1").replace(": ", ":").split("\r\n")
            begin(host, path, method)
            try:
                whole = HABITS[path.split("/")[1].split("?")[0]](path, writer)
                whole = await whole if asyncio.iscoroutine(whole) else whole
            finally:
                BUSY.subtract(("in all", host))
            whole = whole or b""
            writer.write(whole.split(b"\r\n\r\n")[0] + b"\r\n\r\n" if method == "HEAD" else whole)
            await writer.drain()
    except (ConnectionError, asyncio.IncompleteReadError, KeyError):
        pass
    finally:
        writer.close()


async def main(port, tls_port=None, certificate=None, key=None):
    servers = [await asyncio.start_server(serve, "0.0.0.0", int(port), backlog=1024)]
    if certificate:
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(certificate, key)
        servers.append(await asyncio.start_server(serve, "0.0.0.0", int(tls_port), ssl=context))
    print(*(server.sockets[0].getsockname()[1] for server in servers), flush=True)
    await asyncio.gather(*(server.serve_forever() for server in servers))


if __name__ == "__main__":
    asyncio.run(main(*sys.argv[1:]))
