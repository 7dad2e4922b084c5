#!/usr/bin/env python3
"""A receiver that speaks only NMEA: replays a capture to one TCP client and never answers.

Usage: replay_nmea.py CAPTURE RECEIVED [--close]
Prints the port it listens on (127.0.0.1), sends the capture's sentences to the first client,
then keeps the connection open (or closes it with --close) and writes every line the client sent
to RECEIVED. Gives up after 30 seconds.
"""
import socket
import sys


def main():
    capture, received_path = sys.argv[1], sys.argv[2]
    close_after = "--close" in sys.argv[3:]
    with open(capture, "rb") as f:
        sentences = b"".join(line.rstrip(b"\r\n") + b"\r\n" for line in f if line.startswith(b"$"))
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
    with open(received_path, "wb") as f:
        f.write(received)


if __name__ == "__main__":
    main()
