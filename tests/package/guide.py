"""Holds docs/getting-started.md to what the package and examples/hello are.

  guide.py commands GUIDE SOURCE_DIR ARCH BUILD_DIR HOME CMAKE OUT
      Checks that every piece of code the guide shows from a file of
      examples/hello is in that file, reads the commands of the blocks marked
      "<!-- package test: ARCH -->" and checks that they install the build
      tree of ARCH, configure examples/hello with the installed toolchain
      file of ARCH, build it and run it with the installed velkan-wine-run.
      Writes OUT, a CMake script setting GUIDE_INSTALL, GUIDE_CONFIGURE,
      GUIDE_BUILD and GUIDE_RUN (the commands, with ~ and $HOME standing for
      HOME, the build tree for BUILD_DIR, cmake for CMAKE, and --close added
      to the run), GUIDE_PREFIX, GUIDE_TOOLCHAIN (the installed toolchain
      file), GUIDE_HELLO_DIR, and GUIDE_VELKAN_DIR (the guide's -DVelkan_DIR,
      moved to the prefix of ARCH).

  guide.py facts GUIDE SOURCE_DIR PREFIX
      Checks that the guide names the compile definitions and the libraries
      that the installed package puts on its users, and the string ids of
      ResourceIds.h with their values, and that examples/hello/hello.rc
      defines those strings.
"""
import os
import re
import shlex
import sys

TOOLCHAINS = {"x86": "toolchain-i686-mingw.cmake", "x64": "toolchain-x86_64-mingw.cmake"}
TREES = {"x86": "build", "x64": "build-x64"}
# Code in these languages is always an excerpt of a file of examples/hello.
EXCERPT_LANGUAGES = {"cpp", "c++", "cmake", "rc", "xml"}
ELISIONS = {"// ...", "# ...", "...", "<!-- ... -->"}

errors = []


def fail(message):
    errors.append(message)


def blocks(guide):
    """(info string, lines, the last non-blank line before the fence, line number)"""
    lines = open(guide, encoding="utf-8").read().split("\n")
    found = []
    before = ""
    i = 0
    while i < len(lines):
        line = lines[i]
        if line.startswith("```"):
            info = line[3:].strip()
            start = i + 1
            i += 1
            while i < len(lines) and lines[i].rstrip() != "```":
                i += 1
            found.append((info, lines[start:i], before, start))
            before = ""
        elif line.strip():
            before = line.strip()
        i += 1
    return found


def check_excerpts(guide, source):
    for info, lines, before, number in blocks(guide):
        language = info.split()[0] if info else ""
        if language not in EXCERPT_LANGUAGES:
            continue
        named = re.search(r"`(examples/hello/[^`]+)`", before)
        if not named:
            fail("line %d: %s code that names no file of examples/hello before it" % (number, language))
            continue
        path = os.path.join(source, named.group(1))
        if not os.path.isfile(path):
            fail("line %d: %s does not exist" % (number, named.group(1)))
            continue
        text = [line.rstrip() for line in open(path, encoding="utf-8").read().split("\n")]
        chunks = [[]]
        for line in lines:
            if line.strip() in ELISIONS:
                chunks.append([])
            else:
                chunks[-1].append(line.rstrip())
        at = 0
        for chunk in chunks:
            while chunk and not chunk[0]:
                chunk.pop(0)
            while chunk and not chunk[-1]:
                chunk.pop()
            if not chunk:
                continue
            found = next((k for k in range(at, len(text) - len(chunk) + 1)
                          if text[k:k + len(chunk)] == chunk), None)
            if found is None:
                fail("line %d: this is not in %s (in this order):\n    %s"
                     % (number, named.group(1), "\n    ".join(chunk)))
                break
            at = found + len(chunk)


def commands(guide, arch, home):
    """The commands of the blocks marked for arch, as lists of words."""
    result = []
    for info, lines, before, number in blocks(guide):
        marked = re.fullmatch(r"<!--\s*package test:([^>]*)-->", before)
        if not marked or arch not in marked.group(1).split():
            continue
        joined = "\n".join(lines).replace("\\\n", " ")
        for line in joined.split("\n"):
            words = shlex.split(line, comments=True)
            if not words:
                continue
            expanded = []
            for word in words:
                if word == "~" or word.startswith("~/"):
                    word = home + word[1:]
                word = word.replace("${HOME}", home).replace("$HOME", home)
                if "$" in word:
                    fail("line %d: only $HOME can stand in a command: %s" % (number, line))
                expanded.append(word)
            result.append((number, expanded))
    return result


def option(words, name):
    return words[words.index(name) + 1] if name in words[:-1] else None


def definition(words, name):
    for word in words:
        if word.startswith("-D%s=" % name):
            return word.split("=", 1)[1]
        if word.startswith("-D%s:" % name) and "=" in word:
            return word.split("=", 1)[1]
    return None


