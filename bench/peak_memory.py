#!/usr/bin/env python3
"""Runs a command and writes its peak memory, in MB, to a file.

usage: peak_memory.py FILE COMMAND...
"""
import resource
import subprocess
import sys

status = subprocess.run(sys.argv[2:], check=False).returncode
peak = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss / 1024
with open(sys.argv[1], "w", encoding="ascii") as file:
    file.write(f"{peak:.1f}")
sys.exit(status)
