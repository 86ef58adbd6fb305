#!/usr/bin/python3
"""Records the frames of a real session with a hub, and sends them again and again, each time with some that are changed.
A session has to end with a frame that says why, or be answered. frames.py HUB SECONDS PLAYER FOM [SEED]"""
import random
import socket
import struct
import subprocess
import sys
import threading
import time

CLOSING = 2
HOSTILE = [struct.pack(">I", each) for each in (0xFFFFFFFF, 0, 1, 0x7FFFFFFF, 0x80000000, 0x10000, 0x4000000, 0x40000001)]
ACTIONS = ("person", "regulate", "constrain", "greet 3", "advance 5", "save x", "resign", "disconnect")

host, port = sys.argv[1].split(":")
seconds, player, fom = sys.argv[2:5]
seed = int(sys.argv[5]) if len(sys.argv) > 5 else time.time_ns()
dice = random.Random(seed)


def connect():
    return socket.create_connection((host, int(port)), timeout=10)


def framed(frame):
    return struct.pack(">i", len(frame)) + frame


def frames_from(connection):
    stream = connection.makefile("rb")
    while len(length := stream.read(4)) == 4:
        yield stream.read(*struct.unpack(">i", length))


def record():
    """What a federate sends that lies between itself and the hub."""
    def answer():
        while octets := hub.recv(1 << 16):
            there.sendall(octets)

    with socket.create_server(("127.0.0.1", 0)) as server, subprocess.Popen(
            player, stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, text=True) as federate:
        begin = "connect hub=127.0.0.1:%d" % server.getsockname()[1], "create " + fom, "join fuzzed"
        federate.stdin.write("\n".join([*begin, *ACTIONS, ""]))
        federate.stdin.close()
        there = server.accept()[0]
        with there, connect() as hub:
            threading.Thread(target=answer, daemon=True).start()
            frames = []
            for frame in frames_from(there):
                frames.append(frame)
                hub.sendall(framed(frame))
            return frames


def mutated(frame):
    at = dice.randrange(len(frame))
    hostile = dice.choice(HOSTILE)
    return dice.choice((
        framed(frame[:at] + bytes([frame[at] ^ 1 << dice.randrange(8)]) + frame[at + 1:]),
        framed((frame[:at] + hostile + frame[at + 4:])[:len(frame)]),
        framed(frame[:at]),
        framed(bytes([dice.randrange(20)]) + frame[1:]),
        hostile + frame))


def session(frames):
    """Whether the hub has said why it ends the connection."""
    with connect() as hub:
        changed = 1 + dice.randrange(len(frames) * 2)
        try:
            for i, frame in enumerate(frames):
                as_is = i == 0 and dice.randrange(8) != 0 or dice.randrange(len(frames)) >= changed
                hub.sendall(framed(frame) if as_is else mutated(frame))
            hub.shutdown(socket.SHUT_WR)
        except OSError:
            pass  # it has ended the connection already
        said = False
        try:
            for frame in frames_from(hub):
                said = frame[0] == CLOSING
        except TimeoutError:
            raise AssertionError("the hub leaves a connection open that has ended") from None
        except OSError:
            pass
        return said


recorded = record()
end = time.monotonic() + float(seconds)
reasons = []
while time.monotonic() < end:
    reasons.append(session(recorded))
print("fuzzed with seed %d: %d frames, %d sessions, %d ended by the hub with a reason"
      % (seed, len(recorded), len(reasons), sum(reasons)))
assert any(reasons), "the hub takes everything"
