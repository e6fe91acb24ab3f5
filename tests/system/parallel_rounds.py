#!/usr/bin/env python3
"""Draws, reshapes and stores in one project by four programs at a time, and compares what they
leave with what the same programs leave one after the other: every mark, row and sheet.

    parallel_rounds.py GRDX SAMPLES ROUNDS
"""
import pathlib
import shutil
import sqlite3
import subprocess
import sys
import tempfile

SAMPLES = ["draw", "samples", "--date", "2026-05-20", "--borehole"]
GROUPS = [
    [[*SAMPLES, "ZK1", *(f"--sample={n}" for n in (1, 2, 3, 4))],
     [*SAMPLES, "ZK1", *(f"--sample={n}" for n in (5, 6, 7, 8))],
     [*SAMPLES, "ZK2", "--all"],
     ["draw", "layers", "--date", "2026-05-20", "--all"]],
    [[*SAMPLES, "ZK3", *(f"--sample={n}" for n in (1, 2))],
     [*SAMPLES, "ZK3", *(f"--sample={n}" for n in (3, 4, 5, 6, 7))],
     [*SAMPLES, "探4", "--all"],
     ["script", "{samples}/reshape.scr"]],
]


def run(grdx, calls, suite):
    """Starts the calls together and waits for all."""
    runs = [subprocess.Popen([grdx, *call, "-s", suite], stdout=subprocess.DEVNULL,
                             stderr=subprocess.PIPE) for call in calls]
    faults = [one.communicate()[1].decode() for one in runs]
    return [f"{' '.join(call)}: {one.returncode} {fault}"
            for call, one, fault in zip(calls, runs, faults) if one.returncode != 0]


def profile(path):
    """Values by section and key, marks as sets: their order is that of the runs."""
    values, section = {}, ""
    for line in path.read_bytes().decode("gbk").split("\n"):
        key, equals, value = line.strip().partition("=")
        section = section if equals else key
        if equals:
            values[section, key] = frozenset(value.split("@"))
    return values


def rows(path):
    """Of the file alone, as somebody finds them who copies it without its log."""
    database = sqlite3.connect(f"file:{path}?immutable=1", uri=True)
    tables = [name for name, in database.execute("select name from sqlite_master where type='table'")]
    return {name: sorted(map(repr, database.execute(f"select * from {name}"))) for name in tables}


def traces(suite):
    readers = {".ini": profile, ".db": rows}
    # Programs that end at the same moment may leave the database's log there.
    return {str(path.relative_to(suite)): readers.get(path.suffix, pathlib.Path.read_bytes)(path)
            for path in sorted(suite.rglob("*"))
            if path.is_file() and not path.name.endswith(("-wal", "-shm"))}


def main(grdx, samples, rounds):
    groups = [[[word.format(samples=samples) for word in call] for call in group]
              for group in GROUPS]
    wrong = 0
    with tempfile.TemporaryDirectory() as scratch:
        empty, serial = pathlib.Path(scratch, "empty"), pathlib.Path(scratch, "serial")
        subprocess.run([grdx, "new", empty, "--number", "2026-017"], check=True)
        for kind in ("samples", "layers"):
            subprocess.run([grdx, "import", kind, samples / f"{kind}.csv", "-s", empty], check=True)
        shutil.copytree(empty, serial)
        faults = [fault for group in groups for call in group
                  for fault in run(grdx, [call], serial)]
        wanted = traces(serial)
        sheets = sum(name.endswith(".dwg") for name in wanted)
        if faults or sheets < 20:
            sys.exit(f"one after the other: {sheets} drawings {faults}")
        for number in range(rounds):
            suite = pathlib.Path(scratch, f"round{number}")
            shutil.copytree(empty, suite)
            faults = [fault for group in groups for fault in run(grdx, group, suite)]
            left = traces(suite)
            faults += [f"{name} differs" for name in sorted(wanted.keys() | left.keys())
                       if wanted.get(name) != left.get(name)]
            wrong += bool(faults)
            for fault in faults:
                print(f"round {number + 1}: {fault}", flush=True)
            shutil.rmtree(suite)
    print(f"{rounds} rounds of eight programs, {sheets} drawings each: {wrong} wrong")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], pathlib.Path(sys.argv[2]), int(sys.argv[3])))
