"""Little songs in the containers that people's files have, each with the tags of its kind in the
encodings that are met. They hold no music, but a length and tags that any reader of tags takes."""

import struct
from dataclasses import dataclass

from .ogg import ogg_page

RATE = 44100  # samples a second, of every song here
BEYOND = 10000  # samples by which a song exceeds its whole seconds, rounded or cut they are those
MPEG_SAMPLES = 1152  # of one frame
V22_NAMES = {"title": b"TT2", "artist": b"TP1", "album": b"TAL", "track": b"TRK"}
V23_NAMES = {"title": b"TIT2", "artist": b"TPE1", "album": b"TALB", "track": b"TRCK"}
ENCODINGS = {"latin-1": 0, "utf-16": 1, "utf-16-be": 2, "utf-8": 3}


@dataclass(frozen=True)
class Tags:
    """What a song tells of itself."""
    artist: str
    album: str
    title: str
    track: int
    seconds: int

    def texts(self):
        return {"title": self.title, "artist": self.artist, "album": self.album,
                "track": str(self.track)}

    def samples(self):
        return self.seconds * RATE + BEYOND


# ------------------------------------------------------------------------------------ MP3 ----


def mpeg_audio(tags, own):
    """Frames of 32 kbit/s; the first one tells how many there would be in the whole song."""
    frame = b"\xff\xfb\x10\x64"
    count = tags.samples() // MPEG_SAMPLES
    told = b"Xing" + struct.pack(">III", 3, count, count * 104)
    first = (frame + bytes(32) + told).ljust(104, b"\0")
    return first + (frame + own[:90]).ljust(104, b"\x55") * 4


def synchsafe(number):
    return bytes((number >> shift) & 0x7F for shift in (21, 14, 7, 0))


def tag_text(text, encoding):
    """A text behind the byte that tells its encoding; "mislabelled" is UTF-8 that is called
    Latin-1."""
    if encoding == "mislabelled":
        return b"\0" + text.encode("utf-8")
    mark = b"\xff\xfe" if encoding == "utf-16" else b""
    name = "utf-16-le" if encoding == "utf-16" else encoding
    return bytes([ENCODINGS[encoding]]) + mark + text.encode(name)


def id3v2_frame(version, name, body):
    if version == 2:
        return V22_NAMES[name] + struct.pack(">I", len(body))[1:] + body
    size = synchsafe(len(body)) if version == 4 else struct.pack(">I", len(body))
    return V23_NAMES[name] + size + b"\0\0" + body


def id3v2(tags, version, encoding):
    frames = b"".join(id3v2_frame(version, name, tag_text(text, encoding))
                      for name, text in tags.texts().items())
    return b"ID3" + bytes([version, 0, 0]) + synchsafe(len(frames)) + frames


def mp3(version, encoding):
    return lambda tags, own: id3v2(tags, version, encoding) + mpeg_audio(tags, own)


# ------------------------------------------------------------------------- Vorbis comments ----


def vorbis_comment(tags):
    names = {"track": "TRACKNUMBER"}
    fields = [f"{names.get(name, name.upper())}={text}".encode()
              for name, text in tags.texts().items()]
    vendor = b"maker"
    return (struct.pack("<I", len(vendor)) + vendor + struct.pack("<I", len(fields)) +
            b"".join(struct.pack("<I", len(field)) + field for field in fields))


def ogg(tags, own):
    head = b"\x01vorbis" + struct.pack("<IBIiiiBB", 0, 2, RATE, 0, 64000, 0, 0xB8, 1)
    comment = b"\x03vorbis" + vorbis_comment(tags) + b"\x01"
    return (ogg_page([head], number=0, kind=2) +
            ogg_page([comment, b"\x05vorbis" + bytes(20)], number=1) +
            ogg_page([bytes(4) + own], number=2, kind=4, position=tags.samples()))


def flac(tags, own):
    samples = tags.samples()
    packed = RATE << 44 | 1 << 41 | 15 << 36 | samples  # 2 channels of 16 bits
    stream = struct.pack(">HH", 4096, 4096) + bytes(6) + packed.to_bytes(8, "big") + bytes(16)
    comment = vorbis_comment(tags)
    return (b"fLaC\0" + len(stream).to_bytes(3, "big") + stream + b"\x84" +
            len(comment).to_bytes(3, "big") + comment + b"\xff\xf8\xc9\x18" + own + bytes(100))


# ------------------------------------------------------------------------------------ MP4 ----


def atom(name, *parts):
    body = b"".join(parts)
    return struct.pack(">I", len(body) + 8) + name + body


def mp4_text(name, text):
    return atom(name, atom(b"data", struct.pack(">II", 1, 0), text.encode()))


def mp4_tags(tags):
    number = struct.pack(">HHHH", 0, tags.track, 0, 0)
    items = atom(b"ilst", mp4_text(b"\xa9nam", tags.title), mp4_text(b"\xa9ART", tags.artist),
                 mp4_text(b"\xa9alb", tags.album),
                 atom(b"trkn", atom(b"data", struct.pack(">II", 0, 0), number)))
    handler = atom(b"hdlr", bytes(8), b"mdirappl", bytes(9))
    return atom(b"udta", atom(b"meta", bytes(4), handler, items))


