"""An FTP server that misbehaves on purpose, for one test at a time.

usage: ftp_faults.py SCENARIO LOG

Listens on a free port below 32768 of 127.0.0.1, prints the port and serves any number of
connections. LOG gets each command as it came, with "-- login" before each new connection.
A scenario is one of the words in the table at the end; without a fault every listing is LISTING
and every page PAGE.
"""

import itertools
import os
import socket
import ssl
import struct
import subprocess
import sys
import threading
import time

LISTING = b"-rw-r--r--   1 ftp      ftp            14 Jan 01 12:00 index.html\r\n"
PAGE = b"<a href=\"x\">\r\n\r\n"


def free_port(listener):
    """Not the one that a server of another test has just left: somebody may still call it."""
    for candidate in range(20000 + os.getpid() % 10000, 32000):
        try:
            listener.bind(("127.0.0.1", candidate))
            return candidate
        except OSError:
            continue
    raise SystemExit("no free port")


class Conversation:
    def __init__(self, control, number, log):
        self.control, self.number, self.log = control, number, log
        self.lines = control.makefile("rb")
        self.data = self.active = None
        self.pages = 0

    def say(self, text):
        self.control.sendall(text if isinstance(text, bytes) else text.encode("latin-1") + b"\r\n")

    def close(self, last=None):
        if last:
            self.say(last)
        raise ConnectionError

    def stall(self):
        self.lines.read()
        self.close()

    def reset(self):
        self.control.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
        self.close()

    def connection(self):
        if self.active:
            return socket.create_connection(self.active)
        accepted, _ = self.data.accept()
        self.data.close()
        return accepted

    def passive(self):
        self.data = socket.socket()
        self.data.bind(("127.0.0.1", 0))
        self.data.listen()
        return self.data.getsockname()[1]

    def activate(self, port):
        self.active = ("127.0.0.1", port)
        self.say("200 active")

    def handle(self, replies):
        try:
            self.converse(replies)
        except OSError:
            pass
        finally:
            self.control.close()

    def converse(self, replies):
        self.log.write(b"-- login\n")
        self.say(replies["greeting"])
        while line := self.lines.readline():
            self.log.write(line)
            verb, _, argument = line.rstrip(b"\r\n").partition(b" ")
            reply = replies.get(verb.decode("latin-1"), "502 not known here")
            reply(self, argument) if callable(reply) else self.say(reply)

    def send(self, content, first="150 here it comes"):
        with self.connection() as data:
            self.say(first)
            for block in [content] if isinstance(content, bytes) else content:
                data.sendall(block)

    def transfer(self, content, last="226 done"):
        self.send(content)
        self.say(last)


def port(it, argument):
    high, low = argument.split(b",")[4:]
    it.activate(int(high) * 256 + int(low))


def transfer(content):
    return lambda it, _: it.transfer(content)


def once(fault, usual):
    """The fault on the first connection only."""
    return lambda it, _: fault(it) if it.number == 1 else it.transfer(usual)


def then_stall(it, content):
    yield content
    it.stall()


def no_last_reply(it, _):
    it.send(PAGE)
    it.stall()


def failed_late(content):
    def fault(it, _):
        it.send(content)
        it.say("451 local error")

    return fault


def first_one_only(reply):
    """Whoever comes after the first connection waits in vain."""
    return lambda it, _: it.say(reply) if it.number == 1 else it.stall()


def cut_on_second(it, _):
    it.pages += 1
    if it.number == 2 and it.pages == 1:
        it.send(PAGE[:5])
        it.reset()
    it.transfer(PAGE)


def drip(it, _):
    with it.connection() as data:
        it.say("150 here it comes")
        while True:
            data.sendall(b"x")
            time.sleep(0.1)


def announce(it, _):
    while True:
        it.say("150 here it comes")
        time.sleep(0.1)


def big_page(it, path):
    it.transfer(path.ljust(1 << 20, b"x"))


def overtaken(it, argument):
    """Somebody else is first at the port of the first connection."""
    it.activate(int(argument.split(b"|")[3]))
    if it.number == 1:
        it.stranger = socket.create_connection(it.active, source_address=("127.0.0.2", 0))


def listing_of_a_stranger(it, _):
    if it.number > 1:
        return it.transfer(LISTING)
    it.say("150 here it comes")
    it.stranger.sendall(LISTING.replace(b"index", b"planted"))
    it.stall()


def tls(it, _):
    it.say("234 go on")
    it.control = CONTEXT.wrap_socket(it.control, server_side=True)
    it.lines = it.control.makefile("rb")


def page_over_tls(sent, says_so):
    def reply(it, _):
        data = it.connection()
        it.say("150 here it comes")
        data = CONTEXT.wrap_socket(data, server_side=True)
        data.sendall(sent)
        data.unwrap() if says_so else None
        data.close()
        it.say("226 done")

    return reply


def make_certificate(folder):
    files = [os.path.join(folder, name) for name in ("certificate", "key")]
    subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt",
                    "ec_paramgen_curve:P-256", "-nodes", "-subj", "/CN=127.0.0.1", "-out", files[0],
                    "-keyout", files[1]], check=True, stderr=subprocess.DEVNULL)
    CONTEXT.load_cert_chain(*files)


def delete(it, _):
    """The port that was announced last is closed, too."""
    it.data.close()
    it.say("250 deleted")


def endless_reply(it, _):
    while True:
        it.say("150-" + "x" * 1000)


