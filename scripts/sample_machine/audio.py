"""Short synthesised clips, as MP3 and as wave files."""

import array
import math
import struct
import subprocess
import sys

from makers.files import write

RATE = 16000


def tone(seed, seconds, rate=RATE):
    """A short arpeggio, different for every seed, as 16-bit samples."""
    scale = (0, 2, 4, 7, 9, 12, 14, 16)
    steps = 4
    length = int(seconds * rate)
    part = length // steps
    out = array.array("h")
    for i in range(length):
        step = min(i // part, steps - 1)
        note = scale[(seed * (step + 3) + step * step) % len(scale)] + seed % 5
        freq = 220.0 * 2.0 ** (note / 12.0)
        at = i - step * part
        fade = min(1.0, at / 80.0, max(0.0, (part - at) / 200.0))
        t = i / rate
        level = math.sin(2 * math.pi * freq * t) + 0.4 * math.sin(4 * math.pi * freq * t)
        out.append(int(9000 * fade * level))
    return out


def wav(data, rate, width):
    """A mono wave file of samples of the given width in bytes."""
    return (b"RIFF" + struct.pack("<I", 36 + len(data)) + b"WAVEfmt "
            + struct.pack("<IHHIIHH", 16, 1, 1, rate, rate * width, width, 8 * width)
            + b"data" + struct.pack("<I", len(data)) + data)


def encode(path, seed, seconds, extra=()):
    raw = tone(seed, seconds)
    if sys.byteorder == "big":
        raw.byteswap()
    subprocess.run(
        ["lame", "--quiet", "-m", "m", "-b", "24", "--resample", "16", *extra, "-", path],
        input=wav(raw.tobytes(), RATE, 2), check=True)


def write_wav(path, seed, seconds):
    data = bytes(128 + (s >> 8) for s in tone(seed, seconds, 8000))
    write(path, wav(data, 8000, 1))

