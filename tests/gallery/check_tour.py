"""Runs the gallery's brief tour and checks its pictures: each one the tour
promises exists and shows something.

Usage: check_tour.py WINE_RUN GALLERY_EXE OUT_DIR
"""
import os
import shutil
import subprocess
import sys

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
    try:
        run = subprocess.run([wine_run, exe, "--tour", windows_out, "--brief"], timeout=110,
                             stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    except subprocess.TimeoutExpired:
        sys.exit("the tour did not end")
    print(run.stdout.strip())
    failures = []
    if run.returncode != 0:
        failures.append("the gallery exited with %d" % run.returncode)
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
