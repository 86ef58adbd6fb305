#!/usr/bin/python3
"""What a hub records, read, compared and played. recording.py HUB REPLAY PLAYER FOM"""
import os
import re
import subprocess
import sys
import tempfile
import time

from programs import Program, start, within

hub_path, replay_path, player_path, fom = sys.argv[1:]
folder = tempfile.TemporaryDirectory()


def replay(status, *arguments):
    done = subprocess.run([replay_path, *arguments], capture_output=True, text=True, timeout=120)
    assert done.returncode == status, (arguments, done.stdout, done.stderr)
    return done.stdout + done.stderr


def lines(text, *patterns):
    at = 0
    for pattern in patterns:
        found = re.compile(pattern, re.M).search(text, at)
        assert found, (pattern, text)
        at = found.end()


first = os.path.join(folder.name, "first")
process, address = start(hub_path, "--record", first)
ada, ben = (Program(player_path) for _ in range(2))
ada.tell("connect hub=" + address, "create " + fom, "join ada", "constrain")
ben.tell("connect hub=" + address, "join ben", "regulate 5", "person")
ben.tell("update 2", "greet 1", "advance 20")
ada.tell("advance 10")
assert within(30, lambda: ada.line("< grant"))
assert not ada.attempt("advance 5") and ada.line("failed .*has reached 10 already"), ada.lines
ben.process.kill()
ada.tell("resign", "disconnect")
time.sleep(1.5)
process.process.kill()  # all but the last second is there

text = replay(0, first)
lines(text, r"^recorded from ", r"\[/127\.0\.0\.1:\d+\] has connected",
      r"-> joinFederationExecution\(\"ada\", \"participant\", \"Meeting\", \[]\)",
      r"\[ada] <- discoverObjectInstance\(HLAobject-\d+, HLAobjectRoot\.Person, ",
      r"\[ben] -> updateAttributeValues\(HLAobject-\d+, {Place: <00 00 00 00>}, tag <>\)",
      r"\[ada] <- reflectAttributeValues\(HLAobject-\d+, {Place: <00 00 00 00>}, tag <>, Receive, HLAreliable",
      r"\[ada] <- timeAdvanceGrant\(time 10\)", r"timeAdvanceRequest ! LogicalTimeAlreadyPassed: ",
      r"\[ben] is disconnected: ", r"here the recording is cut off")
chosen = replay(0, first, "--federate", "ben", "--service", "updateAttributeValues").splitlines()[1:-1]
assert len(chosen) == 2 and all("[ben] -> update" in each for each in chosen), chosen
person = re.search(r"HLAobject-\d+", text)[0]
assert len(replay(0, first, "--object", person, "--until", "3600").splitlines()) >= 6
assert replay(0, first, "--from", "3600").count("\n") == 2
lines(replay(2, fom), "is no recording")

second = os.path.join(folder.name, "second")
process, address = start(hub_path, "--record", second)
assert replay(0, first, "--play", address).endswith(": 0 answers differ, 0 callbacks did not come\n")
process.process.terminate()
process.process.wait(20)
assert "cut off" not in replay(0, second)
assert replay(0, first, "--compare", second) == "no difference\n"

_, address = start(hub_path)
guest = Program(player_path)
guest.tell("connect hub=" + address, "create " + fom)
lines(replay(1, first, "--play", address), "then createFederationExecution succeeded; now "
      "createFederationExecution: FederationExecutionAlreadyExists", "services played: 1 answers differ")

third = os.path.join(folder.name, "third")
_, address = start(hub_path, "--record", third)
guest = Program(player_path)
guest.tell("connect hub=" + address, "create " + fom, "join ada", "regulate 7", "resign", "disconnect")
time.sleep(1)
lines(replay(1, first, "--compare", third), r"what ada calls differs at its line \d+:",
      r"-> enableTimeConstrained\(\)", r"-> enableTimeRegulation\(7\)")
print("what is recorded can be read, compared and played")
