#!/usr/bin/env python3
"""Eight programs at a time draw, import, store and export in one project on a database server, some
of them are killed, and twice the server is started again. Afterwards every row, result, mark and
sheet that a program has reported done must be there.

    tools/test_server.sh tests/system/server_rounds.py GRDX SAMPLES SECONDS
"""
import collections
import json
import os
import pathlib
import random
import re
import subprocess
import sys
import tempfile
import threading
import time

LONGEST = 90  # seconds; a program that takes longer hangs
# What may stop a program: the server that goes, somebody else's change, a lock that stays.
EXCUSES = re.compile("connection|server|shutting down|starting up|recovery mode|"
                     "somebody else|database is locked")


class Project:
    """What the programs have reported done, and what went wrong."""

    def __init__(self, grdx, samples, scratch, seconds):
        self.grdx, self.samples, self.scratch = grdx, samples, scratch
        self.deadline = time.monotonic() + seconds
        self.lock = threading.Lock()
        self.done = collections.Counter()
        self.faults, self.sheets, self.imported, self.drawn = [], set(), {}, set()

    def goes_on(self):
        return time.monotonic() < self.deadline

    def note(self, what, fault=None):
        with self.lock:
            self.done[what] += 1
            if fault:
                self.faults.append(fault)

    def run(self, what, *words, kill=None, text=None):
        """The finished call's status and output; a failure that nothing excuses is a fault."""
        call = subprocess.Popen([self.grdx, *words], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, text=True)
        if kill is not None:
            threading.Timer(kill, call.kill).start()
        try:
            output, errors = call.communicate(text, timeout=LONGEST)
        except subprocess.TimeoutExpired:
            call.kill()
            self.note("hung", f"{' '.join(words)}: hangs")
            return -1, ""
        killed = kill is not None and call.returncode < 0
        excused = call.returncode == 1 and EXCUSES.search(errors)
        self.note("killed" if killed else what if call.returncode == 0 else
                  f'excused by "{excused[0]}"' if excused else "failed",
                  None if call.returncode == 0 or killed or excused
                  else f"{' '.join(words)}: {call.returncode} {errors}")
        return call.returncode, output

    def attach(self, name):
        folder = str(self.scratch / name)
        while self.run("attached", "new", folder, "--project", "1", "--database",
                       os.environ["GRDX_TEST_SERVER"])[0] != 0:
            time.sleep(0.2)
        return folder


def draws(project, folder, boreholes):
    while project.goes_on():
        borehole = random.choice(boreholes)
        status, output = project.run("drawn", "draw", "samples", "--borehole", borehole, "--all",
                                     "-s", folder)
        with project.lock:
            project.sheets.update(output.splitlines())
            if status == 0:
                project.drawn.add((folder, borehole))


def draws_layers(project, folder):
    while project.goes_on():
        status, output = project.run("layers drawn", "draw", "layers", "--all", "-s", folder)
        with project.lock:
            project.sheets.update(output.splitlines())


def table(rows):
    return "borehole,sample,total,size,mass\n" + "".join(f"{row}\n" for row in rows)


def imports(project, folder, name):
    number = 0
    while project.goes_on():
        number += 1
        keys = [(f"{name}{number}", str(sample)) for sample in range(20)]
        mass = random.randint(10, 90)
        status, _ = project.run("imported", "import", "samples", "-", "-s", folder, text=table(
            f"{borehole},{sample},100,{size},{part}" for borehole, sample in keys
            for size, part in ((2, mass), (0, 100 - mass))))
        if status == 0:
            with project.lock:
                project.imported.update((key, mass) for key in keys)


def exports(project, folder):
    while project.goes_on():
        with project.lock:
            before = set(project.imported)
        file = pathlib.Path(folder, "out.json")
        if project.run("exported", "export", "results", str(file), "-s", folder)[0] == 0:
            found = {(row["borehole"], row["sample"]) for row in json.loads(file.read_text())}
            if not before <= found:
                project.note("export", f"an export lacks {len(before - found)} samples")


