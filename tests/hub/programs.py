"""Processes that tests talk to, and that end with them."""
import atexit
import re
import subprocess
import threading
import time


class Program:
    """A process and the lines that it prints."""

    def __init__(self, *command):
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        atexit.register(self.process.kill)
        self.lines = []
        threading.Thread(target=lambda: self.lines.extend(iter(self.process.stdout.readline, "")), daemon=True).start()

    def line(self, pattern):
        return next(filter(None, (re.match(pattern, each) for each in list(self.lines))), None)

    def attempt(self, action):
        """Whether the action succeeds."""
        self.lines.clear()
        self.process.stdin.write(action + "\n")
        self.process.stdin.flush()
        assert within(30, lambda: self.line("(done|failed) ")), action
        return self.line("done ")

    def tell(self, *actions):
        for action in actions:
            assert self.attempt(action), self.lines


def within(seconds, condition):
    end = time.monotonic() + seconds
    result = condition()
    while not result and time.monotonic() < end:
        time.sleep(0.02)
        result = condition()
    return result


def start(hub, *options):
    """A hub, and where its federates connect."""
    process = Program(hub, "--listen", "127.0.0.1:0", *options)
    assert within(30, lambda: process.line("listening on ")), process.lines
    return process, process.line("listening on (.*)")[1]
