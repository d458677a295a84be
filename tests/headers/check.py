"""Compiles every public header of the library alone, in the configurations
Windows developers build with, and fails on any error or warning.

Usage: check.py COMPILER SOURCE_DIR WORK_DIR
"""
import concurrent.futures
import os
import subprocess
import sys

CONFIGURATIONS = {
    "C++17": ["-std=c++17"],
    "C++17, WIN32_LEAN_AND_MEAN": ["-std=c++17", "-DWIN32_LEAN_AND_MEAN"],
    "C++20, STRICT, NOMINMAX": ["-std=c++20", "-DSTRICT", "-DNOMINMAX"],
}
COMMON = ["-DUNICODE", "-D_UNICODE", "-D_WIN32_WINNT=0x0601", "-Wall", "-Wextra", "-Wpedantic", "-Werror",
          "-fsyntax-only"]


def headers(source):
    found = []
    for folder, dirs, files in os.walk(os.path.join(source, "velkan")):
        dirs[:] = [d for d in dirs if d != "detail"]
        found += [os.path.relpath(os.path.join(folder, f), source).replace(os.sep, "/")
                  for f in files if f.endswith(".h")]
    return sorted(found)


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    compiler, source, work = sys.argv[1:]
    os.makedirs(work, exist_ok=True)
    units = []
    for header in headers(source):
        unit = os.path.join(work, header.replace("/", "_").replace(".", "_") + ".cpp")
        with open(unit, "w") as f:
            f.write('#include "%s"\n' % header)
        units.append(unit)
    # Two halves per configuration, compiled side by side.
    jobs = []
    for name, flags in CONFIGURATIONS.items():
        for half in (units[::2], units[1::2]):
            jobs.append((name, [compiler] + flags + COMMON + ["-I" + source] + half))
    failed = False
    with concurrent.futures.ThreadPoolExecutor(max_workers=2) as pool:
        for (name, _), result in zip(jobs, pool.map(
                lambda job: subprocess.run(job[1], capture_output=True, text=True), jobs)):
            if result.returncode != 0:
                failed = True
                print("headers fail to compile alone (%s):\n%s" % (name, result.stderr[:4000]))
    print("%d public headers compile alone in %d configurations" % (len(units), len(CONFIGURATIONS))
          if not failed else "header check failed")
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
