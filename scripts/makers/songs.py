"""Songs as bytes: the two kinds of tags, and what stands for audio."""

import struct

FRAMES = {"title": b"TIT2", "artist": b"TPE1", "album": b"TALB", "genre": b"TCON",
          "year": b"TYER", "track": b"TRCK", "length": b"TLEN"}
OTHER, ROCK = 12, 17  # genres of ID3v1
# MPEG-1 layer III, 128 kbit/s, 44.1 kHz, and nothing that could be heard.
AUDIO_FRAME = b"\xff\xfb\x90\x64".ljust(417, b"\x55")


def frame(name, text):
    body = b"\0" + text.encode("latin-1")
    return name + struct.pack(">I", len(body)) + b"\0\0" + body


def id3v2(padding=0, **texts):
    """An ID3v2.3 tag of Latin-1 texts, by their names in FRAMES; a text of None has no frame."""
    frames = b"".join(frame(FRAMES[name], text) for name, text in texts.items()
                      if text is not None) + bytes(padding)
    size = bytes((len(frames) >> shift) & 0x7F for shift in (21, 14, 7, 0))
    return b"ID3\3\0\0" + size + frames


def id3v1(title=None, artist=None, album=None, year="1999", genre=ROCK):
    """An ID3v1 tag, the 128 bytes at a song's end, which cut a text that is too long."""
    def field(text, width=30):
        return (text or "").encode("latin-1")[:width].ljust(width, b"\0")

    comment = field("")
    return (b"TAG" + field(title) + field(artist) + field(album) + field(year, 4) + comment +
            bytes([genre]))


def audio(size):
    """So many bytes of audio frames, the last one cut."""
    return (AUDIO_FRAME * (size // len(AUDIO_FRAME) + 1))[:size]
