"""Runs the gallery's brief tour and checks its pictures: each one the tour
promises exists and shows something. While the tour runs, a second gallery
started without options must hand over to it and end, not open a window.

Usage: check_tour.py WINE_RUN GALLERY_EXE OUT_DIR
"""
import os
import shutil
import subprocess
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "scripts"))
import png_facts  # noqa: E402

EXPECTED = ["01-page-http.png", "02-menu-visual.png", "03-dialog-task.png"]


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    wine_run, exe, out = sys.argv[1:]
    shutil.rmtree(out, ignore_errors=True)
    os.makedirs(out)
    windows_out = "Z:" + os.path.abspath(out).replace("/", "\\")
    tour = subprocess.Popen([wine_run, exe, "--tour", windows_out, "--brief"],
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    failures = []
    time.sleep(2)
    try:
        second = subprocess.run([wine_run, exe], timeout=30, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        if second.returncode != 0:
            failures.append("the second instance exited with %d" % second.returncode)
    except subprocess.TimeoutExpired:
        failures.append("the second instance opened a window of its own instead of handing over")
    try:
        output, _ = tour.communicate(timeout=110)
    except subprocess.TimeoutExpired:
        tour.kill()
        sys.exit("the tour did not end")
    print(output.strip())
    if tour.returncode != 0:
        failures.append("the gallery exited with %d" % tour.returncode)
    for name in EXPECTED:
        path = os.path.join(out, name)
        if not os.path.isfile(path):
            failures.append("missing: " + name)
        elif png_facts.looks_blank(path):
            failures.append("blank: " + name)
    extra = sorted(set(os.listdir(out)) - set(EXPECTED))
    if extra:
        failures.append("not expected: " + ", ".join(extra))
    for failure in failures:
        print(failure)
    sys.exit(1 if failures else 0)


if __name__ == "__main__":
    main()
