#!/usr/bin/env python3
"""Runs clang-tidy over the sources that have changed since it last passed them.

    tidy.py BUILD [--minutes N] [--full]

Whether a source has changed is told by the content of everything that it is compiled from, so a
second run takes a second. The first run takes 4 seconds a source; the path analyser among the
checks would double that, so only --full asks it, and only --full looks at tests and benchmarks too.
With --minutes no source is begun after that time: those changed last in the history come first, and
what was not reached is told and is looked at next time.
"""

import argparse
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys
import time

TREE = pathlib.Path(__file__).resolve().parents[2]


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

    def look(name):
        if end and time.monotonic() > end:
            return name, None
        command = ["clang-tidy", "-p", str(build), "--quiet", f"--checks={checks}", name]
        return name, subprocess.run(command, cwd=TREE, capture_output=True, text=True)

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for name, run in pool.map(look, changed):
            if run is None:
                unseen.append(name)
            elif run.returncode == 0:
                passed.add(key[name])
            else:
                failed.append(name)
                print(run.stdout, run.stderr if not run.stdout else "", flush=True)
    memory.write_text("\n".join(sorted(passed)) + "\n")

    clean = len(changed) - len(failed) - len(unseen)
    print(f"clang-tidy: {clean} of {len(changed)} changed sources are clean")
    for told, names in (("not clean", failed), ("no time for", unseen)):
        if names:
            print(f"clang-tidy: {told} {len(names)}: {' '.join(names)}")
    return 1 if failed else 0


sys.exit(main())
