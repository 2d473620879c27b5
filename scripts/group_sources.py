#!/usr/bin/env python3
"""Tells CMake which sources to compile as one; called by the commands of the repository before they build.

Most of the time of compiling a source goes into the headers it includes, and into what it makes of their
templates. So the sources of a room are joined into groups, each compiled as one. Sources that would clash are never in one group: neither do two define a
file-local name, nor does one define a name that another takes from elsewhere.

Writes a line `set("mox_group_FILE" GROUP)` for each source that is in a group with others.
"""

import pathlib
import re
import sys

from local_names import file_local_names, stands_alone

FOLDERS = ("host", "src", "apps", "tests")
LINES_PER_GROUP = {"tests": 4400}
FILES_PER_GROUP = {"tests": 24}
LINES_OTHERWISE = 5000
FILES_OTHERWISE = 45
# What stays by itself within a room: parts compiled into another target or in another way, and what includes Qt, whose
# macros are words that others use as names.
PARTS = (
    "host/moxui/src/archive",
    "host/moxui/src/resources",
    "host/moxui/src/qt/raster",
    "host/moxui/src/qt",
    "src/audio",
    "apps/playground/playback",
    "tests/apps/playground/playback",
)
# Rooms of tests whose helpers are compiled in another way than the tests.
ROOMS_WITH_HELPERS_APART = ("tests/audio", "tests/host/moxaudiotoolkit")
# A member of the same name is meant where it is asked of something.
IDENTIFIER = re.compile(r"(?<![.:>\w])[A-Za-z_]\w*")


class Group:
    def __init__(self, top, takes_others):
        self.takes_others = takes_others
        self.most_files = FILES_PER_GROUP.get(top, FILES_OTHERWISE)
        self.most_lines = LINES_PER_GROUP.get(top, LINES_OTHERWISE)
        self.files = []
        self.lines = 0
        self.names = set()
        self.identifiers = set()

    def takes(self, lines, names, identifiers):
        return (
            self.takes_others
            and len(self.files) < self.most_files
            and self.lines + len(lines) <= self.most_lines
            and not self.names & identifiers
            and not names & self.identifiers
        )

    def add(self, file, lines, names, identifiers):
        self.files.append(file)
        self.lines += len(lines)
        self.names |= names
        self.identifiers |= identifiers


def groups_of(top, files):
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
            group = Group(top, takes_others=not alone)
            groups.append(group)
        group.add(file, lines, names, identifiers)
    return groups


def room_of(file):
    """The folder whose sources may be joined with this one, itself relative to the root."""
    path = file.as_posix()
    for part in PARTS:
        if path.startswith(f"{part}/"):
            return part
    folders = file.parent.parts
    depth = {"host": 3, "apps": 2, "src": 1}.get(folders[0], 3 if folders[1:2] in (("host",), ("apps",)) else 2)
    room = "/".join(folders[:depth])
    return f"{room}/helpers" if room in ROOMS_WITH_HELPERS_APART and not path.endswith("Test.cpp") else room


def main():
    root = pathlib.Path(sys.argv[1])
    output = pathlib.Path(sys.argv[2])
    rooms = {}
    for top in FOLDERS:
        for file in sorted((root / top).glob("**/*.cpp")):
            rooms.setdefault(room_of(file.relative_to(root)), []).append(file)
    told = []
    for room, files in rooms.items():
        name = room.replace("/", "_")
        for number, group in enumerate(groups_of(room.split("/")[0], files)):
            if len(group.files) > 1:
                told += [f'set("mox_group_{file.relative_to(root).as_posix()}" {name}_{number})' for file in group.files]
    text = "\n".join(told) + "\n"
    # Written only when it changed: CMake configures anew then.
    if not output.exists() or output.read_text(encoding="utf-8") != text:
        output.parent.mkdir(parents=True, exist_ok=True)
        output.write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
