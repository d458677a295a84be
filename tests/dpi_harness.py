"""Runs a test program at 96 DPI, then at 144; with --themes also both
again with visual styles switched off.

Usage: dpi_harness.py [--themes] COMMAND [ARGS...]
COMMAND runs the test program through scripts/wine-run (directly or as an
argument of a checker), which the harness also uses to change the settings.

The DPI and the visual styles are registry settings of the prefix that
programs read when they start; both are put back (96 DPI, styles on)
whatever happens. The program learns the settings from VELKAN_TEST_DPI and
VELKAN_TEST_THEMES ("on" or "off").
"""
import os
import subprocess
import sys

DPI_KEY = r"HKCU\Control Panel\Desktop"
THEME_KEY = r"HKCU\Software\Microsoft\Windows\CurrentVersion\ThemeManager"


def reg_add(wine_run, key, name, kind, value):
    subprocess.run([wine_run, "reg", "add", key, "/v", name, "/t", kind, "/d", value, "/f"],
                   check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def configure(wine_run, dpi, themes):
    reg_add(wine_run, DPI_KEY, "LogPixels", "REG_DWORD", str(dpi))
    reg_add(wine_run, THEME_KEY, "ThemeActive", "REG_SZ", "1" if themes else "0")


def run(command, dpi, themes):
    env = dict(os.environ, VELKAN_TEST_DPI=str(dpi), VELKAN_TEST_THEMES="on" if themes else "off")
    print("tests at %d DPI, visual styles %s" % (dpi, "on" if themes else "off"), flush=True)
    try:
        return subprocess.run(command, env=env, timeout=280).returncode
    except subprocess.TimeoutExpired:
        print("the tests did not finish at %d DPI" % dpi)
        return 1


def main():
    args = sys.argv[1:]
    with_themes_off = bool(args) and args[0] == "--themes"
    if with_themes_off:
        args = args[1:]
    if len(args) < 2:
        sys.exit(__doc__)
    command = args
    wine_run = next((arg for arg in args if arg.endswith("wine-run")), None)
    if wine_run is None:
        sys.exit("the command does not use scripts/wine-run")
    settings = [(96, True), (144, True)]
    if with_themes_off:
        settings += [(96, False), (144, False)]
    status = 0
    try:
        for dpi, themes in settings:
            if (dpi, themes) != (96, True):
                configure(wine_run, dpi, themes)
            status = run(command, dpi, themes) or status
    finally:
        configure(wine_run, 96, True)
    sys.exit(status)


if __name__ == "__main__":
    main()
