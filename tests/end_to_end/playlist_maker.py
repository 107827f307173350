"""Writes playlists of a generated machine, in every syntax and encoding, well and less well."""

import ntpath
import re
import unicodedata
from urllib.parse import quote

from lost_songs import candidates
from machine_addresses import (ADDRESSES, MISSING, PLAYER_PLACES, SKIPPED_PLACES,
                               UNREAD_ENDINGS)
from machine_description import Item, Playlist
from makers import playlists
from makers.chance import ByChance
from makers.text import encoded, joined
from markup_maker import IN_ADDRESSES, LIBRARY_NAMES, SYNTAXES, MarkupMaker, address_of
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
        self.syntax = self.one(["m3u"] * 5 + ["asx", "pls"] * 3 + ["m3u8", *SYNTAXES])
        if self.syntax in ("m3u8", *SYNTAXES):
            self.encoding = self.one(["utf-8", "utf-8", "utf-8-sig"])
        self.lengths = {}
        self.form = {}
        self.folder = ""

    def make(self):
        self.choose_form()
        path = self.place()
        if path is None:
            return
        self.folder = ntpath.dirname(path).rstrip("\\") + "\\"
        if self.often(0.06):
            self.make_unread(path)
        elif self.syntax == "itunes":
            self.make_library(path)
        else:
            self.make_list(path)

    def make_list(self, path):
        chosen = self.items()
        text = self.text(chosen)
        raw = self.encoded(text)
        if self.encoding == "cp1252" and self.looks_like_utf8(raw):
            self.encoding = "utf-8-sig"
            raw = self.encoded(text)
        self.note(path, chosen, self.lengths)
        self.maker.put(self.maker.made.old, path, raw)

    def text(self, chosen):
        if self.syntax in SYNTAXES:
            markup = MarkupMaker(self.random, self.syntax)
            text = markup.text(chosen)
            self.lengths = markup.lengths
            return text
        write = {"m3u": self.m3u, "m3u8": self.m3u, "asx": self.asx, "pls": self.pls}
        blanks = self.one([" ", "\t", "  \t "]) if self.form["blank_mark"] else ""
        return blanks + write[self.syntax](chosen)

    def make_library(self, path):
        names = self.random.sample(sorted({name.strip() for name in PLAYLIST_NAMES}) +
                                   WIDE_PLAYLIST_NAMES, self.random.randrange(1, 5))
        lists = [(name, self.items()) for name in names]
        markup = MarkupMaker(self.random, self.syntax)
        text = markup.library(lists)
        first = 0
        for name, chosen in lists:
            self.note(path, chosen, {number - first: seconds
                                     for number, seconds in markup.lengths.items()
                                     if first <= number < first + len(chosen)}, name)
            first += len(chosen)
        self.maker.put(self.maker.made.old, path, self.encoded(text))

    def make_unread(self, path):
        if not self.is_skipped(path):
            path = ntpath.splitext(path)[0] + self.one(UNREAD_ENDINGS)
            if self.maker.settle(path):
                self.maker.put(self.maker.made.old, path, b"\0\1\2 for one player alone\xff")
                self.maker.made.unread.append(path)

    def note(self, path, chosen, lengths, name=""):
        what = f"{self.syntax} {self.encoding} {self.form}"
        self.maker.made.playlists.append(
            Playlist(path, [item for item, _ in chosen], self.is_skipped(path), what, name,
                     lengths))

    @staticmethod
    def is_skipped(path):
        return any(re.search(r"recycle|temporary internet files|^system volume", name, re.I)
                   for name in path[3:].split("\\")[:-1])

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
            if self.syntax == "itunes":
                name = self.one(LIBRARY_NAMES)
            path = folder + name + "." + self.ending()
            if self.maker.settle(path):
                return path
        return None

    def ending(self):
        """The usual ending of its syntax, in some case, or another one where the text says what
        it is."""
        ending = self.one({"asx": ["asx", "asx", "asx", "m3u", "wax", "wvx"],
                           "itunes": ["xml"]}.get(self.syntax, [self.syntax]))
        if self.form["marked"] and self.often(0.15):
            ending = self.one(["m3u", "pls", "asx", "m3u8", "wpl", "xspf"])
            plain = not self.form["blank_mark"] and not self.encoding.startswith("utf-16")
            if self.syntax in ("m3u", "m3u8", "pls") and plain:
                ending = self.one([ending, "txt", "list"])
        return self.one([ending.upper(), ending.title()]) if self.often(0.25) else ending

    # ---- what it lists ----

    def choose_form(self):
        self.choose_syntax_form()
        # The text begins with what tells its syntax.
        kinds = {"asx": not self.form.get("comments"), "pls": not self.form.get("comment"),
                 "itunes": False}
        self.form["marked"] = kinds.get(self.syntax, self.form.get("kind", "header") == "header")
        self.form["blank_mark"] = (self.form["marked"] and self.syntax not in SYNTAXES and
                                   self.often(0.05))

    def choose_syntax_form(self):
        if self.syntax in SYNTAXES:
            self.form = {}
        elif self.syntax == "asx":
            self.form = {"quote": self.one(['"', '"', '"', "'"]), "per_line": self.often(0.25),
                         "escaped": self.often(0.4), "comments": self.often(0.15),
                         "blanks": self.often(0.2), "attribute": self.often(0.1),
                         "broken": self.often(0.1), "closed": self.often(0.1),
                         "end": self.one(["\r\n", "\r\n", "\n"])}
        elif self.syntax == "pls":
            self.form = {"tail": self.one(["Version=2", "Version=2", "", "Version=3"]),
                         "equals": self.one(["=", "=", "=", " = "]), "small": self.often(0.1),
                         "comment": self.often(0.1),
                         "cached": self.often(0.15),
                         "count": self.one([playlists.ALL] * 10 + [None] * 2 + [
                             "1", "2", "0", "-1", "2.5", "99999999999", "", "some"]),
                         "gaps": self.often(0.2), "end": self.one(["\r\n", "\r\n", "\r\n", "\n"])}
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
                chosen += self.song_item(chosen)
            elif kind < 0.85:
                address = self.one(ADDRESSES)
                if self.can_hold(address) and not (self.form.get("escaped") and "&" in address):
                    chosen.append((Item("address", address=address), address))
            else:
                reference = self.one(MISSING + ["C:\\My Documents\\readme.txt", "C:\\My Documents"])
                if self.syntax in IN_ADDRESSES:
                    reference = address_of("C:\\Music\\no such song.mp3", self.random)
                chosen.append((Item("missing"), reference))
        return chosen

    def song_item(self, chosen):
        """A song as it is named here, or as it was named where it stood once."""
        song = self.one(self.maker.made.songs)
        if chosen and self.often(0.1):
            song = self.one(chosen)[0].song or song
        if self.often(0.12):
            return self.moved_item(song)
        reference = self.reference_to(song.path)
        return [] if reference is None else [(Item("song", song=song), reference)]

    def moved_item(self, song):
        """Names a place where nothing is, and what is found for it."""
        if self.often(0.4):
            own = [ntpath.basename(each.path) for each in self.maker.made.songs]
            song = self.one([each for each in self.maker.made.songs
                             if own.count(ntpath.basename(each.path)) > 1] or [song])
        names = song.path[3:].split("\\")
        if self.often(0.3):
            names = names[-1:]
        kept = "\\".join(names[-self.random.randrange(1, len(names) + 1):])
        path = self.one([self.one("CDE") + song.path[1:], "C:\\Old Disk\\" + kept,
                         self.folder + "Away\\" + kept, "E:\\" + kept])
        if self.maker.has(path) or not self.can_hold(path):
            return []
        found = candidates(path, self.maker.made.songs)
        contents = {each.content for each in found}
        if not found or len(contents) < len(found):
            return []  # of two that are the same it does not matter which is taken
        self.maker.keep_found(path)
        reference = address_of(path, self.random) if self.syntax in IN_ADDRESSES else path
        item = (Item("song", song=found[0]) if len(found) == 1 else
                Item("ambiguous", candidates=tuple(each.path for each in found)))
        return [(item, reference)]

    def can_hold(self, text):
        if self.encoding == "cp1252" and not fits_code_page(text):
            return False
        if self.syntax == "asx" and self.form["quote"] == "'" and not self.form["escaped"]:
            return "'" not in text
        if self.syntax in (*IN_ADDRESSES, "b4s") and not re.match(r"\w\w+:|.:\\", text):
            return False
        return not (self.syntax in ("m3u", "m3u8") and text.startswith("#"))

    def reference_to(self, path):
        """One of the ways to name a song in this playlist; nothing when there is none."""
        fitting = [text for text in self.spellings(path) if self.can_hold(text)]
        return self.one(fitting) if fitting else None

    def spellings(self, path):
        if self.syntax in IN_ADDRESSES:
            yield address_of(path, self.random)
            return
        yield path
        yield path + "\\"
        other = self.other_composition(path)
        if other:
            yield other
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

    def other_composition(self, path):
        """Another spelling that people take for the same, where no second file has that name."""
        forms = [unicodedata.normalize(form, path) for form in ("NFC", "NFD")]
        same = [song for song in self.maker.made.songs
                if unicodedata.normalize("NFC", upper(song.path)) == upper(forms[0])]
        different = [form for form in forms if form != path]
        return self.one(different) if different and len(same) == 1 else None

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
        for number, item in enumerate(written):
            plain = item.comma == "," and not item.between and kind == "header"
            if plain and item.title is not None and item.seconds in ("215", "1234"):
                self.lengths[number] = int(item.seconds)
            elif not plain and item.title is not None:
                self.lengths[number] = Playlist.ANY_LENGTH
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
        self.lengths = {number: int(item.seconds) for number, item in enumerate(written)
                        if item.seconds == "215"}
        lines = playlists.pls(
            written, count=form["count"], count_first=self.one([True, False]),
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
