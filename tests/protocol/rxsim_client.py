#!/usr/bin/env python3
"""A receiver client written from docs/protocol.md, docs/commands.md and docs/simulator.md only.

Runs every verb against `rxsim --listen`, then the protocol's edges: refused lines, the length
limit, one controller at a time, clean connections, per-connection faults and option errors.
Usage: rxsim_client.py PATH/TO/rxsim
"""
import re
import socket
import subprocess
import sys
import time

RXSIM = sys.argv[1]
TIMEOUT = 10
FRAME_HEADER = re.compile(rb"(RE|ER|NT)([0-9A-F]{6})%")


class Receiver:
    """One connection: numbered commands, frames read by length, NMEA and garbage skipped."""

    def __init__(self, address):
        host, port = address.rsplit(":", 1)
        self.sock = socket.create_connection((host.strip("[]"), int(port)), timeout=TIMEOUT)
        self.buffer = b""
        self.next_id = 0

    def close(self):
        self.sock.close()

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
                continue
            if len(self.buffer) < 9:
                self.more()
                continue
            header = FRAME_HEADER.match(self.buffer)
            if not header:  # garbage: resynchronise byte by byte
                self.buffer = self.buffer[1:]
                continue
            length = int(header.group(2), 16)
            while len(self.buffer) < 8 + length + 1:
                self.more()
            body = self.buffer[8 : 8 + length]
            self.buffer = self.buffer[8 + length + 1 :]
            frame_id, payload = body[1:].split(b"%", 1)
            return header.group(1).decode(), frame_id.decode(), payload.decode()

    def send_line(self, line):
        self.sock.sendall(line if isinstance(line, bytes) else line.encode() + b"\r\n")

    def run(self, command):
        """Sends one numbered command; returns (kind, payload) of its answer."""
        self.next_id += 1
        frame_id = str(self.next_id)
        self.send_line(f"%{frame_id}%{command}")
        kind, got_id, payload = self.frame()
        check(got_id == frame_id, f"{command}: answer for id {got_id!r}, wanted {frame_id}")
        return kind, payload

    def expect(self, command, reply=None, kind="RE", pattern=None):
        got_kind, payload = self.run(command)
        check(got_kind == kind, f"{command}: {got_kind} {payload!r}, wanted {kind}")
        if reply is not None:
            check(payload == reply, f"{command}: {payload!r}, wanted {reply!r}")
        if pattern is not None:
            check(re.fullmatch(pattern, payload), f"{command}: {payload!r} !~ {pattern}")
        return payload

    def error(self, command, code):
        return self.expect(command, kind="ER", pattern=r"\{%d,,[^}]*\}" % code)

    def answers_until_sentinel(self):
        """Every frame before the answer to a fresh command: what earlier lines got."""
        self.next_id += 1
        sentinel = str(self.next_id)
        self.send_line(f"%{sentinel}%print,pos/elm")
        seen = []
        while True:
            frame = self.frame()
            if frame[1] == sentinel:
                return seen
            seen.append(frame)


failures = []


def check(condition, message):
    if not condition:
        failures.append(message)
        print("FAIL:", message)


def record(text):
    """{a=1,b={c=2},d="x,y"} -> {'a': '1', 'b': '{c=2}', 'd': '"x,y"'}; {a,b} -> {'a': None, ...}"""
    items, depth, quoted, current = [], 0, False, ""
    body = text[1:-1]
    i = 0
    while i < len(body):
        c = body[i]
        if quoted and c == "\\":
            current += body[i : i + 2]
            i += 2
            continue
        if c == '"':
            quoted = not quoted
        elif not quoted and c in "{[":
            depth += 1
        elif not quoted and c in "}]":
            depth -= 1
        if c == "," and depth == 0 and not quoted:
            items.append(current)
            current = ""
        else:
            current += c
        i += 1
    if current:
        items.append(current)
    return {k: (v[0] if v else None) for k, *v in (item.split("=", 1) for item in items)}


def start(*options):
    process = subprocess.Popen(
        [RXSIM, "--listen", "127.0.0.1:0", *options],
        stdout=subprocess.PIPE,
        stderr=subprocess.PIPE,
        text=True,
    )
    line = process.stdout.readline()
    match = re.match(r"listening on (\S+)", line)
    if not match:
        process.kill()
        sys.exit(f"rxsim did not say where it listens: {line!r} {process.stderr.read()}")
    return process, match.group(1)


