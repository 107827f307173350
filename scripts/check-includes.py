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
    rooms = list(direct)
    direct["com"] = ["library", "platform/windows"]
    direct["com/dll"] = ["com"]
    allowed = {}
    for name, found in direct.items():
        allowed[name] = {name, *found, *(each for folder in found for each in allowed[folder])}
    # The program's rooms are one library together; one of them knows the system.
    program = {each for each in rooms if not each.startswith("platform/")} | {"cli", "move"}
    posix = {*program, "cli/posix", "machines", "placing", "platform/hosted", "platform/files"}
    allowed["placing"] = {*allowed["platform/hosted"], "placing", "move"}
    return {**allowed, "cli": posix, "cli/posix": posix, "machines": posix, "move": posix,
            "cli/windows": {*program, "cli/windows", "platform/windows"}}


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
