#!/usr/bin/env python3
"""A receiver client written from docs/protocol.md, docs/commands.md and docs/simulator.md only.

Runs every verb against `rxsim --listen`, then the protocol's edges: refused lines, the length
limit, one controller at a time, clean connections, per-connection faults and option errors.
Usage: rxsim_client.py PATH/TO/rxsim
"""
import contextlib
import re
import socket
import subprocess
import sys
import time

RXSIM = sys.argv[1]
TIMEOUT = 10
FRAME_HEADER = re.compile(rb"(RE|ER|NT)([0-9A-F]{6})%")
BUSY = ("ER", "", "{6,,port busy}")
NUMBER = r"-?\d+"
failures = []


def check(condition, message):
    if not condition:
        failures.append(message)
        print("FAIL:", message)


class Receiver:
    """One connection: numbered commands, frames read by length, NMEA and garbage skipped."""

    def __init__(self, address):
        host, port = address.rsplit(":", 1)
        self.sock = socket.create_connection((host.strip("[]"), int(port)), timeout=TIMEOUT)
        self.buffer = b""
        self.next_id = 0

    def more(self):
        chunk = self.sock.recv(65536)
        if not chunk:
            raise EOFError("the receiver closed the connection")
        self.buffer += chunk

    def frame(self):
        """The next frame as (kind, id, payload)."""
        while True:
            if self.buffer.startswith(b"$"):  # NMEA line between frames
                while b"\n" not in self.buffer:
                    self.more()
                self.buffer = self.buffer.split(b"\n", 1)[1]
            elif len(self.buffer) < 9:
                self.more()
            elif header := FRAME_HEADER.match(self.buffer):
                length = int(header.group(2), 16)
                while len(self.buffer) < 8 + length + 1:
                    self.more()
                body, self.buffer = self.buffer[9 : 8 + length], self.buffer[8 + length + 1 :]
                frame_id, payload = body.split(b"%", 1)
                return header.group(1).decode(), frame_id.decode(), payload.decode()
            else:  # garbage: resynchronise byte by byte
                self.buffer = self.buffer[1:]

    def send_line(self, line):
        self.sock.sendall(line if isinstance(line, bytes) else line.encode() + b"\r\n")

    def send(self, command):
        """Sends one numbered command; returns its id."""
        self.next_id += 1
        self.send_line(f"%{self.next_id}%{command}")
        return str(self.next_id)

    def expect(self, command, reply=None, kind="RE", pattern=None):
        """The payload of the answer to `command`, checked against what is wanted of it."""
        frame_id = self.send(command)
        got_kind, got_id, payload = self.frame()
        check(got_id == frame_id, f"{command}: answer for id {got_id!r}, wanted {frame_id}")
        check(got_kind == kind, f"{command}: {got_kind} {payload!r}, wanted {kind}")
        check(reply in (None, payload), f"{command}: {payload!r}, wanted {reply!r}")
        matched = pattern is None or re.fullmatch(pattern, payload)
        check(matched, f"{command}: {payload!r} !~ {pattern}")
        return payload

    def error(self, command, code):
        return self.expect(command, kind="ER", pattern=r"\{%d,,[^}]*\}" % code)

    def answers_until_sentinel(self):
        """Every frame before the answer to a fresh command: what earlier lines got."""
        sentinel = self.send("print,pos/elm")
        seen = []
        while (frame := self.frame())[1] != sentinel:
            seen.append(frame)
        return seen


def record(text):
    """{a=1,b={c=2},d="x,y"} -> {'a': '1', 'b': '{c=2}', 'd': '"x,y"'}; {a,b} -> {'a': None, ...}"""
    items, current, depth, quoted, escaped = [], "", 0, False, False
    for c in text[1:-1]:
        if c == "," and depth == 0 and not quoted:
            items.append(current)
            current = ""
            continue
        current += c
        if escaped:
            escaped = False
        elif quoted:
            escaped, quoted = c == "\\", c != '"'
        elif c in '"{[}]':
            quoted, depth = c == '"', depth + (c in "{[") - (c in "}]")
    if current:
        items.append(current)
    return {k: (v[0] if v else None) for k, *v in (item.split("=", 1) for item in items)}


@contextlib.contextmanager
def rxsim(*options, listen="127.0.0.1:0"):
    """A running rxsim and the address it says it listens on (None when it says none)."""
    command = [RXSIM, "--listen", listen, *options]
    process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    try:
        match = re.match(r"listening on (\S+)", process.stdout.readline())
        if not match:
            process.kill()  # so that what it says on standard error can be read to the end
        yield match and match.group(1), process
    finally:
        process.terminate()
        process.wait()