def every_verb(rx):
    names = record(rx.expect("list,/", pattern=r"\{.*\}"))
    check("pos" in names and "dev" in names, f"list,/ lacks pos or dev: {names}")
    check(rx.expect("list,pos/elm") == "{}", "a leaf has no members")

    default = rx.expect("print,pos/elm&def", pattern=r"-?\d+")
    rx.expect("set,pos/elm,12", "")
    rx.expect("print,/par/pos/elm", "12")
    rx.expect("PRINT,pos/elm", "12")
    rx.error("set,pos/elm,ten", 2)
    rx.error("set,pos/elm", 3)
    rx.error("print,nothing/here", 1)
    rx.error("print,pos/elm&colour", 1)
    rx.error("set,rcv/model,\"x\"", 2)
    rx.expect("print,rcv/model", pattern=r'".*"')
    rx.expect("init,pos/elm", "")
    rx.expect("print,pos/elm", default)

    port = record(rx.expect("print,dev/ser/a:on", pattern=r"\{.*\}"))
    rx.expect("print,dev/ser/a/rate", port["rate"])
    serial = record(rx.expect("list,dev/ser"))
    rx.expect("print,dev/ser&size", str(len(serial)))

    # Joined lines: replies joined by ';'; a failing part stops the line, earlier parts stay.
    rx.expect("print,pos/elm;print,dev/ser/a/rate", f"{default};{port['rate']}")
    rx.expect("set,pos/elm,1;set,pos/elm,2", ";")
    rx.error("set,pos/elm,3;set,pos/elm,1000;set,pos/elm,4", 2)
    rx.expect("print,pos/elm", "3")
    rx.expect("init,/", "")
    rx.expect("print,pos/elm", default)

    # A list: padded indices, lowest free index, no re-creating, field selection.
    users = "app/notif/watchers"
    rx.expect(f"print,{users}&size", "0")
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
    rx.expect(
        f"print,{users}&[{text},{other},nosuchfield]", f"{{00={empty},01={empty},05={item}}}"
    )
    rx.error(f"print,{users}&[{text},]", 3)
    rx.expect(f"remove,{users}/01", "")
    rx.error(f"remove,{users}/01", 1)
    rx.expect(f"list,{users}", "{00,05}")

    rx.expect("em,/dev/ser/a,nmea/GGA", "")
    rx.expect("em,/dev/ser/a,nmea/GGA", "")
    rx.expect("dm,/dev/ser/a,nmea/GGA", "")
    rx.expect("dm,/dev/ser/a", "")
    rx.error("em,/dev/nowhere,nmea/GGA", 1)
    rx.expect("out,/dev/ser/b,\"hello\\r\\n\"", "")
    rx.error("out,/dev/ser/b,hello", 3)
    if "ntrip" in record(rx.expect("list,dev")):
        rx.error("em,/dev/ntrip/a,nmea/GGA", 2)
        rx.expect("dm,/dev/ntrip/a", "")
    rx.expect('event,"start=1"', "")
    rx.error("event,start", 3)
    rx.error("frobnicate,pos/elm", 4)
    rx.error("reset,no", 3)
    rx.error("power,on", 3)
    for command, notice in (("reset,yes", "reset"), ("power,off", "power,off")):
        rx.expect(command, "")
        check(rx.frame() == ("NT", "", notice), f"{command}: no {notice} notice")

    # A raw line feed inside quotes ends the line: the rest arrives as a command of its own.
    rx.send_line(b'%90%set,pos/elm,"a\nb"\r\n')
    got = rx.answers_until_sentinel()
    check(len(got) == 2 and got[0][:2] == ("ER", "90") and got[1][:2] == ("ER", ""),
          f"raw LF: {got}")


