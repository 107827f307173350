"""The two kinds of tags that songs have, as bytes."""

import struct


def frame(name, text):
    body = b"\0" + text.encode("latin-1")
    return name + struct.pack(">I", len(body)) + b"\0\0" + body


def id3v2(title, artist, album):
    frames = b"".join(frame(name, text) for name, text in
                      ((b"TIT2", title), (b"TPE1", artist), (b"TALB", album)) if text is not None)
    size = len(frames)
    return b"ID3\3\0\0" + bytes((size >> shift) & 0x7F for shift in (21, 14, 7, 0)) + frames


def id3v1(title, artist, album):
    def text(value):
        return (value or "").encode("latin-1")[:30].ljust(30, b"\0")

    return b"TAG" + text(title) + text(artist) + text(album) + b"1999" + b"\0" * 30 + b"\x0c"
