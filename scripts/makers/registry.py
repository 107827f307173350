"""A machine's registry, as the registry editor exports it."""

from .text import encoded, joined

CLASSES = "HKEY_CLASSES_ROOT\\"
CURRENT_USER = "HKEY_CURRENT_USER\\Software\\"
LOCAL_MACHINE = "HKEY_LOCAL_MACHINE\\SOFTWARE\\"
HEADER = "Windows Registry Editor Version 5.00"


def quoted(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def text_value(name, text):
    """A text; the key's default value has None for a name."""
    return ("@" if name is None else quoted(name)) + "=" + quoted(text)


def number_value(name, number):
    return f"{quoted(name)}=dword:{number:08x}"


def hex_value(name, kind, data):
    """A value of another type as the editor breaks it: lines below 80 characters."""
    line = f"{quoted(name)}={kind}:"
    out = []
    for i, byte in enumerate(data):
        piece = "%02x" % byte + ("," if i + 1 < len(data) else "")
        if len(line) + len(piece) > 78:
            out.append(line + "\\")
            line = "  "
        line += piece
    return "\r\n".join(out + [line])


def key_lines(keys):
    """The lines of pairs of a key and its values."""
    lines = []
    for name, values in keys:
        lines += [f"[{name}]", *values, ""]
    return lines


def exported(keys, charset="utf-16-le", last_line=True):
    """The file's bytes; the editor ends it with an empty line."""
    return encoded(joined([HEADER, "", *key_lines(keys)], last_end=last_line), charset)
