#!/usr/bin/python3
"""Runs a command, its output thrown away, and prints its seconds and its peak memory in MB.

usage: measure.py COMMAND...
"""
import resource
import subprocess
import sys
import time

start = time.perf_counter()
status = subprocess.run(sys.argv[1:], stdout=subprocess.DEVNULL, check=False).returncode
seconds = time.perf_counter() - start
peak = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss / 1024
print(f"{seconds:.6f} {peak:.1f}")
sys.exit(status)
