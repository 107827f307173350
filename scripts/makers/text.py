"""Texts of a machine's files, from lines to bytes."""

import codecs

MARKS = {"utf-16-le": codecs.BOM_UTF16_LE, "utf-16-be": codecs.BOM_UTF16_BE}


def joined(lines, end="\r\n", last_end=True):
    return end.join(lines) + (end if last_end else "")


def encoded(text, charset="cp1252", errors="strict"):
    """The text's bytes; of UTF-16 with a byte order mark in front."""
    return MARKS.get(charset, b"") + text.encode(charset, errors)