def cut_page(it, _):
    it.pages += 1
    if it.pages > 1:
        return it.transfer(PAGE)
    it.send(PAGE[:5])
    it.say("426 data connection closed")


def cut_listing(it):
    it.send(LISTING * 3 + LISTING[:20])
    it.reset()


def goodbye(it, _=None):
    it.close("421 idle for too long")


def idle(it):
    it.transfer(PAGE, "226 done\r\n421 idle")
    it.close()


def stall(it, _):
    it.stall()


CONTEXT = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
TLS = {"AUTH": tls, "PBSZ": "200 fine", "PROT": "200 fine"}
USUAL = {
    "greeting": "220 ready",
    "USER": "331 password",
    "PASS": "230 welcome",
    "TYPE": "200 type set",
    "QUIT": lambda it, _: it.close("221 bye"),
    "DELE": delete,
    "RMD": "250 deleted",
    "EPSV": lambda it, _: it.say("229 Extended (|||%d|)" % it.passive()),
    "PASV": lambda it, _: it.say("227 Passive (10,1,2,3,%d,%d)" % divmod(it.passive(), 256)),
    "EPRT": lambda it, argument: it.activate(int(argument.split(b"|")[3])),
    "PORT": port,
    "LIST": transfer(LISTING),
    "RETR": transfer(PAGE),
}
SCENARIOS = {
    "healthy": {},
    "long-welcome": {"PASS": "230-welcome\r\n 331 is a number of users\r\n230- \r\n230 ready"},
    "login-refused": {"PASS": "530 Login incorrect."},
    "echoing": {"PASS": lambda it, password: it.say(b"530 no: " + password + b"\r\n")},
    "account-needed": {"PASS": "332 account please", "ACCT": "230 welcome"},
    "account-missing": {"PASS": "332 account please"},
    "account-refused": {"PASS": "332 account please", "ACCT": "530 Account unknown."},
    "too-many": {"greeting": "421 Too many users."},
    "silent": {"USER": stall},
    "no-epsv": {"EPSV": "500 what?"},
    "no-eprt": {"EPRT": "500 what?"},
    "closed-port": {"EPSV": "229 Extended (|||1|)"},
    "goodbye-once": {"RETR": once(goodbye, PAGE)},
    "goodbye-always": {"RETR": goodbye},
    "reset-once": {"LIST": once(Conversation.reset, LISTING)},
    "idle": {"RETR": once(idle, PAGE)},
    "cut-listing": {"LIST": once(cut_listing, LISTING * 5)},
    "cut-page": {"RETR": cut_page},
    "stalled-reply": {"RETR": stall, "DELE": stall},
    "stalled-listing": {"LIST": lambda it, _: it.send(then_stall(it, LISTING + LISTING[:20]))},
    "no-last-reply": {"RETR": no_last_reply},
    "failed-late": {"RETR": failed_late(PAGE), "LIST": failed_late(LISTING)},
    "endless-reply": {"RETR": endless_reply},
    "both-replies": {"RETR": lambda it, _: it.send(PAGE, "150 here it comes\r\n226 done")},
    "no-goodbye": {"QUIT": stall},
    "refused": {"RETR": "550 no such page", "LIST": "550 no such directory"},
    "one-connection": {"USER": first_one_only("331 password")},
    "cut-on-second": {"RETR": cut_on_second},
    "dripping": {"RETR": drip},
    "announcing": {"RETR": announce},
    "big-pages": {"RETR": big_page},
    "overtaken": {"EPRT": overtaken, "LIST": listing_of_a_stranger},
    "tls": {**TLS, "RETR": page_over_tls(PAGE, True)},
    "cut-tls": {**TLS, "RETR": page_over_tls(PAGE[:5], False)},
    "no-files": {"LIST": "450 No files found"},
    "bare-lf": {"LIST": transfer(LISTING.replace(b"\r", b""))},
    "no-last-lf": {"LIST": transfer(LISTING + LISTING[:-2])},
    "cr-inside": {"LIST": transfer(b"-rw a\rb\r\r\n")},
    "blank-names": {"LIST": transfer(LISTING.replace(b"index", b"my page"))},
    "latin-1": {"LIST": transfer(LISTING.replace(b"index", b"\xfcber"))},
    "link": {"LIST": transfer(b"lrwxrwxrwx 1 ftp ftp 4 Jan 01 12:00 a -> b\r\n")},
    "total": {"LIST": transfer(b"total 4\r\n" + LISTING)},
    "hostile": {"LIST": transfer(b"-rw ../../etc/passwd\r\n-rw /abs\r\n-rw \x01\x1b[2J\0x\r\n-rw "
                                 + b"n" * 10000 + b"\r\n")},
    "long-line": {"LIST": transfer(b"x" * 1000000)},
    "endless-line": {"LIST": transfer(b"x" * 1000000 for _ in range(200))},
    "many": {"LIST": transfer(LISTING for _ in range(100000))},
    "huge-page": {"RETR": transfer(b"x" * 65536 for _ in range(65 * 16))},
}


def main(scenario, log):
    replies = {**USUAL, **SCENARIOS[scenario]}
    if "AUTH" in replies:
        make_certificate(os.path.dirname(log))
    listener = socket.socket()
    chosen = free_port(listener)
    listener.listen()
    print(chosen, flush=True)
    with open(log, "wb", buffering=0) as lines:
        for number in itertools.count(1):
            control, _ = listener.accept()
            conversation = Conversation(control, number, lines)
            threading.Thread(target=conversation.handle, args=[replies], daemon=True).start()


main(*sys.argv[1:])
