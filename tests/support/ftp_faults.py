"""An FTP server that misbehaves on purpose, for one test at a time.

usage: ftp_faults.py SCENARIO LOG

Listens on a free port below 32768 of 127.0.0.1, prints the port and serves any number of
connections. LOG gets each command as it came, with "-- login" before each new connection.
A scenario is one of the words in the table at the end; without a fault every listing is LISTING
and every page PAGE.
"""

import socket
import struct
import sys
import threading

LISTING = b"-rw-r--r--   1 ftp      ftp            14 Jan 01 12:00 index.html\r\n"
PAGE = b"<a href=\"x\">\r\n\r\n"
HUGE = 65 * 1024 * 1024


def free_port(listener):
    for port in range(20000, 32000):
        try:
            listener.bind(("127.0.0.1", port))
            return port
        except OSError:
            continue
    raise SystemExit("no free port")


class Conversation:
    def __init__(self, control, number, log):
        self.control, self.number, self.log = control, number, log
        self.lines = control.makefile("rb")
        self.data = None
        self.active = None
        self.transfers = 0

    def say(self, text):
        self.control.sendall(text if isinstance(text, bytes) else text.encode("latin-1") + b"\r\n")

    def stall(self):
        self.lines.read()
        raise ConnectionError

    def close(self):
        raise ConnectionError

    def reset(self):
        self.control.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
        raise ConnectionError

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

    def handle(self, faults):
        self.log.write(b"-- login\n")
        self.say(faults.get("greeting", "220 ready"))
        for line in self.lines:
            self.log.write(line)
            verb, _, argument = line.rstrip(b"\r\n").partition(b" ")
            verb = verb.decode("latin-1")
            fault = faults.get(verb)
            if callable(fault):
                fault(self, argument)
            elif fault is not None:
                self.say(fault)
            else:
                getattr(self, verb, self.unknown)(argument)

    def unknown(self, _):
        self.say("502 not known here")

    def USER(self, _):
        self.say("331 password")

    def PASS(self, _):
        self.say("230 welcome")

    def PWD(self, _):
        self.say('257 "/" is current')

    def TYPE(self, _):
        self.say("200 type set")

    def QUIT(self, _):
        self.say("221 bye")
        raise ConnectionError

    def DELE(self, _):
        self.say("250 deleted")

    RMD = DELE

    def EPSV(self, _):
        self.say("229 Extended (|||%d|)" % self.passive())

    def PASV(self, _):
        port = self.passive()
        self.say("227 Passive (10,1,2,3,%d,%d)" % divmod(port, 256))

    def EPRT(self, argument):
        self.active = ("127.0.0.1", int(argument.split(b"|")[3]))
        self.say("200 active")

    def PORT(self, argument):
        high, low = argument.split(b",")[4:]
        self.active = ("127.0.0.1", int(high) * 256 + int(low))
        self.say("200 active")

    def transfer(self, content, last="226 done"):
        self.transfers += 1
        data = self.connection()
        self.say("150 here it comes")
        try:
            for block in [content] if isinstance(content, bytes) else content:
                data.sendall(block)
        finally:
            data.close()
        self.say(last)

    def LIST(self, _):
        self.transfer(LISTING)

    def RETR(self, _):
        self.transfer(PAGE)


def listing(content):
    return {"LIST": lambda it, _: it.transfer(content)}


def page(content):
    return {"RETR": lambda it, _: it.transfer(content)}


def once(verb, fault, usual):
    """The fault on the first connection only."""
    return {verb: lambda it, argument: (fault if it.number == 1 else usual)(it, argument)}


def part_then_stall(it, _):
    data = it.connection()
    it.say("150 here it comes")
    data.sendall(LISTING + LISTING[:20])
    it.stall()


def no_last_reply(it, _):
    data = it.connection()
    it.say("150 here it comes")
    data.sendall(PAGE)
    data.close()
    it.stall()


def both_replies_at_once(it, _):
    data = it.connection()
    it.say("150 here it comes\r\n226 done")
    data.sendall(PAGE)
    data.close()


