#!/usr/bin/env python3
"""The queue's work as a script does it with the standard library alone: reads the M3U playlists that
the list file names, looks each song up, reads its ID3v2 or ID3v1 tag, and writes a settings file
for each playlist and one list of all songs. Prints how many entries it went over.

With --remember the tag of a song that stands in several playlists is read once.
"""

import argparse
import os
import time

DATA_AREA = "C/My Documents/Norvo Media/KVs/"
MUSIC = "C:\\My Documents\\Norvo Media\\Music\\"
TEXT_FRAMES = {b"TIT2": "title", b"TPE1": "artist", b"TALB": "album", b"TYER": "year",
               b"TRCK": "track", b"TLEN": "length", b"TCON": "genre"}
ENCODINGS = ("latin-1", "utf-16", "utf-16-be", "utf-8")
ID3V1_SIZE = 128


def decoded(payload):
    """The text of a frame; its first byte tells the encoding."""
    if not payload or payload[0] >= len(ENCODINGS):
        return ""
    return payload[1:].decode(ENCODINGS[payload[0]], "replace").rstrip("\0")


def frames_of(tag, version, end):
    """The texts in the frames of an ID3v2.3 or v2.4 tag."""
    texts, at = {}, 10
    while at + 10 <= end:
        name = tag[at:at + 4]
        if name[0] == 0:
            break
        size = int.from_bytes(tag[at + 4:at + 8], "big")
        if version == 4:
            size = (size & 0x7F) | (size >> 1 & 0x3F80) | (size >> 2 & 0x1FC000)
        key = TEXT_FRAMES.get(name)
        if key:
            texts[key] = decoded(tag[at + 10:at + 10 + size])
        at += 10 + size
    return texts


def read_tag(path):
    """The texts of a song's tag; none when it has no tag."""
    with open(path, "rb", buffering=0) as file:
        start = file.read(4096)
        if start[:3] == b"ID3":
            size = start[6] << 21 | start[7] << 14 | start[8] << 7 | start[9]
            if size + 10 > len(start):
                start += file.read(size + 10 - len(start))
            return frames_of(start, start[3], min(size + 10, len(start)))
        file.seek(-ID3V1_SIZE, os.SEEK_END)
        end = file.read(ID3V1_SIZE)
    if end[:3] != b"TAG":
        return {}
    title, artist, album = (end[at:at + 30].rstrip(b"\0 ").decode("latin-1") for at in (3, 33, 63))
    return {"title": title, "artist": artist, "album": album, "year": end[93:97].decode("latin-1")}


def items_of(text):
    """Seconds, title and reference of each item of an M3U."""
    seconds, title = "", ""
    for line in text.splitlines():
        if line.startswith("#EXTINF:"):
            seconds, _, title = line[8:].partition(",")
        elif line and not line.startswith("#"):
            yield seconds, title, line
            seconds, title = "", ""


def section(number, reference, size, seconds, title, tag):
    """One entry of a settings file."""
    length = tag.get("length")
    lines = [f"[Entry {number} Properties]"]
    for key, value in (("Artist", tag.get("artist")), ("Album", tag.get("album")),
                       ("CreationDate", tag.get("year")),
                       ("Duration", length and int(length) // 1000 or seconds),
                       ("FileName", reference.rpartition("\\")[2]), ("FileSize", size),
                       ("Genre", tag.get("genre")), ("HasExtendedInfo", bool(tag)),
                       ("SongName", tag.get("title")), ("SongTitle", title),
                       ("SourceURL", reference), ("TrackNumber", tag.get("track")),
                       ("URLType", 0)):
        if value not in (None, ""):
            lines.append(f"{key}={value}")
    return "\r\n".join(lines)


class Collector:
    """Goes over the playlists of a machine; knows the songs that are in the list."""

    def __init__(self, machine, remember):
        self.drive = os.path.join(machine, "C/")
        self.data_area = os.path.join(machine, DATA_AREA)
        self.tags = {} if remember else None
        self.listed = set()
        self.entries = 0

    def run(self):
        with open(self.data_area + "PlayLists.txt", encoding="cp1252") as file:
            paths = [line.partition("=")[2] for line in file.read().splitlines()
                     if line.startswith("File")]
        with open(self.data_area + "MediaList.txt", "w", encoding="utf-8-sig", newline="") as songs:
            for path in paths:
                self.collect(path, songs)

    def place(self, path):
        return self.drive + path[3:].replace("\\", "/")

    def tag_of(self, path):
        if self.tags is None:
            return read_tag(path)
        if path not in self.tags:
            self.tags[path] = read_tag(path)
        return self.tags[path]

    def collect(self, path, songs):
        place, name = self.place(path), path.rpartition("\\")[2]
        with open(place, encoding="cp1252", newline="") as file:
            items = list(items_of(file.read()))
        sections = []
        for seconds, title, reference in items:
            song = self.place(reference)
            try:
                size = os.stat(song).st_size
            except OSError:
                continue
            tag = self.tag_of(song)
            sections.append(section(len(sections) + 1, reference, size, seconds, title, tag))
            if reference not in self.listed:
                self.listed.add(reference)
                songs.write(f"Media PlayLists\t{reference}\tGET_SHELL_FOLDER,5,Media PlayLists,"
                            f"{MUSIC}{tag.get('artist')}\\{tag.get('album')}\\\r\n")
        created = time.strftime("%m/%d/%Y %I:%M:%S %p", time.localtime(os.stat(place).st_mtime))
        head = (f"[Global Properties]\r\nPavaneVersion=1.6\r\nPlaylistName={name[:-4]}\r\n"
                f"PlaylistType=3\r\nOriginalFileName={name}\r\nCreationTime={created}\r\n"
                f"TotalSongs={len(sections)}")
        with open(self.data_area + name[:-4] + ".ini", "w", encoding="cp1252", newline="") as file:
            file.write("\r\n\r\n".join([head, *sections, ""]))
        self.entries += len(sections)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("machine", help="the machine's folder")
    parser.add_argument("--remember", action="store_true", help="read the tag of a song once")
    options = parser.parse_args()
    collector = Collector(options.machine, options.remember)
    collector.run()
    print(collector.entries)


if __name__ == "__main__":
    main()
