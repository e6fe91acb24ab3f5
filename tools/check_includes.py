#!/usr/bin/env python3
"""Checks that every #include follows the arrows between the rooms.

A room may include itself and the rooms named here. CMake's link lists say the same to the linker;
this says it to headers that need no linking.
"""
import pathlib
import re
import sys

PLATFORM = {
    "platform/win32": [],
    "platform/suite": ["platform/oledb", "platform/win32"],
    "platform/rx": ["platform/win32"],
    "platform/ge": [],
    "platform/gi": ["platform/ge", "platform/rx", "platform/win32"],
    "platform/db": ["platform/gi", "platform/ge", "platform/rx", "platform/win32"],
    "platform/dwg": ["platform/db", "platform/gi", "platform/ge", "platform/rx", "platform/win32"],
    "platform/ed": ["platform/db", "platform/ge", "platform/rx", "platform/win32"],
    "platform/mfc": ["platform/win32", "platform/rx"],
    "platform/ap": ["platform/ed", "platform/db", "platform/ge", "platform/rx", "platform/mfc",
                    "platform/win32"],
    "platform/oledb": ["platform/win32"],
}
SRC = {
    "src/facts": [],
    "src/common": [],
    "src/core": ["src/facts"],
    "src/db": ["src/core", "src/facts", "src/common"],
    "src/entity": ["src/db", "src/core", "src/facts", "src/common"],
    "src/chart": ["src/entity", "src/db", "src/core", "src/facts", "src/common"],
    "src/ui": ["src/db", "src/core", "src/facts", "src/common"],
    "src/edit": ["src/entity", "src/db", "src/core", "src/facts", "src/common"],
    "src/frame": ["src/ui", "src/chart", "src/edit", "src/entity", "src/db", "src/core",
                  "src/facts", "src/common"],
}
# What both sides of the load boundary share: pure calculation, and facts that both must agree on.
SHARED = ["src/core", "src/facts"]
# The plug-in knows the published interfaces, never the drawing file behind them.
SRC_PLATFORM = [room for room in PLATFORM if room != "platform/dwg"]


def allowed(room):
    if room in PLATFORM:
        return [room, *PLATFORM[room]]
    if room in SRC:
        return [room, *SRC[room], *SRC_PLATFORM]
    if room == "host":
        return ["host", "platform/"]
    if room == "lab":
        return ["lab", *SHARED, "platform/"]
    if room == "apps/plot":
        return [room, "apps/paint", "apps/terminal", "host", "platform/"]
    if room == "apps/desk":
        return [room, "apps/paint", "apps/windows", "lab", *SHARED, "host", "platform/"]
    if room == "apps/grdx":
        return [room, "apps/terminal", "lab", *SHARED, "host", "platform/"]
    if room == "apps/terminal":
        return [room]
    return [room, "host", "platform/"]


def room_of(path):
    parts = path.split("/")
    return "/".join(parts[:2]) if parts[0] in ("platform", "src", "apps") else parts[0]


def main():
    root = pathlib.Path(__file__).resolve().parent.parent
    faults = []
    for top in ("platform", "src", "host", "lab", "apps"):
        for path in sorted((root / top).rglob("*")):
            if path.suffix not in (".h", ".cpp"):
                continue
            name = path.relative_to(root).as_posix()
            rooms = allowed(room_of(name))
            for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
                match = re.match(r'\s*#include "([^"]+)"', line)
                if match and not any(match[1].startswith(room.rstrip("/") + "/") for room in rooms):
                    faults.append(f"{name}:{number}: {room_of(name)} may not know {match[1]}")
    print(*faults, sep="\n", end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
