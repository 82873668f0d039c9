#!/usr/bin/env python3
"""Gives each fuzzer a million inputs, guided by coverage, and prints a line about each.

    many_inputs.py BUILD [--inputs N] [--minutes M] [NAME...]

BUILD is a folder of the preset "fuzz". What the search finds on its way stays in BUILD/corpus, so
that a second run goes on from there; inputs that break something are kept in BUILD/findings. The
search goes on after a finding. Exits with 1 when there was one.
"""

import argparse
import os
import pathlib
import re
import resource
import subprocess
import sys
import time

SEEDS = pathlib.Path(__file__).resolve().parent / "corpus"
MOST_FINDINGS = 10  # of a fuzzer; then its search ends

# Freed memory is kept back for 8 MB and with the last calls only: more is slower by a seventh, and an
# input frees less.
SANITIZERS = "quarantine_size_mb=8:malloc_context_size=2"
ROW = "{:16} {:>9} {:>7} {:>7} {:>6} {:>8}"


def fuzzers(build):
    return sorted(p.name for p in build.glob("fuzz_*") if os.access(p, os.X_OK) and p.is_file())


def processor_seconds():
    """Used by the fuzzers so far. On a busy machine the clock says little."""
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


class Search:
    def __init__(self, build, name):
        self.binary = build / name
        self.corpus = build / "corpus" / name
        self.findings = build / "findings"
        self.inputs = self.edges = self.found = 0
        self.seconds = 0.0
        self.said = []

    def run(self, inputs, minutes):
        self.corpus.mkdir(parents=True, exist_ok=True)
        self.findings.mkdir(exist_ok=True)
        start, before = time.monotonic(), processor_seconds()
        while self.inputs < inputs and self.found < MOST_FINDINGS:
            left = minutes * 60 - (time.monotonic() - start)
            if minutes and left < 1:
                break
            self.once(inputs - self.inputs, int(left) if minutes else 0)
        self.seconds = processor_seconds() - before

    def once(self, inputs, seconds):
        run = subprocess.run(
            ["nice", "-n", "15", self.binary, f"-runs={inputs}", f"-max_total_time={seconds}",
             "-max_len=4096", "-entropic=0", "-print_funcs=0", "-timeout=20", "-rss_limit_mb=3000",
             "-print_final_stats=1", f"-artifact_prefix={self.findings}/{self.binary.name}-",
             self.corpus, SEEDS / self.binary.name],
            stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, env={**os.environ,
            "QT_QPA_PLATFORM": "offscreen", "UBSAN_OPTIONS": "halt_on_error=1",
            "ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", SANITIZERS)})
        text = run.stderr.decode(errors="replace")
        tried = re.findall(r"^#(\d+)\s", text, re.M)
        exact = re.search(r"number_of_executed_units: (\d+)", text)
        self.inputs += int(exact[1]) if exact else int(tried[-1]) if tried else 0
        self.edges = max([self.edges, *map(int, re.findall(r" cov: (\d+)", text))])
        if run.returncode != 0:
            self.found += 1
            self.said += re.findall(r"^(?:broken: |SUMMARY: |Test unit written to ).*", text, re.M)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("names", nargs="*")
    parser.add_argument("--inputs", type=int, default=1_000_000)
    parser.add_argument("--minutes", type=float, default=0, help="for each; 0: without a limit")
    options = parser.parse_args()
    build = options.build.resolve()
    print(ROW.format("fuzzer", "inputs", "seconds", "edges", "corpus", "findings"), flush=True)
    broken = 0
    for name in options.names or fuzzers(build):
        search = Search(build, name)
        search.run(options.inputs, options.minutes)
        print(ROW.format(name, search.inputs, round(search.seconds), search.edges,
                         len(list(search.corpus.iterdir())), search.found), flush=True)
        for line in search.said:
            print("    " + line, flush=True)
        broken += search.found
    return 1 if broken else 0


sys.exit(main())
