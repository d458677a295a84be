"""Runs a test program twice: with the prefix at 96 DPI, then at 144.

Usage: harness.py WINE_RUN TEST_EXE [ARGS...]

The DPI is a registry setting of the prefix that programs read when they
start; it is put back to 96 whatever happens.
"""
import os
import subprocess
import sys

KEY = r"HKCU\Control Panel\Desktop"


def set_dpi(wine_run, dpi):
    subprocess.run([wine_run, "reg", "add", KEY, "/v", "LogPixels", "/t", "REG_DWORD", "/d", str(dpi), "/f"],
                   check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def run(command, dpi):
    env = dict(os.environ, VELKAN_TEST_DPI=str(dpi))
    print("tests at %d DPI" % dpi, flush=True)
    try:
        return subprocess.run(command, env=env, timeout=280).returncode
    except subprocess.TimeoutExpired:
        print("the tests did not finish at %d DPI" % dpi)
        return 1


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    wine_run, command = sys.argv[1], sys.argv[1:]
    status = run(command, 96)
    try:
        set_dpi(wine_run, 144)
        status = run(command, 144) or status
    finally:
        set_dpi(wine_run, 96)
    sys.exit(status)


if __name__ == "__main__":
    main()
