"""Playlists of Sonique."""

from makers.playlists import Item, pls

from .references import GONE, KEPT, NET
from .shelf import T_SO


def add_sonique_pls(add):
    """PLS files of Sonique."""
    add("C/Program Files/Sonique/Playlists/default.pls", T_SO,
        "Has a CachedInfo key, beside Version=2.",
        pls([Item(r"C:\Music\Jazz and Blues\Live (1999)\Blue Quarter - After Hours.mp3",
                  "Blue Quarter - After Hours", 288),
             Item(r"C:\Music\Ärzte und Söhne\Übermut\Straße nach Süden.mp3",
                  "Ärzte und Söhne - Straße nach Süden", 240),
             Item(r"..\..\..\Music\Root Song.mp3", "Nobody - Root Song", 101),
             Item("http://radio.example.com/live.mp3", "Live", -1),
             Item(r"C:\Music\Sounds\bell.wav", None, 1)],
            head=("CachedInfo=1",)),
        [(r"C:\Music\Jazz and Blues\Live (1999)\Blue Quarter - After Hours.mp3", KEPT),
         (r"C:\Music\Ärzte und Söhne\Übermut\Straße nach Süden.mp3", KEPT),
         (r"..\..\..\Music\Root Song.mp3", KEPT),
         ("http://radio.example.com/live.mp3", NET),
         (r"C:\Music\Sounds\bell.wav", KEPT)])

    add("D/Hörspiele/Hörspiele.pls", T_SO, "Without a Version key; an umlaut in its own name.",
        pls([Item(r"Teil 1\Kapitel 01.mp3", "Kapitel 1", 60),
             Item(r"Teil 1\Kapitel 02.mp3", "Kapitel 2", 62),
             Item(r"Teil 1\Kapitel 03.mp3", "Kapitel 3", 64)], tail=()),
        [(r"Teil 1\Kapitel 01.mp3", KEPT), (r"Teil 1\Kapitel 02.mp3", KEPT),
         (r"Teil 1\Kapitel 03.mp3", GONE)])

    add("D/Hörspiele/Leer.pls", T_SO,
        "0 entries, no Version: read, but no generic file is made of it.",
        pls([], tail=()), [])