def is_killed(project, folder):
    """Draws and imports what others do not, and is killed now and then."""
    while project.goes_on():
        kill = random.uniform(0.01, 0.6)
        borehole = f"X{random.randint(1, 9)}"
        project.run("drawn", "draw", "samples", "--borehole", "探4", "--all", "-s", folder, kill=kill)
        project.run("imported", "import", "samples", "-", "-s", folder, kill=kill, text=table(
            f"{borehole},{sample},100,2,{random.randint(1, 50)}" for sample in range(200)))


def restarts(project, seconds):
    for mode in ("fast", "immediate"):
        time.sleep(seconds / 3)
        subprocess.run([*os.environ["GRDX_TEST_SERVER_CONTROL"].split(), "restart", "-w", "-m", mode],
                       check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def check(project, folders):
    """What the server and the folders have now against what was reported."""
    listing = json.loads(project.run("listed", "list", "--json", "-s", folders[0])[1])
    rows = {(hole["borehole"], sample["sample"]): sample
            for hole in listing["boreholes"] for sample in hole["samples"]}
    items = project.run("exported", "export", "items", "-", "-s", folders[0])[1].splitlines()
    masses = {tuple(line.split(",")[:2]): line.split(",")[7] for line in items[1:]
              if line.split(",")[6] == "2"}
    for key, mass in project.imported.items():
        if rows.get(key, {}).get("sieves") != 2 or masses.get(key) != str(mass):
            project.note("rows", f"{key}: {mass} was reported, there is {rows.get(key)}")
    partly = [key for key, row in rows.items() if row["sieves"] == 0 or not row["hasResultRow"]]
    if partly:
        project.note("rows", f"stored by halves: {partly}")
    for folder, borehole in project.drawn:
        listing = json.loads(project.run("listed", "list", "--json", "-s", folder)[1])
        for hole in listing["boreholes"]:
            for sample in hole["samples"] if hole["borehole"] == borehole else ():
                if not sample["drawn"] or sample["results"]["d50"] is None:
                    project.note("results", f"{folder} {borehole} {sample}: reported drawn")
    sheets = sorted(project.sheets)
    if project.run("read", "info", *sheets)[0] != 0 or not sheets:
        project.note("sheets", "not all sheets are whole")


def main(grdx, samples, seconds):
    with tempfile.TemporaryDirectory() as scratch:
        project = Project(grdx, samples, pathlib.Path(scratch), seconds)
        base = str(project.scratch / "base")
        for words in (["new", base, "--number", "2026-017", "--database",
                       os.environ["GRDX_TEST_SERVER"]],
                      ["import", "samples", f"{samples}/samples.csv", "-s", base],
                      ["import", "layers", f"{samples}/layers.csv", "-s", base]):
            if project.run("made", *words)[0] != 0:
                sys.exit(project.faults)
        folders = [base] + [project.attach(f"folder{n}") for n in range(1, 6)]
        programs = [(draws, base, ["ZK1"]), (draws, base, ["ZK2"]),  # two in one folder
                    (draws, folders[1], ["ZK3"]), (draws_layers, folders[1]),
                    (imports, folders[2], "A"), (imports, folders[3], "B"),
                    (exports, folders[4]), (is_killed, folders[5])]
        threads = [threading.Thread(target=call, args=(project, *given))
                   for call, *given in programs]
        threads.append(threading.Thread(target=restarts, args=(project, seconds)))
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        check(project, folders)
    for fault in project.faults:
        print(fault)
    print(f"{seconds:g} s:", ", ".join(f"{count} {what}" for what, count in project.done.items()),
          f"{len(project.sheets)} sheets, {len(project.imported)} samples, "
          f"{len(project.faults)} faults", sep="; ")
    return 1 if project.faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], pathlib.Path(sys.argv[2]), float(sys.argv[3])))
