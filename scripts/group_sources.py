#!/usr/bin/env python3
"""Tells CMake which sources to compile as one; called by the commands of the repository before they build.

Most of the time of compiling a source goes into the headers it includes. So the sources of a folder are joined
into groups, each compiled as one. Sources that would clash are never in one group: neither do two define a
file-local name, nor does one define a name that another takes from elsewhere.

Writes a line `set("mox_group_FILE" GROUP)` for each source that is in a group with others.
"""

import pathlib
import re
import sys

from local_names import file_local_names, stands_alone

FOLDERS = ("host", "src", "apps", "tests")
LINES_PER_GROUP = 2200
FILES_PER_GROUP = 10
# A member of the same name is meant where it is asked of something.
IDENTIFIER = re.compile(r"(?<![.:>\w])[A-Za-z_]\w*")


class Group:
    def __init__(self, takes_others):
        self.takes_others = takes_others
        self.files = []
        self.lines = 0
        self.names = set()
        self.identifiers = set()

    def takes(self, lines, names, identifiers):
        return (
            self.takes_others
            and len(self.files) < FILES_PER_GROUP
            and self.lines + len(lines) <= LINES_PER_GROUP
            and not self.names & identifiers
            and not names & self.identifiers
        )

    def add(self, file, lines, names, identifiers):
        self.files.append(file)
        self.lines += len(lines)
        self.names |= names
        self.identifiers |= identifiers


def groups_of(files):
    groups = []
    for file in files:
        text = file.read_text(encoding="utf-8")
        lines = text.splitlines()
        # What a source defines it mentions as well, so that this covers two definitions, too.
        names = file_local_names(lines)
        identifiers = set(IDENTIFIER.findall(text))
        alone = stands_alone(lines)
        group = None if alone else next((g for g in groups if g.takes(lines, names, identifiers)), None)
        if group is None:
            group = Group(takes_others=not alone)
            groups.append(group)
        group.add(file, lines, names, identifiers)
    return groups


def main():
    root = pathlib.Path(sys.argv[1])
    output = pathlib.Path(sys.argv[2])
    folders = {}
    for top in FOLDERS:
        for file in sorted((root / top).glob("**/*.cpp")):
            folders.setdefault(file.parent, []).append(file)
    told = []
    for folder, files in folders.items():
        name = folder.relative_to(root).as_posix().replace("/", "_")
        for number, group in enumerate(groups_of(files)):
            if len(group.files) > 1:
                told += [f'set("mox_group_{file.relative_to(root).as_posix()}" {name}_{number})' for file in group.files]
    text = "\n".join(told) + "\n"
    # Written only when it changed: CMake configures anew then.
    if not output.exists() or output.read_text(encoding="utf-8") != text:
        output.parent.mkdir(parents=True, exist_ok=True)
        output.write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
