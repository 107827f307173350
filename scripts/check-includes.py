#!/usr/bin/env python3
"""Holds the includes of src/ against the dependencies that src/CMakeLists.txt declares."""

import re
import sys
from pathlib import Path

SOURCE = Path(__file__).resolve().parent.parent / "src"
DECLARED = re.compile(r"^ *norvo_subsystem\((\S+)(?: DEPENDS ([^)]*))?\)", re.M)


def allowed_folders():
    """For each folder: itself and all that it depends on, directly or not."""
    direct = {}
    for name, depends in DECLARED.findall((SOURCE / "CMakeLists.txt").read_text()):
        targets = [target.removeprefix("norvo_") for target in depends.split()]
        direct[name] = [target.replace("platform_", "platform/") for target in targets]
    library = list(direct)
    direct["host/lists"] = ["services"]
    direct["host/overlay"] = ["services"]
    direct["com"] = ["library", "platform/windows"]
    direct["com/dll"] = ["com"]
    allowed = {}
    for name, found in direct.items():
        allowed[name] = {name, *found, *(each for folder in found for each in allowed[folder])}
    # The commands know no system; the room of each, and the move, know the commands.
    host = {*library, "host", "host/lists", "host/overlay"} - {"platform/hosted", "platform/windows"}
    hosted = {*host, "host/hosted", "platform/hosted"}
    return {**allowed, "host": host, "host/hosted": hosted,
            "host/migrate": {*hosted, "host/migrate"},
            "host/windows": {*host, "host/windows", "platform/windows"}}


def main():
    problems = []
    for folder, allowed in allowed_folders().items():
        for path in sorted((SOURCE / folder).glob("*.[ch]*")):
            for target in re.findall(r'^#include "(.*)/[^/]*"', path.read_text(), re.M):
                if target not in allowed:
                    problems.append(f"{path.relative_to(SOURCE)} includes {target}/")
    if problems:
        sys.exit("Includes that the picture in docs/architecture.md does not have:\n" +
                 "\n".join(problems))


main()
