"""Files of a machine that is being made."""

import calendar
import os

STAMP = calendar.timegm((2003, 5, 14, 10, 12, 0))  # older than any birth time on this disk


def place(root, rel):
    """The path of a file of the machine in `root`; its folder is made."""
    path = os.path.join(root, rel)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    return path


def write(path, data):
    with open(path, "wb") as out:
        out.write(data)


def write_old(path, data):
    """Writes a file that is the same on every run, its time too."""
    write(path, data)
    os.utime(path, (STAMP, STAMP))


def settle(root):
    """Gives all files and folders the same modes and times on every run."""
    for folder, _, files in os.walk(root, topdown=False):
        for name in files:
            os.chmod(os.path.join(folder, name), 0o644)
            os.utime(os.path.join(folder, name), (STAMP, STAMP))
        os.utime(folder, (STAMP, STAMP))


def drive_path(rel):
    r"""C/Music/x.mp3 as C:\Music\x.mp3."""
    return rel[0] + ":\\" + rel[2:].replace("/", "\\")