def every_verb(rx):
    names = record(rx.expect("list,/", pattern=r"\{.*\}"))
    check("pos" in names and "dev" in names, f"list,/ lacks pos or dev: {names}")
    rx.expect("list,pos/elm", "{}")  # a leaf has no members

    default = rx.expect("print,pos/elm&def", pattern=NUMBER)
    rx.expect("set,pos/elm,12", "")
    rx.expect("print,/par/pos/elm", "12")
    rx.expect("PRINT,pos/elm", "12")
    rx.error("set,pos/elm,ten", 2)
    rx.error("set,pos/elm", 3)
    rx.error("print,nothing/here", 1)
    rx.error("print,pos/elm&colour", 1)
    rx.error('set,rcv/model,"x"', 2)
    rx.expect("init,pos/elm", "")
    rx.expect("print,pos/elm", default)

    port = record(rx.expect("print,dev/ser/a:on", pattern=r"\{.*\}"))
    rx.expect("print,dev/ser/a/rate", port["rate"])
    rx.expect("print,dev/ser&size", str(len(record(rx.expect("list,dev/ser")))))

    # Joined lines: replies joined by ';'; a failing part stops the line, earlier parts stay.
    rx.expect("print,pos/elm;print,dev/ser/a/rate", f"{default};{port['rate']}")
    rx.expect("set,pos/elm,1;set,pos/elm,2", ";")
    rx.error("set,pos/elm,3;set,pos/elm,1000;set,pos/elm,4", 2)
    rx.expect("print,pos/elm", "3")
    rx.expect("init,/", "")
    rx.expect("print,pos/elm", default)

    # A list: padded indices, lowest free index, no re-creating, field selection.
    users = "app/notif/watchers"
    rx.expect(f"create,{users}", "0")
    rx.expect(f"create,{users}", "1")
    rx.expect(f"create,{users},5", "5")
    rx.error(f"create,{users},5", 2)
    rx.error(f"create,{users},-1", 2)
    rx.expect(f"list,{users}", "{00,01,05}")
    rx.expect(f"print,{users}&size", "3")
    rx.error(f"print,{users}/5", 1)
    rx.error(f"print,{users}/size", 1)
    fields = record(rx.expect(f"print,{users}/05", pattern=r"\{.*\}"))
    text = next(name for name, value in fields.items() if value and value.startswith('"'))
    other = next(name for name in fields if name != text)
    quoted = r'"a \"b\" c\\d\r\ne"'
    rx.expect(f"set,{users}/05/{text},{quoted}", "")
    rx.expect(f"print,{users}/05/{text}", quoted)
    rx.error(f"set,{users}/05/{text},bare", 3)
    item = f"{{{text}={quoted},{other}={fields[other]}}}"
    empty = f"{{{text}=\"\",{other}={fields[other]}}}"
    rx.expect(f"print,{users}&[{text},{other},nosuchfield]", f"{{00={empty},01={empty},05={item}}}")
    rx.error(f"print,{users}&[{text},]", 3)
    rx.expect(f"remove,{users}/01", "")
    rx.error(f"remove,{users}/01", 1)
    rx.expect(f"list,{users}", "{00,05}")

    for command in ("em,/dev/ser/a,nmea/GGA", "em,/dev/ser/a,nmea/GGA", "dm,/dev/ser/a,nmea/GGA"):
        rx.expect(command, "")
    rx.expect("dm,/dev/ser/a", "")
    rx.error("em,/dev/nowhere,nmea/GGA", 1)
    rx.expect('out,/dev/ser/b,"hello\\r\\n"', "")
    rx.error("out,/dev/ser/b,hello", 3)
    if "ntrip" in record(rx.expect("list,dev")):
        rx.error("em,/dev/ntrip/a,nmea/GGA", 2)
        rx.expect("dm,/dev/ntrip/a", "")
    rx.expect('event,"start=1"', "")
    for command, code in (("event,start", 3), ("nonsense", 4), ("reset,no", 3), ("power,on", 3)):
        rx.error(command, code)
    for command, notice in (("reset,yes", "reset"), ("power,off", "power,off")):
        rx.expect(command, "")
        check(rx.frame() == ("NT", "", notice), f"{command}: no {notice} notice")

    # A raw line feed inside quotes ends the line: the rest arrives as a command of its own.
    rx.send_line(b'%90%set,pos/elm,"a\nb"\r\n')
    got = rx.answers_until_sentinel()
    check([frame[:2] for frame in got] == [("ER", "90"), ("ER", "")], f"raw LF: {got}")