def m4a(tags, own):
    times = bytes(12) + struct.pack(">II", RATE, tags.samples())
    sound = bytes(6) + b"\0\1" + bytes(8) + struct.pack(">HHIHH", 2, 16, 0, RATE, 0)
    samples = atom(b"stsd", struct.pack(">II", 0, 1), atom(b"mp4a", sound))
    media = atom(b"mdia", atom(b"mdhd", times, bytes(4)),
                 atom(b"hdlr", bytes(8), b"soun", bytes(13)),
                 atom(b"minf", atom(b"stbl", samples)))
    movie = atom(b"moov", atom(b"mvhd", times, bytes(80)), atom(b"trak", media), mp4_tags(tags))
    return atom(b"ftyp", b"M4A \0\0\0\0M4A mp42") + movie + atom(b"mdat", own, bytes(100))


# ------------------------------------------------------------------------------------ WMA ----


def guid(text):
    first, second, third, *rest = text.split("-")
    return (struct.pack("<IHH", int(first, 16), int(second, 16), int(third, 16)) +
            bytes.fromhex("".join(rest)))


def asf_object(name, body):
    return guid(name) + struct.pack("<Q", len(body) + 24) + body


def asf_text(text):
    return (text + "\0").encode("utf-16-le")


def asf_description(tags):
    texts = [asf_text(text) for text in (tags.title, tags.artist, "", "", "")]
    return asf_object("75B22633-668E-11CF-A6D9-00AA0062CE6C",
                      struct.pack("<5H", *map(len, texts)) + b"".join(texts))


def asf_more(tags):
    body = struct.pack("<H", 2)
    for name, text in (("WM/AlbumTitle", tags.album), ("WM/TrackNumber", str(tags.track))):
        for count, each in enumerate((asf_text(name), asf_text(text))):
            # The type of a value, text, stands between the name and the value's size.
            body += (b"\0\0" if count else b"") + struct.pack("<H", len(each)) + each
    return asf_object("D2D0A440-E307-11D2-97F0-00A0C95EA850", body)


def wma(tags, own):
    length = tags.samples() * 10000000 // RATE
    file = asf_object("8CABDCA1-A947-11CF-8EE4-00C00C205365",
                      bytes(16) + struct.pack("<QQQQQQIIII", 2000, 0, 1, length, length, 0, 2,
                                              1000, 1000, 64000))
    sound = struct.pack("<HHIIHHH", 0x161, 2, RATE, 8000, 2230, 16, 0)
    stream = asf_object("B7DC0791-A9B7-11CF-8EE6-00C00C205365",
                        guid("F8699E40-5B4D-11CF-A8FD-00805F5C442B") +
                        guid("20FB5700-5B55-11CF-A8FD-00805F5C442B") +
                        struct.pack("<QIIHI", 0, len(sound), 0, 1, 0) + sound)
    objects = [file, stream, asf_description(tags), asf_more(tags)]
    inside = b"".join(objects)
    head = (guid("75B22630-668E-11CF-A6D9-00AA0062CE6C") +
            struct.pack("<QIBB", len(inside) + 30, len(objects), 1, 2) + inside)
    return head + asf_object("75B22636-668E-11CF-A6D9-00AA0062CE6C", bytes(26) + own)


# ------------------------------------------------------------------------------------ APE ----


def ape_tag(tags):
    items = b"".join(struct.pack("<II", len(text.encode()), 0) + name.title().encode() + b"\0" +
                     text.encode() for name, text in tags.texts().items())
    foot = b"APETAGEX" + struct.pack("<IIII", 2000, len(items) + 32, 4, 0) + bytes(8)
    return items + foot


def ape(tags, own):
    block = 73728
    count, rest = divmod(tags.samples(), block)
    head = b"MAC " + struct.pack("<HHIIIIIII", 3990, 0, 52, 24, 0, 44, len(own), 0, 0) + bytes(16)
    facts = struct.pack("<HHIIIHHI", 2000, 0, block, rest, count + 1, 16, 2, RATE)
    return head + facts + bytes(44) + own + bytes(100) + ape_tag(tags)


# Name to the file's ending and to what makes its bytes from tags and a text of its own.
KINDS = {"ID3v2.2 Latin-1": (".mp3", mp3(2, "latin-1")),
         "ID3v2.2 UTF-16": (".mp3", mp3(2, "utf-16")),
         "ID3v2.3 Latin-1": (".mp3", mp3(3, "latin-1")),
         "ID3v2.3 UTF-16": (".mp3", mp3(3, "utf-16")),
         "ID3v2.3 UTF-8 called Latin-1": (".mp3", mp3(3, "mislabelled")),
         "ID3v2.4 UTF-16BE": (".mp3", mp3(4, "utf-16-be")),
         "ID3v2.4 UTF-8": (".mp3", mp3(4, "utf-8")),
         "Ogg Vorbis": (".ogg", ogg), "FLAC": (".flac", flac), "MP4": (".m4a", m4a),
         "ASF": (".wma", wma), "APE": (".ape", ape)}


def tagged_song(kind, tags, own):
    """The bytes of a song of a kind; `own` are bytes that no other song has."""
    return KINDS[kind][1](tags, own)
