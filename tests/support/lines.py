#!/usr/bin/env python3
"""How many lines the tests have, and what share of the product's that is.

    lines.py

Counts what git knows: lines that are neither blank nor only a comment, the same way on both sides.
The product is what its folders compile, the tests are all of tests/ but the tools that test nothing
(this script, breaks.py, tidy.py). The first figure takes C++ alone; the second adds what is not C++:
stories, scripts and lists of servers on the one side, layouts and texts on the other.
"""

import collections
import pathlib
import subprocess

TREE = pathlib.Path(__file__).resolve().parents[2]
NO_PRODUCT = ("bench", "demo", "docs", "packaging", "tests")
NO_TESTS = ("breaks.py", "lines.py", "tidy.py")
CPP = (".cpp", ".h")
OTHERS = (".py", ".sh", ".robot", ".cddb", ".layout", ".tsv")


def code_lines(path):
    comment = "//" if path.suffix in CPP else "\0" if path.suffix == ".tsv" else "#"
    lines = (line.strip() for line in path.read_text(encoding="utf-8").splitlines())
    return sum(1 for line in lines if line and not line.startswith(comment))


def main():
    listed = subprocess.run(["git", "ls-files", "-z"], cwd=TREE, capture_output=True, check=True)
    folders = collections.Counter()
    for name in filter(None, listed.stdout.decode().split("\0")):
        path, parts = pathlib.Path(name), pathlib.Path(name).parts
        side = "tests" if parts[0] == "tests" else "product"
        if path.suffix not in CPP + OTHERS or not (TREE / path).exists():
            continue
        if parts[0] in NO_PRODUCT[:-1] or (side == "tests" and path.name in NO_TESTS):
            continue
        kind = "C++" if path.suffix in CPP else "others"
        lines = code_lines(TREE / path)
        folders[side, kind] += lines
        folders["/".join(parts[: 2 if side == "tests" else 1]), kind] += lines
    for (folder, kind), lines in sorted(folders.items()):
        print(f"{lines:6} {kind:6} {folder}")
    tests, product = folders["tests", "C++"], folders["product", "C++"]
    print(f"C++:  {tests} of {product}: {100 * tests / product:.1f} %")
    tests, product = tests + folders["tests", "others"], product + folders["product", "others"]
    print(f"all:  {tests} of {product}: {100 * tests / product:.1f} %")


main()
