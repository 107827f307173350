#!/usr/bin/env python3
"""Files that are made to fill the memory: what the program takes at most for each of them, and that
those which are refused are named. The sizes are just within a limit, and just within 64 MiB."""

import argparse
import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

MOST_MIB = 256
MEBIBYTE = 1024 * 1024
WITHIN, BEYOND = 40 * MEBIBYTE, 63 * MEBIBYTE

# File name, what stands before, what is repeated, what stands behind.
LISTS = [
    ("One line.m3u", b"#EXTM3U\r\n", b"a", b"\r\n"),
    ("One title.m3u", b"#EXTM3U\r\n#EXTINF:1,", b"a", b"\r\nC:\\a.mp3\r\n"),
    ("Umlauts.m3u", b"#EXTM3U\r\n", b"\xe4", b"\r\n"),
    ("Lines.m3u", b"#EXTM3U\r\n", b"a\n", b""),
    ("Short lines.m3u", b"", b"a\n", b""),
    ("Long addresses.m3u", b"#EXTM3U\r\n", b"http://a/" + b"a" * 2000 + b"\r\n", b""),
    ("One file.pls", b"[playlist]\nNumberOfEntries=1\nVersion=2\nFile1=", b"a", b"\n"),
    ("Sections.pls", b"[playlist]\nNumberOfEntries=1\nVersion=2\n", b"[a]\n", b""),
    ("Keys.pls", b"[playlist]\nNumberOfEntries=1\nVersion=2\n", b"a=\n", b""),
    ("One entry.asx", b"<Asx>\r\n<Entry>\r\n<Title>", b"a",
     b"</Title>\r\n<Ref href=\"a\"/>\r\n</Entry>\r\n</Asx>"),
    ("Entries.asx", b"<Asx>", b"<Entry><Ref href=a></Entry>", b"</Asx>"),
    ("Tags.wpl", b"<smil>", b"<a/>", b"</smil>"),
    ("Nested.wpl", b"<smil>", b"<a>", b"</smil>"),
    ("Quotes.wpl", b"<smil><media src='a'/>", b"\"", b"<</smil>"),
    ("Tracks.xspf", b"<playlist><trackList>", b"<track><location>a</location></track>",
     b"</trackList></playlist>"),
]


def write(path, row, size):
    """In pieces: what this script takes counts with what it starts."""
    _, before, repeated, behind = row
    left = (size - len(before) - len(behind)) // len(repeated)
    piece = MEBIBYTE // 16 // len(repeated)
    with path.open("wb") as file:
        file.write(before)
        while left > 0:
            file.write(repeated * min(piece, left))
            left -= piece
        file.write(behind)


def track(number, place):
    """`place` is that of its song."""
    return (f"<key>{number}</key><dict><key>Track ID</key><integer>{number}</integer>"
            f"<key>Name</key><string>Song number {number}</string>"
            f"<key>Artist</key><string>Artist number {number // 50}</string>"
            f"<key>Album</key><string>Album number {number // 12}</string>"
            f"<key>Genre</key><string>Rock</string><key>Comments</key><string>{'c' * 117}</string>"
            f"<key>Total Time</key><integer>{200000 + number}</integer>"
            f"<key>Location</key><string>file://localhost/C:/Music/"
            f"{song_path(place).replace(' ', '%20')}</string></dict>\n").encode()


def song_path(number):
    return f"Artist {number // 50}/Album {number // 12}/Song {number}.mp3"


SONGS = 89316


def write_library(path, places=SONGS, songs=SONGS, lists=40, listed=5000):
    """An iTunes library of 60 MiB whose songs are at so many places."""
    with path.open("wb") as file:
        file.write(b"<plist version=\"1.0\">\n<dict><key>Tracks</key><dict>\n")
        for number in range(songs):
            file.write(track(number, number % places))
        file.write(b"</dict><key>Playlists</key><array>\n")
        for number in range(lists):
            file.write(f"<dict><key>Name</key><string>List {number}</string>"
                       "<key>Playlist Items</key><array>\n".encode())
            for item in range(number * listed, (number + 1) * listed):
                file.write(f"\t<dict>\n\t\t<key>Track ID</key><integer>{item * 7 % songs}</integer>"
                           "\n\t</dict>\n".encode())
            file.write(b"</array></dict>\n")
        file.write(b"</array></dict></plist>\n")
    assert 58 * MEBIBYTE < path.stat().st_size < 62 * MEBIBYTE, path.stat().st_size


def write_songs(music, count):
    for number in range(count):
        path = music / song_path(number)
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(b"ID3\3\0\0\0\0\0\0" + b"\xff\xfb\x90\0" + bytes(405) +
                         number.to_bytes(8, "big"))


