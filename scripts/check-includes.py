#!/usr/bin/env python3
"""Holds the includes of src/ against the dependencies that its CMakeLists.txt declare.

The compiler is shown no other headers either (see cmake/NorvoTargets.cmake); this says so at once,
for the rooms of all systems, and in words.
"""

import re
import sys
from pathlib import Path

SOURCE = Path(__file__).resolve().parent.parent / "src"
ROOM = re.compile(r"^ *norvo_subsystem\((\w+(?:/\w+)?)(?:[^)]*?DEPENDS\s+([^)]*))?[^)]*\)", re.M)


def allowed_folders():
    """For each room: the rooms whose headers it may include."""
    direct = {}
    for declarations in sorted(SOURCE.rglob("CMakeLists.txt")):
        for name, depends in ROOM.findall(declarations.read_text()):
            # A room that is declared for each system of its own may include what either does.
            direct.setdefault(name, []).extend(
                target.removeprefix("norvo_") for target in depends.split())
    by_target = {name.replace("/", "_"): name for name in direct}
    allowed = {}

    def collect(name):
        if name not in allowed:
            allowed[name] = {name}
            for target in direct[name]:
                allowed[name] |= collect(by_target[target])
        return allowed[name]

    for name in direct:
        collect(name)
    return allowed


def room_of(path, rooms):
    """The innermost room that holds a file; a folder of a room that is none belongs to it."""
    folder = path.relative_to(SOURCE).parent
    while folder.as_posix() not in rooms:
        folder = folder.parent
        if folder == Path("."):
            sys.exit(f"{path.relative_to(SOURCE)} lies in no room of src/CMakeLists.txt")
    return folder.as_posix()


def main():
    allowed = allowed_folders()
    problems = []
    for path in sorted(SOURCE.rglob("*.[ch]*")):
        room = room_of(path, allowed)
        for target in re.findall(r'^#include "(.*)/[^/]*"', path.read_text(), re.M):
            if room_of(SOURCE / target / "Header.h", allowed) not in allowed[room]:
                problems.append(f"{path.relative_to(SOURCE)} includes {target}/")
    if problems:
        sys.exit("Includes that the picture in docs/architecture.md does not have:\n" +
                 "\n".join(problems))


main()