def refused_lines(rx):
    limit = 4096
    head = "%8%print,pos/elm"
    bad_syntax = [("ER", "", "{3,,bad syntax}")]
    too_long = "{5,,command too long}"
    cases = [  # line, the answers it gets as (kind, id, payload)
        (b"%7%\r\n", [("ER", "7", "{3,,bad syntax}")]),
        (b"%a-b%print,pos/elm\r\n", bad_syntax),
        (b"%123456789%print,pos/elm\r\n", bad_syntax),
        (b"%%print,pos/elm\r\n", bad_syntax),
        (b"%5print,pos/elm\r\n", bad_syntax),
        (b"  \r\n", []),
        ((head + " " * (limit - len(head))).encode() + b"\r\n", [("RE", "8", None)]),
        ((head + " " * (limit + 1 - len(head))).encode() + b"\r\n", [("ER", "8", too_long)]),
        (b"print," + b"x" * 5000 + b"\n", [("ER", "", too_long)]),
        (b"%9%print," + b"x" * (10 << 20) + b"\r\n", [("ER", "9", too_long)]),
    ]
    for line, wanted in cases:
        rx.send_line(line)
        got = rx.answers_until_sentinel()
        matches = len(got) == len(wanted) and all(
            frame[:2] == want[:2] and want[2] in (None, frame[2])
            for frame, want in zip(got, wanted)
        )
        check(matches, f"{line[:24]!r}: {got}, wanted {wanted}")


def free_connection(address):
    """A served connection, once the receiver has noticed that the previous one closed."""
    for _ in range(100):
        rx = Receiver(address)
        rx.send_line("%0%print,pos/elm")
        if (frame := rx.frame()) != BUSY:
            check(frame[:2] == ("RE", "0"), f"a new connection's first command got {frame}")
            return rx
        rx.sock.close()
        time.sleep(0.05)
    sys.exit("the port never became free again")


def closes(rx):
    """Whether the receiver closes the connection instead of sending more."""
    try:
        rx.frame()
        return False
    except (EOFError, ConnectionResetError):
        return True
    finally:
        rx.sock.close()


def connections(address):
    first = free_connection(address)
    second = Receiver(address)
    check(second.frame() == BUSY, "a second controller is not told")
    check(closes(second), "the second controller is not let go")
    first.expect("print,pos/elm", pattern=NUMBER)
    # An over-long line left half-sent does not reach the next connection.
    first.send_line(b"%1%print," + b"x" * 6000)
    check(first.frame()[2] == "{5,,command too long}", "over-long line not refused at once")
    first.sock.close()
    free_connection(address).sock.close()


def per_connection_faults():
    with rxsim("--drop-after", "2") as (address, _):
        for _ in range(2):  # the count starts again with each connection
            rx = Receiver(address)
            rx.expect("print,pos/elm", pattern=NUMBER)
            rx.expect("print,pos/elm", pattern=NUMBER)
            rx.send("print,pos/elm")
            check(closes(rx), "--drop-after 2 answered a third command")


def option_errors():
    for options in (
        ["--listen", "127.0.0.1:70000"],
        ["--listen", "127.0.0.1:-1"],
        ["--listen", "127.0.0.1:port"],
        ["--listen", "127.0.0.1"],
        ["--listen", "127.0.0.1:0", "--pty"],
        ["--pty", "--any-address"],
        ["--listen", "127.0.0.1:0", "--latency", "-1"],
        ["--listen", "127.0.0.1:0", "--drop-after", "many"],
        ["--listen", "127.0.0.1:0", "--baud", "0"],
        ["--listen", "127.0.0.1:0", "--observer", "48.1,11.6"],
        ["--listen", "127.0.0.1:0", "--observer", "91,0,0"],
        ["--listen", "127.0.0.1:0", "--observer", "48,1,11,6,520"],
        ["--listen", "127.0.0.1:0", "--hide", "255"],
        ["--listen", "192.0.2.1:8002"],
        [],
    ):
        result = subprocess.run([RXSIM, *options], capture_output=True, text=True, timeout=TIMEOUT)
        check(
            result.returncode == 2 and result.stderr.startswith("rxsim: "),
            f"{options}: status {result.returncode}, {result.stderr!r}",
        )
    for loopback in ("localhost:0", "[::1]:0"):
        with rxsim(listen=loopback) as (address, process):
            if not address and loopback.startswith("["):
                if "cannot listen" in process.stderr.read():
                    continue  # no IPv6 on this machine
            check(address is not None, f"--listen {loopback} says no address")
            if address:
                Receiver(address).expect("print,pos/elm", pattern=NUMBER)


def main():
    with rxsim() as (address, process):
        if not address:
            sys.exit(f"rxsim did not say where it listens: {process.stderr.read()}")
        rx = Receiver(address)
        every_verb(rx)
        refused_lines(rx)
        rx.sock.close()
        connections(address)
    per_connection_faults()
    option_errors()
    if failures:
        sys.exit(f"{len(failures)} failures")
    print("every verb and edge answered as documented")


main()
