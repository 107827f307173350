"""Tags of MP3 files, written by several taggers, since they differ in what they write."""

import os
import subprocess
import zlib

from mutagen import id3


def tiny_png():
    def chunk(kind, body):
        return (len(body).to_bytes(4, "big") + kind + body
                + zlib.crc32(kind + body).to_bytes(4, "big"))
    size = 8
    rows = b"".join(b"\0" + bytes((x * 32, y * 32, 128)[c] for x in range(size) for c in range(3))
                    for y in range(size))
    return (b"\x89PNG\r\n\x1a\n"
            + chunk(b"IHDR", size.to_bytes(4, "big") * 2 + bytes((8, 2, 0, 0, 0)))
            + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))


# ------------------------------------------------------------------- tags ----


def tag_id3v2(path, mode, t):
    """The command-line tagger; texts as Latin-1 bytes. Mode: 1, 2 or "both"."""
    args = [b"id3v2"]
    if mode in (1, 2):
        args.append(b"-%d" % mode)
    for option, key in (("-t", "title"), ("-a", "artist"), ("-A", "album"),
                        ("-y", "year"), ("-g", "genre"), ("-T", "track"), ("--TLEN", "length")):
        if key in t and not (mode == 1 and key == "length"):
            args += [option.encode(), str(t[key]).encode("latin-1")]
    subprocess.run(args + [os.fsencode(path)], check=True, env=dict(os.environ, LC_ALL="C"),
                   stdout=subprocess.DEVNULL)


def tag_mutagen(path, t, encoding=0, picture=False):
    tags = id3.ID3()
    for frame, key in ((id3.TIT2, "title"), (id3.TPE1, "artist"), (id3.TALB, "album"),
                       (id3.TCON, "genre"), (id3.TYER, "year"), (id3.TRCK, "track"),
                       (id3.TLEN, "length")):
        if key in t:
            tags.add(frame(encoding=encoding, text=str(t[key])))
    if picture:
        tags.add(id3.APIC(encoding=0, mime="image/png", type=3, desc="", data=tiny_png()))
    tags.save(path, v1=0, v2_version=3, padding=lambda info: 64)


def lame_tags(t):
    args = ["--id3v2-only", "--id3v2-latin1"]
    for option, key in (("--tt", "title"), ("--ta", "artist"), ("--tl", "album"),
                        ("--ty", "year"), ("--tg", "genre"), ("--tn", "track")):
        if key in t:
            args += [option, str(t[key])]
    return args


