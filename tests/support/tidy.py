#!/usr/bin/env python3
"""Runs clang-tidy over the sources that have changed since it last passed them.

    tidy.py BUILD [--minutes N] [--full]

Whether a source has changed is told by the content of everything that it is compiled from, so a
second run takes a second. Nearly all of the time goes into the headers of the standard library, so
sources that are compiled alike are looked at as one text, which takes a third of the time. Where
that text is not clean, or does not compile, its halves are looked at, down to the single source:
only that one's own findings count.

The path analyser among the checks takes as long as all others, so only --full asks it, and only
--full looks at tests and benchmarks too. With --minutes no source is begun after that time: those
changed last in the history come first, and what was not reached is told and is looked at next time.
"""

import argparse
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile
import time

TREE = pathlib.Path(__file__).resolve().parents[2]
SOURCES_AT_ONCE = 8


def output(*command):
    run = subprocess.run(command, cwd=TREE, capture_output=True, text=True)
    return run.stdout if run.returncode == 0 else ""


def sources(build, full):
    """The sources to look at, with the command that compiles each and its object file."""
    found = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        path = pathlib.Path(entry["file"])
        if TREE in path.parents and build not in path.parents:
            name = str(path.relative_to(TREE))
            if full or not name.startswith(("tests/", "bench/")):
                words = entry["command"].split()
                found[name] = (entry["command"], words[words.index("-o") + 1])
    return found


def headers(build):
    """The headers of this tree that each object was compiled from."""
    needed, current = {}, None
    for line in output("ninja", "-C", str(build), "-t", "deps").splitlines():
        if found := re.match(r"(\S+): #deps", line):
            current = needed.setdefault(found[1], set())
        elif line.startswith("    "):
            path = (build / line.strip()).resolve()
            if TREE in path.parents:
                current.add(path)
    return needed


class Keys:
    """One digest a source, of all that the verdict about it hangs on."""

    def __init__(self, build, checks):
        self.headers = headers(build)
        self.contents = {}
        settings = (TREE / ".clang-tidy").read_bytes()
        self.common = settings + output("clang-tidy", "--version").encode() + checks.encode()

    def content(self, path):
        if path not in self.contents:
            self.contents[path] = hashlib.sha256(path.read_bytes()).digest()
        return self.contents[path]

    def of(self, source, command, made):
        digest = hashlib.sha256(self.common + command.encode())
        for path in sorted({TREE / source, *self.headers.get(made, ())}):
            digest.update(self.content(path) if path.exists() else b"gone")
        return digest.hexdigest()


def changed_last_first(names):
    order = output("git", "diff", "--name-only", "HEAD").splitlines()
    order += output("git", "log", "--name-only", "--format=").splitlines()
    place = {}
    for name in order:
        place.setdefault(name, len(place))
    return sorted(names, key=lambda name: (place.get(name, -1), name))


def flags_of(command):
    """What a source is compiled with, without the compiler and the names of files."""
    # The view of the whole product holds that of each of its folders, and is the same for all.
    words = shlex.split(re.sub(r"/views/product_[a-z_]+", "/views/product", command))
    del words[words.index("-o"):]  # the object and the source stand last
    return tuple(words[1:])


def batches(names, found):
    """The names in groups of the same flags; a group stands where its first name does."""
    groups, open_group = [], {}
    for name in names:
        flags = flags_of(found[name][0])
        group = open_group.get(flags)
        if group is None or len(group) == SOURCES_AT_ONCE:
            group = open_group[flags] = []
            groups.append((group, flags))
        group.append(name)
    return groups


# Names at the start of a line in an unnamed namespace are declared there.
UNNAMED = re.compile(r"^namespace \{$(.*?)^\}  // namespace$", re.M | re.S)
DECLARED = re.compile(r"^(?!using .*::\w+;)\w[^\n(={;]*?(?<!::)\b([A-Za-z]\w*)\s*(?:final\s*)?"
                      r"(?:[(={;\[]|:(?!:)|$)", re.M)


def alone(text, number):
    """The text of a source, its own names made such that no other source has them."""
    own = {name for block in UNNAMED.findall(text) for name in DECLARED.findall(block)}
    own -= {"operator", "final", "const", "noexcept", "int", "std", "vantora"}
    if not own:
        return text
    return re.sub(r"(?<![\w.>:\"])(%s)\b" % "|".join(sorted(own)), r"\1_%d" % number, text)


class Looker:
    def __init__(self, build, checks, end):
        self.build, self.checks, self.end = build, checks, end

    def tidy(self, path, flags):
        command = ["clang-tidy", "--quiet", f"--config-file={TREE}/.clang-tidy",
                   f"--checks={self.checks}", str(path), "--", *flags]
        return subprocess.run(command, cwd=self.build, capture_output=True, text=True)

    def is_clean(self, names, flags):
        """Of several sources as one text: some checks look at nothing but the main file."""
        with tempfile.NamedTemporaryFile("w", suffix=".cpp") as together:
            for number, name in enumerate(names):
                together.write(alone((TREE / name).read_text(), number) + "\n")
            together.flush()
            return self.tidy(together.name, flags).returncode == 0

    def look(self, names, flags):
        """Each name with its findings: none when it is clean, None when there was no time."""
        if self.end and time.monotonic() > self.end:
            return [(name, None) for name in names]
        if len(names) == 1:
            run = self.tidy(TREE / names[0], flags)
            return [(names[0], (run.stdout or run.stderr or "no verdict") if run.returncode else "")]
        if self.is_clean(names, flags):
            return [(name, "") for name in names]
        half = len(names) // 2
        return self.look(names[:half], flags) + self.look(names[half:], flags)


def main():
    words = argparse.ArgumentParser()
    words.add_argument("build")
    words.add_argument("--minutes", type=float)
    words.add_argument("--full", action="store_true")
    options = words.parse_args()
    build = pathlib.Path(options.build).resolve()
    end = time.monotonic() + 60 * options.minutes if options.minutes else None
    checks = "" if options.full else "-clang-analyzer-*"

    found, keys = sources(build, options.full), Keys(build, checks)
    key = {name: keys.of(name, *found[name]) for name in found}
    memory = build / "tidy-passed.txt"
    known = set(memory.read_text().split()) if memory.exists() else set()
    passed = known & set(key.values())
    changed = changed_last_first(name for name in key if key[name] not in passed)
    failed, unseen = [], []
    looker = Looker(build, checks, end)

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        looks = pool.map(lambda batch: looker.look(*batch), batches(changed, found))
        for name, findings in (one for look in looks for one in look):
            if findings is None:
                unseen.append(name)
            elif findings == "":
                passed.add(key[name])
            else:
                failed.append(name)
                print(findings, flush=True)
    memory.write_text("\n".join(sorted(passed)) + "\n")

    clean = len(changed) - len(failed) - len(unseen)
    print(f"clang-tidy: {clean} of {len(changed)} changed sources are clean")
    for told, names in (("not clean", failed), ("no time for", unseen)):
        if names:
            print(f"clang-tidy: {told} {len(names)}: {' '.join(names)}")
    return 1 if failed else 0


sys.exit(main())