def library_with_songs(program, folder, places):
    """The same where all songs are there. What is wrong."""
    old = folder / f"library {places}"
    path = old / "C" / "Music" / "iTunes Music Library.xml"
    path.parent.mkdir(parents=True)
    (old / "machine.ini").write_text("[Drives]\nC=fixed\n")
    write_library(path, places)
    write_songs(path.parent, places)
    failures = []
    new = folder / f"library {places} new"
    move = ("migrate", "--quiet", "--no-media", "--from", old, "--to", new)
    for options in (("--dry-run",), ()):
        what = " ".join(("migrate", *options)) + f", a library of {places} songs"
        peak, code, errors = peak_of(program, *move, *options)
        print(f"{what}: {peak:.0f} MiB, exit code {code}")
        if peak >= MOST_MIB or code != 0:
            failures.append(f"{what}: {errors.decode()[-500:]}")
        shutil.rmtree(old / "C" / "Norvo", ignore_errors=True)
    shutil.rmtree(old)
    return failures


def library(program, folder):
    """What is wrong with how a large library is read and moved."""
    old = folder / "library"
    path = old / "C" / "Music" / "iTunes Music Library.xml"
    path.parent.mkdir(parents=True)
    (old / "machine.ini").write_text("[Drives]\nC=fixed\n")
    write_library(path)
    move = ("migrate", "--no-media", "--from", old, "--to", folder / "library new")
    commands = {"verify": ("verify", "--machine", old, "C:\\Music\\" + path.name),
                "migrate --dry-run": (*move, "--dry-run"), "migrate": move}
    failures = []
    for name, command in commands.items():
        peak, code, errors = peak_of(program, *command)
        print(f"{name}, a library of 60 MiB: {peak:.0f} MiB, exit code {code}")
        # Songs that are missing count when a list is verified; moved is what is there.
        if peak >= MOST_MIB or code != (1 if name == "verify" else 0):
            failures.append(f"{name}, a library: {errors.decode()[-500:]}")
    return failures


def peak_of(*command):
    """MiB, exit code, and what stands on standard error."""
    with tempfile.TemporaryFile() as errors:
        process = subprocess.Popen([str(part) for part in command], stdout=subprocess.DEVNULL,
                                   stderr=errors)
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        errors.seek(0)
        return usage.ru_maxrss / 1024, process.returncode, errors.read()


def longest_list(program, folder):
    """The list of as many entries as can be counted, with a path as long as Windows takes them, is
    moved whole: what is refused must be beyond it. What is wrong."""
    old = folder / "longest"
    music = old / "C" / "Music"
    music.mkdir(parents=True)
    song = "Long " * 36 + "name.mp3"
    (music / song).write_bytes(b"ID3\3\0\0\0\0\0\0" + b"\xff\xfb\x90\0" + bytes(413))
    (music / "All.m3u").write_bytes(f"C:\\Music\\{song}\r\n".encode() * 32767)
    peak, code, errors = peak_of(program, "migrate", "--quiet", "--from", old, "--to",
                                 folder / "longest new")
    print(f"migrate, 32,767 entries: {peak:.0f} MiB, exit code {code}")
    return [] if code == 0 and peak < MOST_MIB else [f"the longest list: {errors.decode()}"]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--program", required=True)
    parser.add_argument("--all", action="store_true",
                        help="the longest one, too, which writes 89,316 songs")
    options = parser.parse_args()
    failures = []
    with tempfile.TemporaryDirectory() as folder:
        old = Path(folder) / "old"
        music = old / "C" / "Music"
        music.mkdir(parents=True)
        (old / "machine.ini").write_text("[Drives]\nC=fixed\n")
        for row in LISTS:
            path = music / row[0]
            for size in (WITHIN, BEYOND):
                write(path, row, size)
                commands = {
                    "verify": ("--machine", old, "C:\\Music\\" + row[0]),
                    "migrate": ("--no-media", "--dry-run", "--from", old, "--to",
                                Path(folder) / "new"),
                }
                if path.suffix in (".m3u", ".pls", ".asx"):
                    commands["show"] = ("--machine", old, "C:\\Music\\" + row[0])
                for command, arguments in commands.items():
                    what = f"{command}, {row[0]} of {size // MEBIBYTE} MiB"
                    peak, code, errors = peak_of(options.program, command, *arguments)
                    print(f"{what}: {peak:.0f} MiB, exit code {code}")
                    if peak >= MOST_MIB:
                        failures.append(what)
                    if size == BEYOND and (code != 1 or row[0].encode() not in errors):
                        failures.append(what + " is not named")
            path.unlink()
        failures += longest_list(options.program, Path(folder))
        failures += library(options.program, Path(folder))
        failures += library_with_songs(options.program, Path(folder), 500)
        if options.all:
            failures += library_with_songs(options.program, Path(folder), SONGS)
    if failures:
        sys.exit("too much memory: " + "; ".join(failures))


main()
