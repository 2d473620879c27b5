#!/usr/bin/env python3
"""Checks that each public header compiles with nothing before it; called by scripts/lint.

A header that another one includes first of all is checked with that one. The others are compiled one by one, on top of
a precompiled header where one of them brings nothing that the header wouldn't include itself: most of the time of
compiling a header goes into what many of them share.
"""

import argparse
import concurrent.futures
import functools
import pathlib
import re
import subprocess
import sys

INCLUDE = re.compile(r'^#include [<"](.*)[>"]$', re.MULTILINE)
COMPILER = ("clang++", "-std=c++20", "-Wall", "-Wextra", "-fpch-instantiate-templates")
# About how many headers of ours take as long as one of the standard library.
STANDARD_HEADER_WEIGHS = 10
# A precompiled header costs about as much as compiling so many headers of ours.
PRECOMPILING_COSTS = 5


class Headers:
    """The public headers below some folders, by the names that others include them with."""

    def __init__(self, folders):
        self.paths = {
            path.relative_to(folder).as_posix(): path for folder in folders for path in sorted(folder.glob("**/*.h"))
        }
        self.included = {name: INCLUDE.findall(path.read_text(encoding="utf-8")) for name, path in self.paths.items()}

    @functools.cache
    def reached(self, name):
        """All that including a header brings, itself among it."""
        names = {name}
        for other in self.included.get(name, ()):
            if other not in names:
                names |= self.reached(other)
        return frozenset(names)

    def weight(self, name):
        return sum(1 if other in self.included else STANDARD_HEADER_WEIGHS for other in self.reached(name))

    def to_compile(self, paths):
        """Those among some paths, or among all, that no other of them begins with."""
        names = [name for name, path in self.paths.items() if not paths or path in paths]
        begun = {self.included[name][0] for name in names if self.included[name]}
        return [name for name in names if name not in begun]


def prefixes_of(headers, names):
    """For each of the names what is to be precompiled for it, or None."""
    chosen = dict.fromkeys(names)
    candidates = set().union(*(headers.reached(name) for name in names))
    while candidates:

        def gain(candidate):
            saved = sum(
                max(0, headers.weight(candidate) - (headers.weight(best) if best else 0))
                for name, best in chosen.items()
                if candidate in headers.reached(name) and candidate != name
            )
            return saved - headers.weight(candidate) - PRECOMPILING_COSTS

        candidate = max(sorted(candidates), key=gain)
        if gain(candidate) <= 0:
            break
        candidates.remove(candidate)
        for name, best in chosen.items():
            if candidate in headers.reached(name) and candidate != name:
                if best is None or headers.weight(best) < headers.weight(candidate):
                    chosen[name] = candidate
    return chosen


def run(command):
    result = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)
    return result.stderr if result.returncode or result.stderr else ""


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--work", required=True, type=pathlib.Path, help="folder for precompiled headers")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--folders", nargs="+", required=True, type=pathlib.Path, help="where clients include from")
    parser.add_argument("files", nargs="*", type=pathlib.Path, help="only these headers; none: all")
    arguments = parser.parse_args()

    headers = Headers(arguments.folders)
    names = headers.to_compile(arguments.files)
    prefixes = prefixes_of(headers, names)
    compiler = [*COMPILER, *(f"-I{folder}" for folder in arguments.folders)]
    arguments.work.mkdir(parents=True, exist_ok=True)

    def precompile(numbered):
        number, name = numbered
        prefix = arguments.work / f"{number}.h"
        prefix.write_text(f"#include <{name}>\n", encoding="utf-8")
        return name, prefix, run([*compiler, "-x", "c++-header", str(prefix), "-o", f"{prefix}.pch"])

    def check(name):
        before = ["-include", str(places[prefixes[name]])] if prefixes[name] else []
        return run([*compiler, "-fsyntax-only", *before, "-include", name, "-x", "c++", "/dev/null"])

    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        made = list(pool.map(precompile, enumerate(sorted(set(filter(None, prefixes.values()))))))
        places = {name: prefix for name, prefix, _ in made}
        complaints = [said for _, _, said in made if said]
        # On top of one that doesn't compile nothing else does.
        if not complaints:
            complaints = [said for said in pool.map(check, names) if said]
    print(f"public headers: {len(names)} compiled by themselves, {len(made)} precompiled before")
    sys.stderr.write("".join(complaints))
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
