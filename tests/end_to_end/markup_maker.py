"""Writes the lists of generated machines that are XML."""

from dataclasses import replace

from makers.chance import ByChance
from makers.markup_lists import (Entry, LibraryList, b4s, file_address, itunes_library, wpl, xspf,
                                 zpl)
from makers.text import joined
from makers.words import ALBUMS, ARTISTS, TITLES, WIDE

SYNTAXES = ("wpl", "zpl", "xspf", "b4s", "itunes")
IN_ADDRESSES = ("xspf", "itunes")  # what names files as addresses alone
TELLING_LENGTHS = ("zpl", "xspf", "b4s", "itunes")
LIBRARY_NAMES = ["iTunes Music Library", "iTunes Library"]


class MarkupMaker(ByChance):
    """Gives the text of a list, and the lengths that it tells by the number of an item."""

    def __init__(self, random, syntax):
        super().__init__(random)
        self.syntax = syntax
        self.lengths = {}

    def text(self, items):
        write = {"wpl": wpl, "zpl": zpl, "xspf": xspf, "b4s": b4s}[self.syntax]
        title = self.one(["Mix", "", None, "A & B", *WIDE])
        return joined(write(title, self.entries(items)), self.one(["\r\n", "\n"]))

    def library(self, lists):
        """Of pairs of a name and its items; further lists hold the library's own view of them."""
        entries, songs = [], []
        for name, items in lists:
            first = len(entries)
            entries += self.entries(items, first)
            songs.append(LibraryList(name, tuple(range(first, len(entries)))))
        every = LibraryList("Library", tuple(range(len(entries))), (("Master", "<true/>"),))
        return joined(itunes_library(entries, [every, *songs]), self.one(["\r\n", "\n"]))

    def entries(self, items, first=0):
        return [self.entry(first + number, reference)
                for number, (_, reference) in enumerate(items)]

    def entry(self, number, reference):
        entry = Entry(reference)
        if self.often(0.7):
            title = self.one([text for text in TITLES if text] + WIDE)
            entry = replace(entry, title=title, artist=self.one([None, *ARTISTS, *WIDE]),
                            album=self.one([None, *ALBUMS, *WIDE]))
        if self.often(0.5):
            entry = replace(entry, seconds=self.random.randrange(1, 4000))
            if self.syntax in TELLING_LENGTHS:
                self.lengths[number] = entry.seconds
        return entry


def address_of(path, random):
    """A file's address as lists write it."""
    return file_address(path, random.choice(["", "", "localhost"]))