def cut_page(reset):
    def fault(it, _):
        it.transfers += 1
        data = it.connection()
        it.say("150 here it comes")
        data.sendall(PAGE if it.transfers > 1 else PAGE[:5])
        if reset and it.transfers == 1:
            data.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
        data.close()
        it.say("426 data connection closed" if it.transfers == 1 else "226 done")

    return fault


def cut_listing(it, _):
    data = it.connection()
    it.say("150 here it comes")
    data.sendall(LISTING * 3 + LISTING[:20])
    data.close()
    it.reset()


def goodbye(it, _):
    it.say("421 idle for too long")
    it.close()


def many_lines(count):
    for i in range(count):
        yield b"-rw-r--r--   1 ftp      ftp            14 Jan 01 12:00 page%d.html\r\n" % i


RETR, LIST, PWD = Conversation.RETR, Conversation.LIST, Conversation.PWD
SCENARIOS = {
    "healthy": {},
    "login-refused": {"PASS": "530 Login incorrect."},
    "echoing": {"PASS": lambda it, password: it.say(b"530 no: " + password + b"\r\n")},
    "account-needed": {"PASS": "332 account please", "ACCT": "230 welcome"},
    "account-missing": {"PASS": "332 account please"},
    "account-refused": {"PASS": "332 account please", "ACCT": "530 Account unknown."},
    "too-many": {"greeting": "421 Too many users."},
    "silent": {"USER": lambda it, _: it.stall()},
    "no-epsv": {"EPSV": "500 what?"},
    "no-eprt": {"EPRT": "500 what?"},
    "closed-port": {"EPSV": "229 Extended (|||1|)"},
    "goodbye-once": once("RETR", goodbye, RETR),
    "goodbye-always": {"RETR": goodbye},
    "reset-once": once("LIST", lambda it, _: it.reset(), LIST),
    "idle": once("RETR", lambda it, _: it.transfer(PAGE, "226 done\r\n421 idle") or it.close(), RETR),
    "cut-listing": once("LIST", cut_listing, lambda it, _: it.transfer(LISTING * 5)),
    "cut-page": {"RETR": cut_page(False)},
    "reset-page": {"RETR": cut_page(True)},
    "stalled-reply": {"RETR": lambda it, _: it.stall()},
    "stalled-listing": {"LIST": part_then_stall},
    "no-last-reply": {"RETR": no_last_reply},
    "both-replies": {"RETR": both_replies_at_once},
    "no-goodbye": {"QUIT": lambda it, _: it.stall()},
    "refused": {"RETR": "550 no such page", "LIST": "550 no such directory", "DELE": "550 no",
                "RMD": "550 no"},
    "no-files": {"LIST": "450 No files found"},
    "bare-lf": listing(LISTING.replace(b"\r", b"")),
    "no-last-lf": listing(LISTING + LISTING[:-2]),
    "cr-inside": listing(b"-rw a\rb\r\r\n"),
    "blank-names": listing(LISTING.replace(b"index", b"my page")),
    "latin-1": listing(LISTING.replace(b"index", b"\xfcber")),
    "link": listing(b"lrwxrwxrwx 1 ftp ftp 4 Jan 01 12:00 a -> b\r\n"),
    "total": listing(b"total 4\r\n" + LISTING),
    "hostile": listing(b"-rw ../../etc/passwd\r\n-rw /abs\r\n-rw \x01\x1b[2J\0x\r\n-rw "
                       + b"n" * 10000 + b"\r\n"),
    "endless-line": listing(b"x" * 1000000 for _ in range(200)),
    "many": listing(many_lines(100000)),
    "huge-page": page(b"x" * 65536 for _ in range(HUGE // 65536)),
}


def converse(control, number, log, faults):
    try:
        Conversation(control, number, log).handle(faults)
    except (ConnectionError, OSError):
        pass
    finally:
        control.close()


def main(scenario, log):
    faults = SCENARIOS[scenario]
    listener = socket.socket()
    port = free_port(listener)
    listener.listen()
    print(port, flush=True)
    number = 0
    with open(log, "wb", buffering=0) as lines:
        while True:
            control, _ = listener.accept()
            number += 1
            threading.Thread(target=converse, args=(control, number, lines, faults), daemon=True).start()


main(*sys.argv[1:])
