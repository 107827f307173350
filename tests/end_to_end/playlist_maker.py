"""Writes playlists of a generated machine, in every syntax and encoding, well and less well."""

import ntpath
import re
from urllib.parse import quote

from machine_addresses import ADDRESSES, MISSING, PLAYER_PLACES, SKIPPED_PLACES
from machine_description import Item, Playlist
from makers import playlists
from makers.chance import ByChance
from makers.text import encoded, joined
from makers.words import (ALBUMS, ARTISTS, ODD_TEXTS, PLAYLIST_NAMES, TITLES,
                          WIDE_PLAYLIST_NAMES)
from native_playlists import fits_code_page, upper


class PlaylistMaker(ByChance):
    """Writes one playlist of the old machine."""

    ENCODINGS = ["cp1252"] * 10 + ["utf-8-sig"] * 4 + ["utf-8"] * 4 + ["utf-16-le"] * 4 + [
        "utf-16-be"]

    def __init__(self, maker):
        super().__init__(maker.random)
        self.maker = maker
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
        return encoded(text, self.encoding, errors="replace")

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
        head = [playlists.HEADER] if kind == "header" else []
        if kind == "comments":
            head = [self.one(["# made by hand", "", "#", "# x"])
                    for _ in range(self.random.randrange(4, 8))]
        written = [self.m3u_item(reference, kind) for _, reference in items]
        tail = []
        if self.form["last_title"] and kind == "header":
            tail = [playlists.title_line("Nobody - Nothing", 100)]
        return joined(playlists.m3u(written, head, tail), self.form["end"], self.often(0.9))

    def m3u_item(self, reference, kind):
        nul = "\0" if self.form["nul"] and self.encoding == "cp1252" else ""
        item = playlists.Item(("  " if self.form["lead"] else "") + reference + nul +
                              ("  " if self.form["trail"] else ""))
        if kind in ("header", "comments") and self.often(0.6):
            item.seconds = self.one(["215", "-1", "1234", ""])
            item.comma = self.one([",", ",", ",", ""])
            item.title = self.title()
            item.between = self.one([[]] * 8 + [["#EXTINF:12,again"], [""], ["# remark"]])
        if self.often(0.05):
            item.after = [""]
        return item

    def pls(self, items):
        form, written = self.form, []
        for _, reference in items:
            written.append(self.pls_item(reference, written[-1].number if written else 0))
        lines = playlists.pls(
            written, count=playlists.ALL if form["count"] else None,
            count_first=form["count"] and self.one([True, False]),
            head=["CachedInfo=1"] if form["cached"] else [],
            tail=[form["tail"]] if form["tail"] else [], equals=form["equals"],
            section="[Playlist]" if form["small"] else "[playlist]",
            key="file" if form["small"] else "File")
        return joined((["; written by hand", ""] if form["comment"] else []) + lines, form["end"])

    def pls_item(self, reference, last):
        number = last + (self.one([1, 1, 2]) if self.form["gaps"] else 1)
        item = playlists.Item(reference, number=number)
        if self.often(0.6):
            item.title = self.title()
            item.seconds = self.one(["-1", "215"])
        return item

    def escaped(self, value):
        if self.form["escaped"]:
            value = value.replace("&", self.one(["&amp;", "&amp;", "&#38;", "&#x26;"]))
            if self.form["quote"] == "'":
                value = value.replace("'", "&apos;")
        return value

    def parameter(self, name, values):
        """A Param element, sometimes, of a text that fits into it."""
        value = self.one(values)
        fits = not set(value) & set("<>\"'\r\n\0") and (self.encoding != "cp1252"
                                                       or fits_code_page(value))
        if not fits or not self.often(0.3):
            return []
        return [playlists.param(self.escaped(name), self.escaped(value),
                                quote=self.form["quote"])]

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
        entry.append(playlists.element(ref, {href: self.escaped(reference)}, gap, equals,
                                       self.form["quote"], end))
        return entry + ["</Entry>"]

    def asx(self, items):
        gap = "  " if self.form["blanks"] else " "
        version = self.one(["Version", "version", "VERSION"])
        lines = ["<!-- by hand", "one", "two", "three", "-->"] if self.form["comments"] else []
        lines.append(playlists.element("ASX", {version: self.escaped("3.0")}, gap,
                                       quote=self.form["quote"], end=">"))
        lines += self.parameter("Name", ["Party", "..\\x", "C:\\x", "Mix.m3u", "Mix", "a:b",
                                         "Mix.asx"])
        for _, reference in items:
            entry = self.asx_entry(reference, gap)
            lines += [" ".join(entry)] if self.form["per_line"] else entry + self.one([[], [""]])
        return joined(lines + ["</ASX>"], self.form["end"])
