"""The lines of playlists as the players write them, and as others do."""

from dataclasses import dataclass

HEADER = "#EXTM3U"
ALL = object()  # stands for the number of the last item


@dataclass
class Item:
    """What an M3U or a PLS says at one place; nothing of what is None."""
    reference: str
    title: str = None
    seconds: object = None
    number: int = None  # of a PLS; the next one when it is not told
    comma: str = ","  # of an M3U's title line
    between: tuple = ()  # lines between an M3U's title line and its reference
    after: tuple = ()  # lines behind the reference


def title_line(title, seconds, comma=","):
    return f"#EXTINF:{seconds}{comma}{title}"


def m3u(items, head=(HEADER,), tail=()):
    lines = list(head)
    for item in items:
        if item.title is not None:
            lines.append(title_line(item.title, item.seconds, item.comma))
        lines += [*item.between, item.reference, *item.after]
    return lines + list(tail)


def bare_m3u(items):
    """References alone, as MusicMatch Jukebox writes them."""
    return [item.reference for item in items]


def pls_items(items, key, equals):
    """The number of the last item, and the lines of all."""
    number, lines = 0, []
    for item in items:
        number = number + 1 if item.number is None else item.number
        for name, value in ((key, item.reference), ("Title", item.title),
                            ("Length", item.seconds)):
            if value is not None:
                lines.append(f"{name}{number}{equals}{value}")
    return number, lines


def pls(items, count=ALL, head=(), tail=("Version=2",), equals="=", section="[playlist]",
        key="File", count_first=False):
    """`head` and `tail` are further keys; a count of None is left out."""
    last, lines = pls_items(items, key, equals)
    lines = [*head, *lines]
    if count is not None:
        counted = f"NumberOfEntries{equals}{last if count is ALL else count}"
        lines.insert(0 if count_first else len(lines), counted)
    return [section, *lines, *tail]


def element(tag, attributes, gap=" ", equals=" = ", quote='"', end=" />"):
    """An element's start, or all of it; the values are written as they are given."""
    pairs = (f"{gap}{name}{equals}{quote}{value}{quote}" for name, value in attributes.items())
    return "<" + tag + "".join(pairs) + end


def param(name, value, **form):
    return element("Param", {"Name": name, "Value": value}, **form)


def clock(seconds):
    return "00:%02d:%02d.000" % divmod(seconds, 60)


def asx_entry(href, name=None, artist=None, album=None, genre=None, seconds=None, index=None,
              title=None):
    """An entry as Windows Media Player writes it."""
    out = ["<Entry>"]
    for key, value in (("Name", name), ("Artist", artist), ("Album", album), ("Genre", genre),
                       ("OriginalIndex", index)):
        if value is not None:
            out.append(param(key, value))
    if name is not None and href is not None:
        out += [param("SourceURL", href), param("MediaType", "audio"),
                param("Is_Protected", "False")]
    if title is not None:
        out.append("<Title>%s</Title>" % title)
    if seconds is not None:
        out.append(element("Duration", {"value": clock(seconds)}))
    if href is not None:
        out.append(element("Ref", {"href": href}, end="/>"))
    return out + ["</Entry>", ""]


def asx(name, *entries, extra=()):
    """A list as Windows Media Player writes it, with further lines in front of its entries."""
    out = [element("Asx", {"Version": "3.0"}, end=" >"), param("Name", name),
           param("AllowShuffle", "yes"), "", *extra]
    for entry in entries:
        out += entry
    return out + ["</Asx>"]
