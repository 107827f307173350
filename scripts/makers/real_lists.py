"""Playlists to the byte as the players of people's old machines write them. Each function takes the
list's folder and its entries, whose references are full paths or addresses, and gives the file's
bytes."""

import ntpath
from dataclasses import replace

from .markup_lists import (LibraryList, b4s, file_address, itunes_library, wpl, xspf,
                           zpl)
from .playlists import Item, asx, asx_entry, bare_m3u, m3u, pls, title_line
from .text import encoded, joined


def is_path(reference):
    return reference[1:3] == ":\\"


def below(folder, path):
    """The path as it is told from a list beside or above the song, else nothing."""
    return path[len(folder):] if path.startswith(folder) else None


def winamp_reference(folder, reference):
    """Relative below the list's folder, without the drive on the same one, else whole."""
    if not is_path(reference):
        return reference
    same_drive = reference[2:] if reference[0] == folder[0] else reference
    return below(folder, reference) or same_drive


def climbing(folder, reference):
    """Relative wherever the drive is the same, as Windows Media Player writes."""
    if not is_path(reference) or reference[0] != folder[0]:
        return reference
    return ntpath.relpath(reference, folder)


def items(folder, entries, reference=lambda folder, text: text, unknown=-1):
    """For lists with one text for a song."""
    return [Item(reference(folder, entry.reference), entry.line(),
                 unknown if entry.seconds is None else entry.seconds) for entry in entries]


def referring(folder, entries, reference):
    return [replace(entry, reference=reference(folder, entry.reference)) for entry in entries]


# -------------------------------------------------------------------------------- Winamp ----


def winamp_m3u(folder, entries):
    return encoded(joined(m3u(items(folder, entries, winamp_reference))))


def winamp_m3u8(folder, entries):
    return encoded(joined(m3u(items(folder, entries, winamp_reference))), "utf-8-sig")


def winamp_pls(folder, entries):
    return encoded(joined(pls(items(folder, entries, winamp_reference))))


def winamp_b4s(_, entries):
    return encoded(joined(b4s("Playlist 001", entries)), "utf-8")


# ------------------------------------------------------------------ Windows Media Player ----


def media_player_6_asx(folder, entries):
    """Written by hand or by the tools of its time: upper case, no parameters."""
    lines = ['<ASX version = "3.0">', "<TITLE>Mix</TITLE>"]
    for entry in entries:
        lines += ["<ENTRY>", f"<TITLE>{markup(entry.title)}</TITLE>",
                  f"<AUTHOR>{markup(entry.artist)}</AUTHOR>",
                  f'<REF HREF = "{markup(climbing(folder, entry.reference))}" />', "</ENTRY>"]
    return encoded(joined(lines + ["</ASX>"]))


def markup(text):
    return (text or "").replace("&", "&amp;").replace('"', "&quot;").replace("<", "&lt;")


def media_player_7_asx(_, entries):
    blocks = [asx_entry(markup(entry.reference), markup(entry.title), markup(entry.artist),
                        markup(entry.album), seconds=entry.seconds) for entry in entries]
    return encoded(joined(asx("Mix", *blocks)))


def media_player_9_m3u(folder, entries):
    """No lengths, names of files for titles, and an empty line behind each."""
    lines = ["#EXTM3U"]
    for entry in entries:
        lines += [title_line(ntpath.basename(entry.reference), 0),
                  climbing(folder, entry.reference), ""]
    return encoded(joined(lines))


def media_player_wpl(folder, entries):
    return encoded(joined(wpl("Mix & more", referring(folder, entries, climbing))), "utf-8")


def media_player_12_wpl(folder, entries):
    """Version 12 writes a byte order mark."""
    lines = wpl("Mix", referring(folder, entries, climbing),
                "Microsoft Windows Media Player -- 12.0.7601.17514")
    return encoded(joined(lines), "utf-8-sig")


def zune_zpl(_, entries):
    return encoded(joined(zpl("Mix", entries)), "utf-8")


# ------------------------------------------------------------------------------- iTunes ----


def swapped(entries):
    """Its exported lists tell the title first."""
    return [replace(entry, artist=entry.title, title=entry.artist) for entry in entries]


def itunes_m3u(_, entries):
    return encoded(joined(m3u(items("", swapped(entries))), end="\r"))


def itunes_m3u8(_, entries):
    return encoded(joined(m3u(items("", swapped(entries))), end="\r"), "utf-8")


def itunes_xml(entries, own_lists):
    """The whole library: its own lists of all songs, then those of the user, as LibraryLists."""
    every = tuple(range(len(entries)))
    true = "<true/>"
    built_in = [LibraryList("Library", every, (("Master", true), ("Visible", "<false/>"))),
                LibraryList("Music", every, (("Distinguished Kind", "<integer>4</integer>"),
                                             ("Music", true))),
                LibraryList("Party Shuffle", every[:1],
                            (("Distinguished Kind", "<integer>22</integer>"),
                             ("Party Shuffle", true)))]
    addressed = [replace(entry, reference=file_address(entry.reference, "localhost")
                         if is_path(entry.reference) else entry.reference) for entry in entries]
    return encoded(joined(itunes_library(addressed, built_in + own_lists), end="\n"), "utf-8")


# --------------------------------------------------------------------- foobar2000 and VLC ----


def foobar_m3u8(_, entries):
    return encoded(joined(m3u(items("", entries))), "utf-8-sig")


def foobar_old_m3u8(_, entries):
    """Its early versions write no titles, and a mark of their own."""
    return encoded(joined(["#", *bare_m3u(items("", entries))]), "utf-8-sig")


def foobar_m3u(_, entries):
    return encoded(joined(["#", *bare_m3u(items("", entries))]))


def vlc_xspf(_, entries):
    addressed = [replace(entry, reference=file_address(entry.reference)
                         if is_path(entry.reference) else entry.reference) for entry in entries]
    lines = xspf("Playlist", addressed)
    lines[1] = lines[1].replace(' version="1"', ' xmlns:vlc="http://www.videolan.org/vlc/playlist/'
                                'ns/0/" version="1"')
    extension = ['\t<extension application="http://www.videolan.org/vlc/playlist/0">',
                 *(f'\t\t<vlc:item tid="{number}"/>' for number in range(len(entries))),
                 "\t</extension>"]
    return encoded(joined(lines[:-1] + extension + lines[-1:], end="\n"), "utf-8")


def vlc_m3u8(folder, entries):
    """UTF-8 without a byte order mark."""
    return encoded(joined(m3u(items(folder, entries, lambda home, text: below(home, text) or text)),
                          end="\n"), "utf-8")


def vlc_m3u(_, entries):
    written = items("", entries)
    for each in written:
        each.between = ("#EXTVLCOPT:network-caching=1000",)
    return encoded(joined(m3u(written), end="\n"), "utf-8")


# ----------------------------------------------------------------- MusicMatch and Sonique ----


def musicmatch_m3u(_, entries):
    return encoded(joined([reference + "\0" for reference in bare_m3u(items("", entries))]))


def sonique_pls(_, entries):
    return encoded(joined(pls(items("", entries), head=("CachedInfo=1",), tail=())))
