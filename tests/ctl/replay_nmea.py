#!/usr/bin/env python3
"""A receiver that speaks only NMEA: replays a capture to one client and never answers.

Usage: replay_nmea.py CAPTURE RECEIVED [--close] [--pty]
Prints the port it listens on (127.0.0.1) and sends the capture's sentences to the first client,
then keeps the connection open (or closes it with --close). With --pty it prints the serial
device to open and sends the capture over and over until the client's stop line. Writes every
line the client sent to RECEIVED. Gives up after 30 seconds.
"""
import os
import select
import socket
import sys
import time
import tty


def serve_tcp(sentences, close_after):
    server = socket.socket(socket.AF_INET, socket.SOCK_STREAM)
    server.bind(("127.0.0.1", 0))
    server.listen(1)
    server.settimeout(30)
    print(server.getsockname()[1], flush=True)
    client, _ = server.accept()
    client.settimeout(30)
    client.sendall(sentences)
    received = b""
    if close_after:
        client.close()
    else:
        try:
            while chunk := client.recv(4096):
                received += chunk
        except (socket.timeout, ConnectionResetError):
            pass
    return received


def serve_pty(sentences):
    # A serial line has no connection: the sentences flow whether or not anyone listens, as from
    # a real receiver, until the reader sends its stop line.
    master, slave = os.openpty()
    tty.setraw(slave)
    os.set_blocking(master, False)
    print(os.ttyname(slave), flush=True)
    received = b""
    deadline = time.monotonic() + 30
    position = 0
    while time.monotonic() < deadline and b"dm," not in received:
        readable, _, _ = select.select([master], [], [], 0.01)
        if readable:
            received += os.read(master, 4096)
        try:
            position += os.write(master, sentences[position:position + 115])
        except BlockingIOError:
            pass
        position %= len(sentences)
    os.close(slave)
    os.close(master)
    return received


def main():
    capture, received_path = sys.argv[1], sys.argv[2]
    with open(capture, "rb") as f:
        sentences = b"".join(line.rstrip(b"\r\n") + b"\r\n" for line in f if line.startswith(b"$"))
    if "--pty" in sys.argv[3:]:
        received = serve_pty(sentences)
    else:
        received = serve_tcp(sentences, "--close" in sys.argv[3:])
    with open(received_path, "wb") as f:
        f.write(received)


if __name__ == "__main__":
    main()
