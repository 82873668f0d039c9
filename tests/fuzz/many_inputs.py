#!/usr/bin/env python3
"""Gives each fuzzer a million inputs, guided by coverage, and prints a line about each.

    many_inputs.py BUILD [--inputs N] [--minutes M] [NAME...]

BUILD is a folder of the preset "fuzz". The fuzzers take turns of 20,000 inputs, so that a search
that is stopped has reached about the same number with all of them. It can be stopped at any time,
and a later call goes on from there: BUILD/corpus keeps what the search has found on its way, and
BUILD/fuzz_tally.json its figures. Inputs that break something are kept in BUILD/findings; the search
goes on after a finding. Exits with 1 when there was one.
"""

import argparse
import json
import os
import pathlib
import re
import resource
import subprocess
import sys
import time

SEEDS = pathlib.Path(__file__).resolve().parent / "corpus"
TURN = 20_000       # inputs
MOST_FINDINGS = 10  # of a fuzzer; then its search ends
HANGS = 120         # seconds of an input; on a busy machine the search gets little of each
# Lines of a search. Libraries complain about each input.
KEPT = re.compile(r"#\d|stat::|broken: |SUMMARY: |Test unit written to ")
ROW = "{:16} {:>9} {:>7} {:>7} {:>6} {:>8}"

# Freed memory is kept back for 8 MB and with the last calls only: more is slower by a seventh, and an
# input frees less.
SANITIZERS = "quarantine_size_mb=8:malloc_context_size=2"


def fuzzers(build):
    return sorted(p.name for p in build.glob("fuzz_*") if os.access(p, os.X_OK) and p.is_file())


def processor_seconds():
    """Used by the fuzzers so far. On a busy machine the clock says little."""
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


class Search:
    def __init__(self, build, name, tally):
        self.binary = build / name
        self.corpus = build / "corpus" / name
        self.seeds = SEEDS / name
        self.findings = build / "findings"
        new = {"inputs": 0, "seconds": 0, "edges": 0, "findings": 0, "said": []}
        self.tally = tally.setdefault(name, new)

    def done(self, inputs):
        return self.tally["inputs"] >= inputs or self.tally["findings"] >= MOST_FINDINGS

    def prepare(self):
        self.corpus.mkdir(parents=True, exist_ok=True)
        self.findings.mkdir(exist_ok=True)

    def turn(self, inputs, seconds):
        before = processor_seconds()
        known = sum(len(list(folder.iterdir())) for folder in (self.corpus, self.seeds))
        with subprocess.Popen(
            ["nice", "-n", "15", self.binary, f"-runs={known + inputs}",
             f"-max_total_time={seconds}", "-max_len=4096", "-entropic=0", "-print_funcs=0",
             f"-timeout={HANGS}", "-rss_limit_mb=3000", "-print_final_stats=1",
             f"-artifact_prefix={self.findings}/{self.binary.name}-", self.corpus, self.seeds],
            stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, env={**os.environ,
            "QT_QPA_PLATFORM": "offscreen", "UBSAN_OPTIONS": "halt_on_error=1",
            "ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", SANITIZERS)},
            text=True, errors="replace") as run:
            text = "".join(line for line in run.stderr if KEPT.match(line))
        tried = re.findall(r"^#(\d+)\s", text, re.M)
        exact = re.search(r"number_of_executed_units: (\d+)", text)
        tally = self.tally
        # The search begins with the corpus, whose inputs were counted when they were new.
        tally["inputs"] += max(int(exact[1] if exact else tried[-1] if tried else 0) - known, 0)
        tally["edges"] = max([tally["edges"], *map(int, re.findall(r" cov: (\d+)", text))])
        tally["seconds"] += processor_seconds() - before
        if run.returncode != 0:
            tally["findings"] += 1
            tally["said"] += re.findall(r"^(?:broken: |SUMMARY: |Test unit written to ).*", text,
                                        re.M)

    def row(self):
        tally = self.tally
        print(ROW.format(self.binary.name, tally["inputs"], round(tally["seconds"]),
                         tally["edges"], len(list(self.corpus.glob("*"))), tally["findings"]))
        for line in tally["said"]:
            print("    " + line)


def take_turns(searches, inputs, until, keep):
    for search in searches:
        search.prepare()
    while waiting := [search for search in searches if not search.done(inputs)]:
        for search in waiting:
            left = int(until - time.monotonic())
            if left < 1:
                return
            search.turn(min(TURN, inputs - search.tally["inputs"]), left)
            keep()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("names", nargs="*")
    parser.add_argument("--inputs", type=int, default=1_000_000)
    parser.add_argument("--minutes", type=float, default=1e6, help="for all together")
    options = parser.parse_args()
    build = options.build.resolve()
    file = build / "fuzz_tally.json"
    tally = json.loads(file.read_text(encoding="utf-8")) if file.exists() else {}
    searches = [Search(build, name, tally) for name in options.names or fuzzers(build)]
    try:
        take_turns(searches, options.inputs, time.monotonic() + options.minutes * 60,
                   lambda: file.write_text(json.dumps(tally, indent=1), encoding="utf-8"))
    except KeyboardInterrupt:
        pass
    print(ROW.format("fuzzer", "inputs", "seconds", "edges", "corpus", "findings"))
    for search in searches:
        search.row()
    return 1 if any(search.tally["findings"] for search in searches) else 0


sys.exit(main())
