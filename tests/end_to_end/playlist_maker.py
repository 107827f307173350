"""Writes playlists of a generated machine, in every syntax and encoding, well and less well."""

import ntpath
import re
from urllib.parse import quote

from machine_description import Item, Playlist
from machine_words import (ADDRESSES, ALBUMS, ARTISTS, MISSING, ODD_TEXTS, PLAYER_PLACES,
                           PLAYLIST_NAMES, SKIPPED_PLACES, TITLES, WIDE_PLAYLIST_NAMES)
from native_playlists import fits_code_page, upper


class PlaylistMaker:
    """Writes one playlist of the old machine."""

    ENCODINGS = ["cp1252"] * 10 + ["utf-8-sig"] * 4 + ["utf-8"] * 4 + ["utf-16-le"] * 4 + [
        "utf-16-be"]

    def __init__(self, maker):
        self.maker = maker
        self.random = maker.random
        self.often = maker.often
        self.one = maker.one
        self.encoding = self.one(self.ENCODINGS)
        self.syntax = self.one(["m3u", "m3u", "asx", "pls"])
        self.form = {}
        self.folder = ""

    def make(self):
        path = self.place()
        if path is None:
            return
        self.folder = ntpath.dirname(path).rstrip("\\") + "\\"
        write = {"m3u": self.m3u, "asx": self.asx, "pls": self.pls}[self.syntax]
        self.choose_form()
        chosen = self.items()
        text = write(chosen)
        raw = self.encoded(text)
        if self.encoding == "cp1252" and self.looks_like_utf8(raw):
            self.encoding = "utf-8-sig"
            raw = self.encoded(text)
        what = f"{self.syntax} {self.encoding} {self.form}"
        skipped = any(re.search(r"recycle|temporary internet files|^system volume", name, re.I)
                      for name in path[3:].split("\\")[:-1])
        self.maker.made.playlists.append(
            Playlist(path, [item for item, _ in chosen], skipped, what))
        self.maker.put(self.maker.made.old, path, raw)

    def encoded(self, text):
        if self.encoding.startswith("utf-16"):
            return ("\ufeff" + text).encode(self.encoding)
        return text.encode(self.encoding, errors="replace")

    @staticmethod
    def looks_like_utf8(raw):
        if raw.isascii():
            return False
        try:
            raw.decode("utf-8")
        except UnicodeDecodeError:
            return False
        return True

    def place(self):
        """A path that is free; nothing after some trials."""
        for _ in range(10):
            kind = self.random.random()
            if kind < 0.08:
                folder = "C:\\" + self.one(SKIPPED_PLACES) + "\\"
            elif kind < 0.35:
                folder = self.one(self.maker.letters) + ":\\" + self.one(PLAYER_PLACES) + "\\"
            elif kind < 0.8:
                folder = ntpath.dirname(self.one(self.maker.made.songs).path).rstrip("\\") + "\\"
            else:
                folder = self.maker.folder()
            name = self.one(PLAYLIST_NAMES if self.often(0.85) else WIDE_PLAYLIST_NAMES)
            if self.often(0.05):
                name = "long name " * self.random.randrange(8, 21)
            if self.maker.names and self.often(0.5):
                name = ntpath.splitext(self.one(self.maker.names))[0]
            ending = self.syntax
            if self.syntax == "asx" and self.often(0.3):
                ending = "m3u"
            if self.often(0.25):
                ending = self.one([ending.upper(), ending.title()])
            path = folder + name + "." + ending
            if self.maker.settle(path):
                return path
        return None

    # ---- what it lists ----

    def choose_form(self):
        if self.syntax == "asx":
            self.form = {"quote": self.one(['"', '"', '"', "'"]), "per_line": self.often(0.25),
                         "escaped": self.often(0.4), "comments": self.often(0.15),
                         "blanks": self.often(0.2), "attribute": self.often(0.1),
                         "broken": self.often(0.1), "closed": self.often(0.1),
                         "end": self.one(["\r\n", "\r\n", "\n"])}
        elif self.syntax == "pls":
            self.form = {"tail": self.one(["Version=2", "Version=2", "", "Version=3"]),
                         "equals": self.one(["=", "=", "=", " = "]), "small": self.often(0.1),
                         "comment": self.often(0.1),
                         "cached": self.often(0.15), "count": self.often(0.85),
                         "gaps": self.often(0.2), "end": self.one(["\r\n", "\r\n", "\r\n", "\n"])}
            self.form["gaps"] = self.form["gaps"] and self.form["count"]
        else:
            self.form = {"kind": self.one(["header", "header", "header", "bare", "bare", "comments",
                                           "relative"]),
                         "end": self.one(["\r\n"] * 4 + ["\n", "\r"]), "lead": self.often(0.1),
                         "last_title": self.often(0.1), "nul": self.often(0.1),
                         "trail": self.often(0.1)}
            self.form["nul"] = self.form["nul"] and self.form["kind"] == "bare"

    def items(self):
        """The items, each with the text that names it."""
        chosen = []
        for _ in range(self.one([0, 1, 2, 3, 4, 5, 8, 12])):
            kind = self.random.random()
            if kind < 0.7:
                song = self.one(self.maker.made.songs)
                if chosen and self.often(0.1):
                    song = self.one(chosen)[0].song or song
                reference = self.reference_to(song.path)
                if reference is not None:
                    chosen.append((Item("song", song=song), reference))
            elif kind < 0.85:
                address = self.one(ADDRESSES)
                if self.can_hold(address) and not (self.form.get("escaped") and "&" in address):
                    chosen.append((Item("address", address=address), address))
            else:
                reference = self.one(MISSING + ["C:\\My Documents\\readme.txt", "C:\\My Documents"])
                chosen.append((Item("missing"), reference))
        return chosen

    def can_hold(self, text):
        if self.encoding == "cp1252" and not fits_code_page(text):
            return False
        if self.syntax == "asx" and self.form["quote"] == "'" and not self.form["escaped"]:
            return "'" not in text
        return not (self.syntax == "m3u" and text.startswith("#"))

    def reference_to(self, path):
        """One of the ways to name a song in this playlist; nothing when there is none."""
        fitting = [text for text in self.spellings(path) if self.can_hold(text)]
        return self.one(fitting) if fitting else None

    def spellings(self, path):
        yield path
        yield self.other_case(path)
        yield path.replace("\\", "/")
        yield path[:3] + "nowhere\\..\\" + path[3:]
        # A cp1252 list does not name by the back door what its page lacks.
        if self.encoding != "cp1252" or fits_code_page(path):
            yield "file:///" + path[:2] + quote(path[2:].replace("\\", "/"))
        if not set(path) & set("%#?"):
            yield "file:///" + path.replace("\\", "/")
        if upper(path[0]) != upper(self.folder[0]):
            return
        yield path[2:]
        relative = ntpath.relpath(path, self.folder)
        for _ in range(2):
            yield relative if self.often(0.7) else self.other_case(relative)
        yield relative.replace("\\", "/")
        if not relative.startswith(".."):
            yield ".\\" + relative
            yield "./" + relative.replace("\\", "/")

    def other_case(self, text):
        """Another spelling that Windows takes for the same name."""
        result = []
        for character in text:
            other = self.one([character, character.lower(), character.upper()])
            same = len(other) == 1 and upper(other) == upper(character)
            result.append(other if same and ord(character) != 0xB5 else character)
        return "".join(result)

    def title(self):
        return self.one(TITLES + ["Artist - Title", "a, b - c", "Grüße / Köln", "x - ", "Песня"])

    # ---- the syntaxes ----

    def m3u(self, items):
        kind = self.form["kind"]
        if kind == "bare" and items and not re.match(r".:\\", items[0][1]):
            kind = self.form["kind"] = "relative"
        lines = ["#EXTM3U"] if kind == "header" else []
        if kind == "comments":
            lines = [self.one(["# made by hand", "", "#", "# x"])
                     for _ in range(self.random.randrange(4, 8))]
        for _, reference in items:
            if kind in ("header", "comments") and self.often(0.6):
                lines.append(f"#EXTINF:{self.one(['215', '-1', '1234', ''])}"
                             f"{self.one([',', ',', ',', ''])}{self.title()}")
                lines += self.one([[]] * 8 + [["#EXTINF:12,again"], [""], ["# remark"]])
            nul = "\0" if self.form["nul"] and self.encoding == "cp1252" else ""
            lines.append(("  " if self.form["lead"] else "") + reference + nul +
                         ("  " if self.form["trail"] else ""))
            if self.often(0.05):
                lines.append("")
        if self.form["last_title"] and kind == "header":
            lines.append("#EXTINF:100,Nobody - Nothing")
        return self.form["end"].join(lines) + (self.form["end"] if self.often(0.9) else "")

    def pls(self, items):
        lines, number, equals = [], 0, self.form["equals"]
        if self.form["cached"]:
            lines.append("CachedInfo=1")
        for _, reference in items:
            number += self.one([1, 1, 2]) if self.form["gaps"] else 1
            lines.append(f"{'file' if self.form['small'] else 'File'}{number}{equals}{reference}")
            if self.often(0.6):
                lines.append(f"Title{number}{equals}{self.title()}")
                lines.append(f"Length{number}{equals}{self.one(['-1', '215'])}")
        if self.form["count"]:
            lines.insert(self.one([0, len(lines)]), f"NumberOfEntries{equals}{number}")
        lines += [self.form["tail"]] if self.form["tail"] else []
        lines.insert(0, "[Playlist]" if self.form["small"] else "[playlist]")
        if self.form["comment"]:
            lines = ["; written by hand", ""] + lines
        return self.form["end"].join(lines + [""])

    def attribute(self, value):
        quote_mark = self.form["quote"]
        if self.form["escaped"]:
            value = value.replace("&", self.one(["&amp;", "&amp;", "&#38;", "&#x26;"]))
            value = value.replace("'", "&apos;" if quote_mark == "'" else "'")
        return quote_mark + value + quote_mark

    def parameter(self, name, values):
        """A Param element, sometimes, of a text that fits into it."""
        value = self.one(values)
        fits = not set(value) & set("<>\"'\r\n\0") and (self.encoding != "cp1252"
                                                       or fits_code_page(value))
        if not fits or not self.often(0.3):
            return []
        return [f"<Param Name = {self.attribute(name)} Value = {self.attribute(value)} />"]

    def asx_entry(self, reference, gap):
        entry = [self.one(["<Entry>", "<ENTRY>", "<entry>"])]
        if self.form["attribute"]:
            entry = ['<Entry ClientSkip="no">']
        entry += self.parameter("Artist", ARTISTS + ODD_TEXTS)
        entry += self.parameter("Album", ALBUMS + ODD_TEXTS)
        if self.often(0.3):
            entry.append(f"<Title>{self.one(['Signal', 'Night', 'x y'])}</Title>")
        ref, href = self.one(["Ref", "REF", "ref"]), self.one(["href", "HREF", "Href"])
        equals, end = self.one([" = ", "="]), self.one(["/>", " />"])
        if self.form["closed"]:
            end = f"></{ref}>"
        if self.form["broken"]:
            gap = self.form["end"]
        entry.append(f"<{ref}{gap}{href}{equals}{self.attribute(reference)}{end}")
        return entry + ["</Entry>"]

    def asx(self, items):
        gap = "  " if self.form["blanks"] else " "
        version = self.one(["Version", "version", "VERSION"])
        lines = ["<!-- by hand", "one", "two", "three", "-->"] if self.form["comments"] else []
        lines.append(f"<ASX{gap}{version} = {self.attribute('3.0')}>")
        lines += self.parameter("Name", ["Party", "..\\x", "C:\\x", "Mix.m3u", "Mix", "a:b",
                                         "Mix.asx"])
        for _, reference in items:
            entry = self.asx_entry(reference, gap)
            lines += [" ".join(entry)] if self.form["per_line"] else entry + self.one([[], [""]])
        return self.form["end"].join(lines + ["</ASX>", ""])
