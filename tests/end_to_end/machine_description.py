"""What a generated machine holds and what its playlists list."""

from dataclasses import dataclass, field
from pathlib import Path

from makers.machine import GROUP_ROOT


@dataclass(frozen=True)
class Song:
    path: str  # on the old machine
    content: bytes


@dataclass(frozen=True)
class Item:
    """What one place of a playlist lists: a song, an address, nothing that exists, or what may be
    one of several songs."""
    kind: str  # "song", "address", "missing", "ambiguous"
    song: Song = None
    address: str = ""
    candidates: tuple = ()  # paths


@dataclass
class Playlist:
    ANY_LENGTH = "any"  # a length is told, in a way that leaves open which it is

    path: str
    items: list
    skipped: bool  # stands where nobody looks for playlists
    what: str  # how it is written, for messages
    name: str = ""  # its own, where a file holds several
    lengths: dict = field(default_factory=dict)  # seconds, ANY_LENGTH; by the number of the item

    def kept(self):
        return [item for item in self.items if item.kind in ("song", "address")]

    def lost(self):
        """What cannot come, and must be told."""
        return [item for item in self.items if item.kind in ("missing", "ambiguous")]

    def kept_lengths(self):
        """Of each kept item, the seconds that the playlist tells; None where it tells none."""
        return [self.lengths.get(number) for number, item in enumerate(self.items)
                if item.kind in ("song", "address")]

    def is_expected(self):
        return not self.skipped and any(item.kind == "song" for item in self.items)

    def is_left_open(self):
        """Addresses alone: nothing to move, but a playlist all the same."""
        return not self.skipped and not self.is_expected() and bool(self.kept())


@dataclass
class GeneratedMachine:
    folder: Path
    songs: list = field(default_factory=list)
    playlists: list = field(default_factory=list)
    unread: list = field(default_factory=list)  # paths of playlists of kinds that nobody reads
    seconds: dict = field(default_factory=dict)  # lengths that songs tell, by their content
    group_root: str = GROUP_ROOT  # of the new machine
    documents: str = "C:\\My Documents\\"  # of the new machine
    is_disk: bool = False  # handed over as the bare drive C of the old machine
    has_work: bool = False  # with a folder of its own for what the product writes
    number: str = ""  # of a further old machine beside the first one
    links: bool = False  # songs may become links
    maker: object = None

    def grow(self):
        """Adds songs and playlists to the old machine, as time goes on there."""
        self.maker.make_songs(self.maker.random.randrange(0, 3))
        self.maker.make_playlists(self.maker.random.randrange(1, 4))

    @property
    def old(self):
        return self.folder / ("old" + self.number)

    @property
    def new(self):
        return self.folder / "new"

    def arguments(self):
        """What the program is told."""
        source = self.old / "C" if self.is_disk else self.old
        work = ["--work", str(self.folder / ("work" + self.number))] if self.has_work else []
        links = ["--link"] if self.links else []
        return ["migrate", "--from", str(source), "--to", str(self.new), *work, *links, "--json"]

    def parts(self):
        """The folders beside the new machine that belong to this one, but for its work folder."""
        return "old" + self.number, "disk-d" + self.number

    def another(self):
        """A further old machine, to be moved to the same new one."""
        return self.maker.make_another()

    def listed(self):
        """The songs that playlists bring, by their paths."""
        return {item.song.path: item.song for each in self.playlists if not each.skipped
                for item in each.items if item.kind == "song"}

    def exit_code(self):
        """What a run must say that brings all that can come."""
        doubts = any(item.kind == "ambiguous" for each in self.playlists if not each.skipped
                     for item in each.items)
        return 1 if doubts or self.unread else 0

    def must_stay_whole(self):
        """Nothing at all may be written to the old machine."""
        return self.is_disk or self.has_work
