"""Runs a test program and fails unless it printed its results.

Usage: expect_results.py COMMAND [ARGS...]

A GoogleTest program reports "[  PASSED  ] N tests." once it has run all its
tests. Under Wine a program can end without getting there and still exit
with 0: when the wineserver goes down (it does when a window is asked for
while the handle table is full), its programs die with it and report
success. Such a run fails here, and so does one whose status is not 0.
"""
import re
import subprocess
import sys


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    process = subprocess.Popen(sys.argv[1:], stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    finished = False
    for raw in process.stdout:
        line = raw.decode("utf-8", "replace")
        sys.stdout.write(line)
        sys.stdout.flush()
        finished = finished or re.match(r"\[  PASSED  \] \d+ tests?\.", line) is not None
    status = process.wait()
    if status == 0 and not finished:
        print("the program ended without reporting its test results")
        status = 1
    sys.exit(status)


if __name__ == "__main__":
    main()
