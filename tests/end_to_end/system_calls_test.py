#!/usr/bin/env python3
"""Counts the system calls that the queue makes per entry, and a move per song, with strace."""

import argparse
import re
import subprocess
import sys
import tempfile
from pathlib import Path

FILES, PLAYLISTS, ENTRIES = 60, 4, 50
MOVED = (100, 300)  # songs of two moves, whose difference tells what one more costs


def run(*command):
    subprocess.run([str(part) for part in command], check=True, stdout=subprocess.DEVNULL)


def make_old_machine(folder, songs):
    """One list of so many songs, each of its own, twenty in a folder."""
    music = folder / "C" / "My Documents" / "My Music"
    lines = []
    for number in range(songs):
        song = music / f"Artist {number // 20}" / f"Song {number}.mp3"
        song.parent.mkdir(parents=True, exist_ok=True)
        song.write_bytes(b"\xff\xfb\x90\0" + bytes(405) + number.to_bytes(8, "big"))
        lines.append(f"{song.parent.name}\\{song.name}\r\n")
    (music / "All.m3u").write_text("".join(lines), newline="")
    (folder / "machine.ini").write_text("[Drives]\nC=fixed\n")


def calls_of_a_move(options, folder, songs):
    """How many look-ups, and how many openings."""
    old, new, trace = folder / f"old {songs}", folder / f"new {songs}", folder / "trace"
    make_old_machine(old, songs)
    run(options.strace, "-f", "-o", trace, "-e", "trace=%file", options.host, "migrate", "--quiet",
        "--no-read-ahead", "--from", old, "--to", new)
    calls = re.findall(r"^\d+\s+(\w+)\(", trace.read_text(errors="replace"), re.M)
    looks = sum(call in ("statx", "newfstatat", "stat", "lstat") for call in calls)
    return looks, sum(call in ("open", "openat", "openat2") for call in calls)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--host", required=True, help="the program that moves")
    parser.add_argument("--make-corpus", required=True)
    parser.add_argument("--program", required=True)
    parser.add_argument("--strace", required=True)
    options = parser.parse_args()
    failures = []

    def expect(what, actual, most):
        print(f"{what}: {actual} (at most {most})")
        if actual > most:
            failures.append(what)

    with tempfile.TemporaryDirectory() as folder:
        machine, trace = Path(folder) / "machine", Path(folder) / "trace"
        run(sys.executable, "-B", options.make_corpus, "--dir", machine, "--seed", 7,
            "--files", FILES, "--playlists", PLAYLISTS, "--entries", ENTRIES, "--list")
        run(options.strace, "-f", "-o", trace, options.program, machine)
        lines = trace.read_text(errors="replace").splitlines()
        few, many = (calls_of_a_move(options, Path(folder), songs) for songs in MOVED)

    song = re.compile(r'"[^"]*\.mp3"')
    descriptors, counts = set(), {"look-ups": 0, "opens": 0, "reads": 0, "closes": 0,
                                  "folder listings": 0, "settings renames": 0}
    for line in lines:
        call = re.match(r"^\d+\s+(\w+)\(", line)
        if not call:
            continue
        name = call.group(1)
        number = re.search(r"= (\d+)$", line)
        first = re.match(r"^\d+\s+\w+\((\d+)", line)
        if song.search(line) and name in ("statx", "newfstatat", "stat", "lstat", "access",
                                          "faccessat2", "readlink", "readlinkat"):
            counts["look-ups"] += 1
        elif song.search(line) and name in ("openat", "openat2", "open"):
            counts["opens"] += 1
            if number:
                descriptors.add(number.group(1))
        elif name in ("read", "pread64") and first and first.group(1) in descriptors:
            counts["reads"] += 1
        elif name == "close" and first and first.group(1) in descriptors:
            counts["closes"] += 1
            descriptors.discard(first.group(1))
        elif name == "getdents64":
            counts["folder listings"] += 1
        elif name in ("rename", "renameat", "renameat2"):
            counts["settings renames"] += 1

    entries = PLAYLISTS * ENTRIES
    if counts["opens"] == 0:
        failures.append("no song was opened: the trace was not understood")
    expect("look-ups of songs", counts["look-ups"], entries)
    expect("opens of songs", counts["opens"], entries)
    expect("reads of songs", counts["reads"], 3 * entries)
    expect("closes of songs", counts["closes"], entries)
    # Opening the machine may list its root; no song costs a listing.
    expect("folder listings", counts["folder listings"], 4)
    # One per generic file, one for the media list, one for the registry.
    expect("settings renames", counts["settings renames"], PLAYLISTS + 2)
    # A name that is not there costs a look at its folder beside its own, however deep it is. How many
    # looks there are beside hangs a little on how fast the disk is: 24 to 27, and 10.5 to 12.
    more = MOVED[1] - MOVED[0]
    expect("look-ups of a move", many[0] - few[0], 30 * more)
    expect("openings of a move", many[1] - few[1], 14 * more)
    if failures:
        sys.exit("too many: " + ", ".join(failures))


main()
