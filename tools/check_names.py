#!/usr/bin/env python3
"""Checks that a name leads to one place.

No two headers define a class of one name, and no two rooms have a file of one name. A file in
CamelCase is named after the class that it holds; every other name is in lower case.
"""
import collections
import pathlib
import re
import sys

TOPS = ("platform", "src", "host", "lab", "apps")
# Each program has the one, and hands on the other of the room below.
SHARED = {"main", "Failure"}
CLASS = re.compile(r"^(?:class|struct|enum|enum class|union) (\w+)(?: final)?(?: : [^;{]*)?(?: \{|$)", re.M)
LOWER = re.compile(r"[a-z][a-z0-9]*(_[a-z0-9]+)*")


def room_of(path):
    parts = path.split("/")
    return "/".join(parts[:2]) if parts[0] in ("platform", "src", "apps") else parts[0]


def main():
    root = pathlib.Path(__file__).resolve().parent.parent
    files = [path for top in TOPS for path in sorted((root / top).rglob("*"))
             if path.suffix in (".h", ".cpp")]
    homes = collections.defaultdict(set)
    holders = collections.defaultdict(set)
    faults = []
    for path in files:
        name = path.relative_to(root).as_posix()
        if "/calls/" not in name:  # named after what is typed
            homes[path.stem].add(room_of(name))
        text = path.read_text(encoding="utf-8")
        classes = set(CLASS.findall(text))
        if path.suffix == ".h":
            for each in classes:
                holders[each].add(name)
        own = path.with_suffix(".h")
        if LOWER.fullmatch(path.stem):
            continue
        if own.exists():
            classes |= set(CLASS.findall(own.read_text(encoding="utf-8")))
        if not any(path.stem.startswith(each) for each in classes | {p.stem for p in path.parent.glob("*.h")}):
            faults.append(f"{name}: neither in lower case nor named after a class in it")
    faults += [f"{stem}: files of this name in {', '.join(sorted(rooms))}"
               for stem, rooms in homes.items() if len(rooms) > 1 and stem not in SHARED]
    faults += [f"{each}: defined in {', '.join(sorted(names))}"
               for each, names in holders.items() if len(names) > 1]
    print(*faults, sep="\n", end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