def parse(guide, arch, home):
    """install, configure, build, run (word lists) and the prefix of arch."""
    steps = {}
    prefix = hello = None
    for number, words in commands(guide, arch, home):
        if words[:2] == ["cmake", "--install"]:
            kind = "install"
            if len(words) < 3 or words[2] != TREES[arch]:
                fail("line %d: the %s package is installed from %s" % (number, arch, TREES[arch]))
            prefix = option(words, "--prefix")
        elif words[0] == "cmake" and "-S" in words:
            kind = "configure"
            hello = option(words, "-B")
            if option(words, "-S") != "examples/hello":
                fail("line %d: the guide configures examples/hello" % number)
            if prefix is None:
                fail("line %d: configured before the package is installed" % number)
            else:
                toolchain = "%s/lib/cmake/Velkan/%s" % (prefix, TOOLCHAINS[arch])
                if definition(words, "CMAKE_TOOLCHAIN_FILE") != toolchain:
                    fail("line %d: the toolchain file is not the installed %s" % (number, TOOLCHAINS[arch]))
                if definition(words, "CMAKE_PREFIX_PATH") != prefix:
                    fail("line %d: CMAKE_PREFIX_PATH is not the prefix %s" % (number, prefix))
        elif words[:2] == ["cmake", "--build"]:
            kind = "build"
            if len(words) < 3 or words[2] != hello:
                fail("line %d: the build is not the configured folder" % number)
        elif os.path.basename(words[0]) == "velkan-wine-run":
            kind = "run"
            if prefix is not None and words[0] != prefix + "/bin/velkan-wine-run":
                fail("line %d: the runner is not the installed one" % number)
            if hello is not None and words[1:] != [hello + "/hello.exe"]:
                fail("line %d: the run is not of the built hello.exe" % number)
        else:
            fail("line %d: a command the test does not know: %s" % (number, " ".join(words)))
            continue
        if kind in steps:
            fail("line %d: a second %s command for %s" % (number, kind, arch))
        steps[kind] = words
    order = [kind for kind in ("install", "configure", "build", "run") if kind in steps]
    if len(order) != 4:
        fail("the guide's blocks for %s lack: %s" % (
            arch, ", ".join(k for k in ("install", "configure", "build", "run") if k not in steps)))
    return steps, prefix, hello


def cmake_list(words):
    return " ".join("[==[%s]==]" % word for word in words)


def main_commands(guide, source, arch, build_dir, home, cmake, out):
    check_excerpts(guide, source)
    steps, prefix, hello = parse(guide, arch, home)
    # The guide shows -DVelkan_DIR for the x86 prefix; the same folder of the
    # prefix of this architecture is used.
    velkan_dir = None
    named = set(re.findall(r"-DVelkan_DIR=(\S+)", open(guide, encoding="utf-8").read()))
    if len(named) != 1:
        fail("the guide should show one -DVelkan_DIR=, not %d" % len(named))
    else:
        x86_prefix = (prefix if arch == "x86" else parse(guide, "x86", home)[1]) or ""
        shown = named.pop().replace("${HOME}", home).replace("$HOME", home)
        if not x86_prefix or not shown.startswith(x86_prefix + "/"):
            fail("-DVelkan_DIR=%s is not in the installed package %s" % (shown, x86_prefix))
        elif prefix:
            velkan_dir = prefix + shown[len(x86_prefix):]
    if errors:
        return
    for kind in ("install", "configure", "build"):
        if steps[kind][0] == "cmake":
            steps[kind][0] = cmake
    steps["install"][2] = build_dir
    steps["run"].append("--close")
    with open(out, "w", encoding="utf-8") as f:
        for kind in ("install", "configure", "build", "run"):
            f.write("set(GUIDE_%s %s)\n" % (kind.upper(), cmake_list(steps[kind])))
        f.write("set(GUIDE_PREFIX [==[%s]==])\n" % prefix)
        f.write("set(GUIDE_TOOLCHAIN [==[%s/lib/cmake/Velkan/%s]==])\n" % (prefix, TOOLCHAINS[arch]))
        f.write("set(GUIDE_HELLO_DIR [==[%s]==])\n" % hello)
        f.write("set(GUIDE_VELKAN_DIR [==[%s]==])\n" % velkan_dir)


def main_facts(guide, source, prefix):
    text = open(guide, encoding="utf-8").read()
    targets = open(os.path.join(prefix, "lib/cmake/Velkan/VelkanTargets.cmake"), encoding="utf-8").read()
    for prop, what in (("INTERFACE_COMPILE_DEFINITIONS", "compile definition"),
                       ("INTERFACE_LINK_LIBRARIES", "library")):
        value = re.search(r'%s "([^"]*)"' % prop, targets)
        for item in (value.group(1).split(";") if value else []):
            if item and "$<" not in item and "`%s`" % item not in text:
                fail("the guide does not name the %s `%s` that the package puts on its users" % (what, item))
    ids = open(os.path.join(prefix, "include/velkan/app/ResourceIds.h"), encoding="utf-8").read()
    rc = open(os.path.join(source, "examples/hello/hello.rc"), encoding="utf-8").read()
    strings = re.findall(r"#define (VELKAN_IDS_\w+) (\d+)", ids)
    if not strings:
        fail("ResourceIds.h defines no VELKAN_IDS_ strings")
    for name, value in strings:
        if "`%s` (%s)" % (name, value) not in text:
            fail("the guide does not name the string `%s` (%s) that every host carries" % (name, value))
        if not re.search(r"^\s*%s\s+\"" % name, rc, re.M):
            fail("examples/hello/hello.rc does not define the string %s" % name)


def main():
    if len(sys.argv) == 9 and sys.argv[1] == "commands":
        main_commands(*sys.argv[2:])
    elif len(sys.argv) == 5 and sys.argv[1] == "facts":
        main_facts(*sys.argv[2:])
    else:
        sys.exit(__doc__)
    for error in errors:
        print("getting-started.md: %s" % error)
    sys.exit(1 if errors else 0)


if __name__ == "__main__":
    main()
