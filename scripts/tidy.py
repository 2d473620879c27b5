#!/usr/bin/env python3
"""Runs clang-tidy over the sources of a compile database; called by scripts/lint.

Most of the time of a run goes into the headers of packaged libraries, which every source drags in. So sources
are joined into batches, each checked as one file with the folders and macros of all its members, and the findings
are told in terms of the real files again. File-local names that two members share get a number each. A batch whose
members don't go together all the same is checked by halves.
"""

import argparse
import concurrent.futures
import hashlib
import json
import pathlib
import re
import shlex
import subprocess
import sys

from local_names import file_local_names, stands_alone

LINES_PER_BATCH = 14000
FILES_PER_BATCH = 160
FINDING = re.compile(r"^(.*?):(\d+):(\d+): (error|warning|note): (.*)$")
# Tests and benchmarks are free of what is asked of the product: path-sensitive analysis of test macros takes most
# of the time and finds nothing of worth, a test copies on purpose, its numbers are small and known, and using-
# declarations look unused where members of a batch repeat them.
CHECKS_OF_PRODUCT_ONLY = ",".join(
    (
        "-clang-analyzer-*",
        "-performance-*",
        "-bugprone-implicit-widening-of-multiplication-result",
        "-bugprone-integer-division",
        "-bugprone-misplaced-widening-cast",
        "-bugprone-unused-raii",
        "-misc-unused-using-decls",
    )
)
# Following calls into each other as far as they go takes four fifths of a whole run, following those into the
# standard library a quarter of what is left, and those into templates of ours as much again; --deep does all.
SHALLOW_ANALYSIS = (
    "-Xclang",
    "-analyzer-config",
    "-Xclang",
    "mode=shallow,c++-stdlib-inlining=false,c++-template-inlining=false",
)
INCLUDE = re.compile(r'^(\s*#\s*include\s*)"([^"]+)"')


class Source:
    def __init__(self, root, entry):
        self.path = pathlib.Path(entry["file"])
        self.relative = self.path.relative_to(root).as_posix()
        self.text = self.path.read_text(encoding="utf-8")
        self.lines = self.text.splitlines()
        self.flags = flags_of(entry)
        self.product = not self.relative.startswith(("tests/", "benchmarks/", "fuzz/"))
        self.names = file_local_names(self.lines)
        self.alone = stands_alone(self.lines)


def flags_of(entry):
    """What the compiler is told, without its name, the files, and what only gcc knows."""
    words = shlex.split(entry["command"])
    start = next(i for i, word in enumerate(words) if word.startswith("-"))
    flags = []
    skip = False
    for word in words[start:]:
        if skip:
            skip = False
        elif word in ("-o", "-MF", "-MT"):
            skip = True
        elif word.startswith("--param"):
            pass
        elif word not in ("-c", "-MD", "-Werror", "-fno-thread-jumps", entry["file"]):
            flags.append(word)
    return tuple(flags)


def machine_of(flags):
    """The flags that decide what the language or the processor can do: members of a batch agree in these."""
    return tuple(flag for flag in flags if flag.startswith(("-m", "-std=")))


def places_of(flags):
    """The flags in units that can be merged: a folder of system headers is two words."""
    words = iter(flags)
    return [(word, next(words)) if word == "-isystem" else (word,) for word in words]


class Batch:
    def __init__(self, source):
        self.machine = machine_of(source.flags)
        self.product = source.product
        self.sources = [source]

    @property
    def flags(self):
        """What one of the members is told at least, each thing once."""
        places = {place: None for source in self.sources for place in places_of(source.flags)}
        # Qt's own words are names of ours where Qt isn't included.
        return [word for place in places for word in place] + ["-DQT_NO_KEYWORDS"]

    def takes(self, source):
        return (
            not source.alone
            and not self.sources[0].alone
            and machine_of(source.flags) == self.machine
            and source.product == self.product
            and len(self.sources) < FILES_PER_BATCH
            and sum(len(s.lines) for s in self.sources) + len(source.lines) <= LINES_PER_BATCH
        )


def batches_of(sources):
    batches = []
    for source in sources:
        for batch in batches:
            if batch.takes(source):
                batch.sources.append(source)
                break
        else:
            batches.append(Batch(source))
    return sorted(batches, key=lambda b: -sum(len(s.lines) for s in b.sources))


