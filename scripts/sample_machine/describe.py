"""The description of both machines, examples/README.md, from the tables that they were made of."""

from makers.files import drive_path

from .machines import FOREIGN_PLAYLIST, FOREIGN_SONG
from .music import described_music
from .new_settings import PLAYER_SETTINGS
from .references import ADDRESS, NOTHING
from .shelf import T_ASX, T_MM, T_NONE, T_SO, T_WA3, T_WAP, T_WMP3

OPENING = """\
# Examples

`sample-machine` is a small Windows machine held in a folder: two fixed drives (C, D), a
CD-ROM drive (E), music with tags of every kind, and the playlists of four players.
`sample-new-machine` is another one, to which its playlists and songs can be moved. Run the
product on copies of them, since a run writes into a machine's folder.

The folders and this text are made by `scripts/make-sample-machine.sh`. The clips are
synthesised tones of half a second or less; tags and playlists tell the lengths that whole songs
would have. The settings of the product itself are not in the machines' registries: its
`init` and `migrate` commands write them. `.gitattributes` keeps the line ends of the files as
they are.

## Programs for the libraries

`cpp` holds two C++ programs over the installed libraries: `PrintPlaylist.cpp` reads a playlist and
prints it, `MovePlaylists.cpp` makes a whole move.

## Programs for the automation library

What is in `automation` needs the automation library registered and the product's settings in the
registry; without them it says what is missing. [docs/automation.md](../docs/automation.md) tells
how.

- `source.vbs`, `source.js`, `source.ps1` and `cpp/source.cpp` list the playlists of the machine,
  print the list, and turn each playlist into a neutral file. The C++ program uses the header
  `NorvoPlayList.h` of the Windows package: `cmake -S cpp -B build && cmake --build build`.
- `ListSongs`, `FindMissing`, `WriteAnew`, `Repair`, `Carry` and `Events`, each in VBScript, JScript,
  PowerShell and C#, are what [the manual for script authors](../docs/manual/scripts.md) is about.
- `destination.vbs` turns the neutral files below the user's documents into native playlists.

## The old machine
"""

OLD_FILES = (
    ("machine.ini", "drive types, and the documents folder (`C:\\My Documents`)"),
    ("registry.reg", "UTF-16LE; where the four players are installed, their own settings, "
     "and a foreign program's key with values of every type"),
    ("C/Music, D/Musik, D/Hörspiele, D/Archive, E", "the music"),
    ("C/My Documents", "the user's documents: a text file, own recordings, the playlists "
     "of Windows Media Player"),
    ("C/My Documents/Norvo Media/Music", "a song where a move brings songs on the new machine"),
    ("C/Program Files", "stand-ins for the players' program files; their own playlists"),
    ("C/RECYCLED, D/RECYCLER, C/WINDOWS/Temporary Internet Files",
     "folders that the scan leaves out"))

PLAYLISTS = """\
### Playlists

The type is the one that the file's first lines, or keys, tell. An .asx file is listed by
the scan as ASX whatever it holds; the queue then looks into it and, finding ASX
elements, gives it the type of an M3U of Windows Media Player, which is read the same way.
Unless told otherwise line ends are CR LF and text is Windows-1252.

Kept is what collecting keeps of the references. Moved is what a move to another machine must
bring: the songs that exist, and the addresses, in the order of the list.
"""

OUTCOMES = """\
### What becomes of each reference

- kept: the file exists and is a media file; it is recorded for the migration.
- kept unchecked: the reference stays in the playlist, no file is looked for or recorded.
- dropped: no entry; a line in the log (two for a missing file in an ASX element).
- not read: the line is never looked at, so nothing is logged.

Moved names the song that a move must bring, or tells that the address must stay as it is.
"""

NEW_MACHINE = """\
## The new machine

`sample-new-machine` has one fixed drive (C), the four players, and these files in the way:

| File | What it is |
|---|---|
| `{song}` | another song than the one whose place this would be |
| `{playlist}` | a playlist of the name of one that is moved |

The players' settings, and what they must be after a move:

| Player | Place | Name | Before | After |
|---|---|---|---|---|
"""


def cell(text):
    return text.replace("|", "\\|")


def code(text):
    return text if text.startswith("(") else "`%s`" % cell(text)


def counted(number, one, more):
    return ["%d %s" % (number, one if number == 1 else more)] if number else []


def moved_counts(playlist):
    """Such as: 3 songs, 1 address."""
    counts = (counted(playlist.songs(), "song", "songs") +
              counted(playlist.addresses(), "address", "addresses"))
    return ", ".join(counts) or "nothing"


def moved_reference(reference):
    if reference.moved in (ADDRESS, NOTHING):
        return reference.moved
    return code(drive_path(reference.moved))


def old_files():
    yield "| File or folder | What it is |"
    yield "|---|---|"
    for names, words in OLD_FILES:
        yield "| %s | %s |" % (", ".join("`%s`" % name for name in names.split(", ")), words)
    yield ""


def playlist_table(playlists):
    yield "| Playlist | Type | Kept | Moved | What is odd about it |"
    yield "|---|---|---|---|---|"
    for playlist in playlists:
        yield "| %s | %s | %d of %d | %s | %s |" % (
            code(drive_path(playlist.rel)), playlist.kind, playlist.kept(),
            len(playlist.references), moved_counts(playlist), playlist.odd)
    yield ""


def totals(playlists):
    found = [each for each in playlists if not each.is_skipped()
             and (each.kind != T_NONE or each.rel.endswith(".asx"))]
    by_type = ", ".join("%d %s" % (
        sum(each.kind.startswith(kind) or (kind == T_ASX and each.kind == T_NONE)
            for each in found), kind)
        for kind in (T_ASX, T_WMP3, T_WA3, T_WAP, T_SO, T_MM))
    yield "The scan records %d of the %d: %s." % (len(found), len(playlists), by_type)
    yield ("%d of these yield entries. Each gets a generic file, but for the .asx lists whose name "
           "does not hold \".m3u\": the queue finds no name for theirs. Where generic files have "
           "one name the last one stays."
           % sum(each.kept() > 0 for each in found))
    yield ("A move must bring %d of the %d playlists to the new machine, and %d songs."
           % (sum(moved_counts(each) != "nothing" for each in playlists), len(playlists),
              len({reference.moved for each in playlists for reference in each.references
                   if reference.moved not in (ADDRESS, NOTHING)})))
    yield ""


def reference_table(playlists):
    yield "| Playlist | Reference | Outcome | Moved |"
    yield "|---|---|---|---|"
    for playlist in playlists:
        name = code(drive_path(playlist.rel))
        for reference in playlist.references:
            yield "| %s | %s | %s | %s |" % (name, code(reference.text), reference.outcome,
                                             moved_reference(reference))
            name = ""
    yield ""


def music_table():
    yield "### Music"
    yield ""
    yield "| File | Tags |"
    yield "|---|---|"
    for rel, words in described_music():
        yield "| %s | %s |" % (code(drive_path(rel)), words)
    yield ""


def new_machine():
    yield NEW_MACHINE.format(song=drive_path(FOREIGN_SONG),
                             playlist=drive_path(FOREIGN_PLAYLIST)).rstrip("\n")
    for player, *cells in PLAYER_SETTINGS:
        yield "| %s | %s |" % (player, " | ".join(map(code, cells)))
    yield ""


def description(playlists):
    return "\n".join([OPENING, *old_files(), PLAYLISTS, *playlist_table(playlists),
                      *totals(playlists), OUTCOMES, *reference_table(playlists), *music_table(),
                      *new_machine()])
