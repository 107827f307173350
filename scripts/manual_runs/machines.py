"""What stands on the disks of the manual's runs: those of Ann's old and new PC."""

from makers.files import place, write
from makers.playlists import Item, m3u, pls
from makers.songs import audio, id3v2
from makers.text import encoded, joined

MUSIC = "Users/Ann/Music"
# Folder below MUSIC, artist, album, title.
SONGS = [("The Harbours/Pop Hits", "The Harbours", "Pop Hits", "Northern Lights"),
         ("The Harbours/Pop Hits", "The Harbours", "Pop Hits", "Paper Boats"),
         ("Blue Quarter/Live", "Blue Quarter", "Live", "Slow Train"),
         ("Blue Quarter/Live", "Blue Quarter", "Live", "After Hours"),
         ("Ärzte und Söhne/Übermut", "Ärzte und Söhne", "Übermut", "Grüße aus Köln"),
         ("Demos 2004", "Ann", "Demos 2004", "Intro"),
         ("Demos 2006", "Ann", "Demos 2006", "Intro")]
RIGHT_INTRO = f"{MUSIC}/Demos 2006/Intro.mp3"


def put_song(disk, folder, artist, album, title):
    tag = id3v2(artist=artist, album=album, title=title)
    size = 2000 + 100 * len(folder) + len(title)
    write(place(disk, f"{MUSIC}/{folder}/{title}.mp3"), tag + audio(size))


def put_list(disk, name, lines):
    write(place(disk, f"{MUSIC}/{name}"), encoded(joined(lines)))


def put_old_disk(disk):
    """Lists with each of the common mishaps: a song that is gone, one that was put elsewhere since,
    one that may be one of two, an address of the internet, and a kind that nobody else reads."""
    for song in SONGS:
        put_song(disk, *song)
    put_list(disk, "Road Trip.m3u",
             m3u([Item("The Harbours\\Pop Hits\\Northern Lights.mp3"),
                  Item("The Harbours\\Pop Hits\\Paper Boats.mp3"),
                  Item("Ärzte und Söhne\\Übermut\\Grüße aus Köln.mp3")]))
    put_list(disk, "Slow Evenings.pls",
             pls([Item("C:\\Users\\Ann\\Desktop\\Slow Train.mp3", "Slow Train", 190),
                  Item("C:\\Users\\Ann\\Music\\Blue Quarter\\Live\\After Hours.mp3",
                       "After Hours", 244),
                  Item("C:\\Users\\Ann\\Music\\Last Call.mp3", "Last Call", 201)]))
    put_list(disk, "My own.m3u", m3u([Item("Intro.mp3")]))
    put_list(disk, "Radio.m3u", m3u([Item("http://radio.example/live", "Late Radio", -1)]))
    put_list(disk, "Office.kpl", ["[playlist]", "playname=Northern Lights.mp3"])


def put_windows(disk):
    """What tells that a disk is one of a Windows PC, and Ann's documents folder."""
    write(place(disk, "Windows/win.ini"), b"")
    write(place(disk, "Users/Ann/Documents/desktop.ini"), b"")