def joined(batch):
    """The text of a batch, and for each of its lines the file and line where it comes from."""
    lines = []
    origins = []
    taken = set()
    for index, source in enumerate(batch.sources):
        shared = taken & source.names
        taken |= source.names
        # A member of the same name is meant where it is asked of something.
        renaming = re.compile(rf"(?<![.:>\w\"])({'|'.join(sorted(shared))})\b") if shared else None
        for number, line in enumerate(source.lines, start=1):
            match = INCLUDE.match(line)
            if match and (source.path.parent / match.group(2)).is_file():
                line = f'{match.group(1)}"{(source.path.parent / match.group(2)).resolve()}"'
            elif renaming and not line.startswith("#"):
                line = renaming.sub(rf"\1_{index}", line)
            lines.append(line)
            origins.append((source.relative, number))
    return "\n".join(lines) + "\n", origins


def clang_tidy(path, batch, deep):
    command = ["clang-tidy", "--quiet"]
    if not batch.product:
        command.append(f"--checks={CHECKS_OF_PRODUCT_ONLY}")
    command += [str(path), "--", *batch.flags, "-Wno-unknown-warning-option"]
    command += () if deep else SHALLOW_ANALYSIS
    return subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)


def findings_of(result, root, path, origins):
    """The findings as blocks of lines: each an error or warning with its notes and excerpts."""
    findings = []
    for line in result.stdout.splitlines():
        match = FINDING.match(line)
        if match:
            name, number, column, kind, text = match.groups()
            if origins and name == str(path):
                name, number = origins[int(number) - 1]
            elif name.startswith(f"{root}/"):
                name = name[len(str(root)) + 1 :]
            line = f"{name}:{number}:{column}: {kind}: {text}"
            if kind != "note" or not findings:
                findings.append([])
        if findings:
            findings[-1].append(line)
    if result.returncode and not findings:
        findings.append([f"{path}: clang-tidy ended with {result.returncode}", result.stderr])
    return ["\n".join(block) for block in findings]


def goes_together(result):
    """Whether a joined text compiled: an error of the compiler itself may come from the joining."""
    return "[clang-diagnostic-error]" not in result.stdout


def halves(batch):
    middle = len(batch.sources) // 2
    for members in (batch.sources[:middle], batch.sources[middle:]):
        half = Batch(members[0])
        for source in members[1:]:
            half.sources.append(source)
        yield half


def check(batch, root, folder, deep):
    """The findings of a batch, and how many batches it came to: one that clashes is checked by halves."""
    if len(batch.sources) == 1:
        source = batch.sources[0]
        return findings_of(clang_tidy(source.path, batch, deep), root, source.path, None), 1
    text, origins = joined(batch)
    path = folder / f"{hashlib.sha1(text.encode()).hexdigest()[:16]}.cpp"
    path.write_text(text, encoding="utf-8")
    result = clang_tidy(path, batch, deep)
    if goes_together(result):
        return findings_of(result, root, path, origins), 1
    results = [check(half, root, folder, deep) for half in halves(batch)]
    return [finding for found, _ in results for finding in found], sum(count for _, count in results)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--root", required=True, type=pathlib.Path)
    parser.add_argument("--build", required=True, type=pathlib.Path, help="folder of compile_commands.json")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--deep", action="store_true", help="analyse through calls without a limit; takes long")
    parser.add_argument("files", nargs="*", help="only these sources, relative to the root; none: all")
    arguments = parser.parse_args()
    arguments.root = arguments.root.resolve()
    arguments.build = arguments.build.resolve()

    entries = json.loads((arguments.build / "compile_commands.json").read_text(encoding="utf-8"))
    sources = {}
    for entry in entries:
        path = pathlib.Path(entry["file"])
        if path.is_relative_to(arguments.root) and not path.is_relative_to(arguments.root / "build"):
            source = Source(arguments.root, entry)
            if not arguments.files or source.relative in arguments.files:
                sources[source.relative] = source
    folder = arguments.build / "tidy"
    folder.mkdir(exist_ok=True)
    for left in folder.glob("*.cpp"):
        left.unlink()

    batches = batches_of(sources.values())
    told = set()
    parts = 0
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        checks = [pool.submit(check, batch, arguments.root, folder, arguments.deep) for batch in batches]
        for finished in concurrent.futures.as_completed(checks):
            findings, count = finished.result()
            parts += count
            for finding in sorted(set(findings) - told):
                print(finding, flush=True)
            told.update(findings)
    print(f"clang-tidy: {len(sources)} files in {parts} parts, {len(told)} findings")
    return 1 if told else 0


if __name__ == "__main__":
    sys.exit(main())