def refused_lines(rx):
    limit = 4096
    head = "%8%print,pos/elm"
    cases = [  # line, the answers it gets as (kind, id, payload)
        (b"%7%\r\n", [("ER", "7", "{3,,bad syntax}")]),
        (b"%a-b%print,pos/elm\r\n", [("ER", "", "{3,,bad syntax}")]),
        (b"%123456789%print,pos/elm\r\n", [("ER", "", "{3,,bad syntax}")]),
        (b"%%print,pos/elm\r\n", [("ER", "", "{3,,bad syntax}")]),
        (b"%5print,pos/elm\r\n", [("ER", "", "{3,,bad syntax}")]),
        (b"  \r\n", []),
        ((head + " " * (limit - len(head))).encode() + b"\r\n", [("RE", "8", None)]),
        ((head + " " * (limit + 1 - len(head))).encode() + b"\r\n",
         [("ER", "8", "{5,,command too long}")]),
        (b"print," + b"x" * 5000 + b"\n", [("ER", "", "{5,,command too long}")]),
        (b"%9%print," + b"x" * (10 << 20) + b"\r\n", [("ER", "9", "{5,,command too long}")]),
    ]
    for line, wanted in cases:
        rx.send_line(line)
        got = rx.answers_until_sentinel()
        shown = line[:24]
        check(len(got) == len(wanted), f"{shown!r}: {len(got)} answers, wanted {len(wanted)}")
        for frame, want in zip(got, wanted):
            check(frame[:2] == want[:2] and want[2] in (None, frame[2]),
                  f"{shown!r}: {frame}, wanted {want}")


def free_connection(address):
    """A served connection, once the receiver has noticed that the previous one closed."""
    for _ in range(100):
        rx = Receiver(address)
        rx.send_line("%0%print,pos/elm")
        frame = rx.frame()
        if frame != ("ER", "", "{6,,port busy}"):
            check(frame[:2] == ("RE", "0"), f"a new connection's first command got {frame}")
            return rx
        rx.close()
        time.sleep(0.05)
    sys.exit("the port never became free again")


def connections(address):
    first = free_connection(address)
    second = Receiver(address)
    check(second.frame() == ("ER", "", "{6,,port busy}"), "a second controller is not told")
    try:
        second.more()
        check(False, "the second controller is not let go")
    except EOFError:
        pass
    second.close()
    first.expect("print,pos/elm", pattern=r"-?\d+")
    # An over-long line left half-sent does not reach the next connection.
    first.send_line(b"%1%print," + b"x" * 6000)
    check(first.frame()[2] == "{5,,command too long}", "over-long line not refused at once")
    first.close()
    free_connection(address).close()


def per_connection_faults():
    process, address = start("--drop-after", "2")
    try:
        for _ in range(2):  # the count starts again with each connection
            rx = Receiver(address)
            rx.expect("print,pos/elm", pattern=r"-?\d+")
            rx.expect("print,pos/elm", pattern=r"-?\d+")
            rx.send_line("%x%print,pos/elm")
            try:
                rx.frame()
                check(False, "--drop-after 2 answered a third command")
            except (EOFError, ConnectionResetError):
                pass
            rx.close()
    finally:
        process.terminate()
        process.wait()


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
        ["--listen", "192.0.2.1:8002"],
        [],
    ):
        result = subprocess.run([RXSIM, *options], capture_output=True, text=True, timeout=TIMEOUT)
        check(result.returncode == 2 and result.stderr.startswith("rxsim: "),
              f"{options}: status {result.returncode}, {result.stderr!r}")
    for loopback in ("localhost:0", "[::1]:0"):
        process = subprocess.Popen([RXSIM, "--listen", loopback], stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE, text=True)
        line = process.stdout.readline()
        if not line and loopback.startswith("[") and "cannot listen" in process.stderr.read():
            process.wait()
            continue  # no IPv6 on this machine
        match = re.match(r"listening on (\S+)", line)
        check(match is not None, f"--listen {loopback}: {line!r}")
        if match:
            rx = Receiver(match.group(1))
            rx.expect("print,pos/elm", pattern=r"-?\d+")
            rx.close()
        process.terminate()
        process.wait()


def main():
    process, address = start()
    try:
        rx = Receiver(address)
        every_verb(rx)
        refused_lines(rx)
        rx.close()
        connections(address)
    finally:
        process.terminate()
        process.wait()
    per_connection_faults()
    option_errors()
    if failures:
        sys.exit(f"{len(failures)} failures")
    print("every verb and edge answered as documented")


main()
