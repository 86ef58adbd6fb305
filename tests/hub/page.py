#!/usr/bin/python3
"""The page of a hub in a browser, while federates play. page.py HUB PLAYER FOM"""
import re
import subprocess
import sys
import time
import urllib.error
import urllib.request

from browser import browser, text
from programs import Program, start, within

hub_path, player_path, fom = sys.argv[1:]
hub, address = start(hub_path, "--web", "127.0.0.1:0")
page = hub.line("page at (.*)")[1]
connect = "connect hub=" + address


def get(path, host=None, method="GET"):
    headers = {"Host": host} if host else {}
    request = urllib.request.Request(page + path, headers=headers, method=method)
    try:
        with urllib.request.urlopen(request, timeout=20) as answer:
            return answer.status, answer.read().decode()
    except urllib.error.HTTPError as e:
        return e.code, ""


assert get("healthz") == (200, "ok\n")
assert get("nothing")[0] == 404 and get("", method="POST")[0] == 405
assert get("api/federations", host="elsewhere.example")[0] == 403  # a name that has come to mean this machine

players = {}


def play(name, *actions):
    players[name] = Program(player_path)
    players[name].tell(connect, *(["create " + fom] if len(players) == 1 else []), "join " + name, *actions)


def cell(federate, column):
    return browser.execute_script(
        "const row = Array.from(document.querySelectorAll('#federates tbody tr')).find(each =>"
        " each.cells[0].textContent === arguments[0]);"
        "return row && Array.from(row.cells).find(each => each.dataset.label === arguments[1]).textContent",
        federate, column)


try:
    browser.get(page)
    assert within(20, lambda: "There is no federation" in text("#none"))
    evil = "<script>document.title='taken'</script>"
    play("tower", "person", "constrain", "regulate 60")
    play("radar", "constrain", "regulate 60")
    play("plane", "person", "constrain", "regulate 60")
    play(evil)
    assert within(20, lambda: cell("radar", "Type") == "participant"), text("body")
    assert within(20, lambda: cell("plane", "Time management") == "regulating, constrained")

    for step in range(1, 4):
        for name, size, every in (("tower", 20, 1), ("radar", 10, 1), ("plane", 60, 3)):
            players["tower"].tell("update 5")
            if step % every == 0:
                players[name].tell("advance %d" % (step * 20 // size * size))
            time.sleep(0.4)
        players["plane"].tell("update 12", "greet 3")
    assert within(20, lambda: float(cell("tower", "Time")) >= 40), cell("tower", "Time")
    assert cell(evil, "State") == "no time management"

    players["radar"].tell("advance 170")
    players["plane"].tell("advance 180")
    answer = r"radar and plane wait for tower, which has not asked for an advance for \d+ s"
    assert within(30, lambda: re.search(answer, text("#waits"))), text("#waits")
    assert "Person" in text("#objects") and "Greeting" in text("#interactions")
    drawn = "return Array.from(document.querySelectorAll('#%s .curve'), each => each.getAttribute('d').length > 20)"
    assert all(browser.execute_script(drawn % "times")) and len(browser.execute_script(drawn % "times")) == 3
    assert len(browser.execute_script(drawn % "rates")) == 2

    players["tower"].process.kill()
    assert within(20, lambda: "Nobody is held up" in text("#waits")), text("#waits")
    assert re.search(r"lost\s*tower\s*Meeting\s*its connection is closed", text("#events")), text("#events")
    assert cell("tower", "Type") is None and browser.title.endswith("Meeting")

    status, metrics = get("metrics")
    assert re.search(r'^rti1516e_updates_sent_total\{federation="Meeting",federate="plane",class="[^"]*Person"} \d+$',
                     metrics, re.M), metrics
    assert 'rti1516e_events_total{event="lost"} 1\n' in metrics, metrics
    listed = subprocess.run([hub_path, "--list", page.split("/")[2]], capture_output=True, text=True, check=True)
    assert re.search(r"^  radar .* advancing to|^  radar .* granted", listed.stdout, re.M), listed.stdout

    hub.process.terminate()
    assert within(20, lambda: "No connection" in text("#link")), text("#link")
    print("the page shows who is in, whose time moves, who waits for whom, and who is lost")
finally:
    browser.quit()
