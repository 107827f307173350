"""Puts on the new machine of a move what stands there already."""

import ntpath
import re

from makers.chance import ByChance
from makers.machine import DESTINATION, machine_ini, role_keys
from makers.registry import exported
from native_playlists import PLAYER_FOLDERS, drives_of


class NewMachineMaker(ByChance):
    """Makes the new machine, or leaves it away, with files that are in the way of the move."""

    def __init__(self, maker):
        super().__init__(maker.random)
        self.maker = maker
        self.made = maker.made

    def make(self):
        kind = self.random.random()
        if kind < 0.15:
            return
        new = self.made.new
        new.mkdir()
        if kind < 0.25:
            return
        (new / "C").mkdir()
        if self.often(0.3):
            self.maker.install_players(new)
        elif self.often(0.3):
            self.choose_group_root()
        if self.often(0.3):
            self.made.documents = self.one(
                ["C:\\My Documents\\", "C:\\Documents and Settings\\Anna\\My Documents\\"])
            self.maker.put_host(
                new / "machine.ini",
                machine_ini(["C=fixed"], self.made.documents[:-1], between=()))
        for way, probability in ((self.occupy_natural_places, 0.6),
                                 (self.occupy_old_addresses, 0.4),
                                 (self.occupy_playlists, 0.4), (self.leave_settings, 0.2),
                                 (self.grow_deep_tree, 0.2)):
            if self.often(probability):
                way()

    def choose_group_root(self):
        self.made.group_root = "C:\\Kept Here\\Media\\"
        keys = role_keys(DESTINATION, self.made.group_root)
        self.maker.put_host(self.made.new / "registry.reg", exported(keys, last_line=False))

    def put_foreign(self, path, content):
        """A file of the new machine that is not ours; nothing where it cannot stand."""
        try:
            if not drives_of(self.made.new).get(path[0]):
                return
            self.maker.put(self.made.new, path, content)
        except OSError:
            pass

    def occupy_natural_places(self):
        """Files, and rarely a file for a folder, where songs would naturally go."""
        for song in self.random.sample(self.made.songs, min(6, len(self.made.songs))):
            artist, album = self.maker.tags.get(song.content, (None, None))
            parts = [text for text in (artist, album)
                     if text and not set(text) & set('<>:"/\\|?*') and min(text) >= " "]
            folder = "".join(part.rstrip(". ") + "\\" for part in parts if part.rstrip(". "))
            place = self.made.group_root + "Music\\" + folder
            if self.often(0.3):
                place = place.upper()
            if folder and self.often(0.08):
                self.put_foreign(place.rstrip("\\"), b"a file where a folder would be")
            content = song.content if self.often(0.4) else b"foreign " + song.path.encode()
            self.put_foreign(place + ntpath.basename(song.path), content)

    def occupy_old_addresses(self):
        for song in self.random.sample(self.made.songs, min(4, len(self.made.songs))):
            if re.match(r".:\\(users|documents and settings)\\", song.path, re.I):
                continue  # the new machine would have another user
            path = song.path if self.often(0.5) else song.path.upper()
            content = song.content if self.often(0.3) else b"another " + song.path.encode()
            self.put_foreign(path, content)

    def occupy_playlists(self):
        root = self.made.group_root + "PlayLists\\"
        for playlist in self.random.sample(self.made.playlists, min(3, len(self.made.playlists))):
            base = ntpath.basename(playlist.path).split(".")[0] or "x"
            for player, ending in [*PLAYER_FOLDERS.items(), ("winamp", ".M3U")]:
                if self.often(0.4):
                    self.put_foreign(root + player + "\\" + base + ending, b"foreign list\r\n")

    def leave_settings(self):
        """Settings files in the documents folder that are no playlists."""
        for name in ("desktop.ini", "Norvo PlayLists\\desktop.ini", "x\\Mix.ini"):
            self.put_foreign(self.made.documents + name,
                             b"[Global Properties]\r\nPlayListName=Mix\r\n")

    def grow_deep_tree(self):
        path = "C:\\" + "deep\\" * self.random.randrange(20, 45)
        self.put_foreign(path + "down.mp3", b"far below")
        self.put_foreign("C:\\" + "x" * 200 + "\\down.mp3", b"not so far")
