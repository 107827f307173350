"""The lines of playlists as the players write them."""


def asx_entry(href, name=None, artist=None, album=None, genre=None, seconds=None, index=None,
              title=None):
    out = ["<Entry>"]
    for key, value in (("Name", name), ("Artist", artist), ("Album", album), ("Genre", genre),
                       ("OriginalIndex", index)):
        if value is not None:
            out.append('<Param Name = "%s" Value = "%s" />' % (key, value))
    if name is not None and href is not None:
        out.append('<Param Name = "SourceURL" Value = "%s" />' % href)
        out.append('<Param Name = "MediaType" Value = "audio" />')
        out.append('<Param Name = "Is_Protected" Value = "False" />')
    if title is not None:
        out.append("<Title>%s</Title>" % title)
    if seconds is not None:
        out.append('<Duration value = "00:%02d:%02d.000" />' % divmod(seconds, 60))
    if href is not None:
        out.append('<Ref href = "%s"/>' % href)
    return out + ["</Entry>", ""]


def asx(name, *entries, extra=()):
    out = ['<Asx Version = "3.0" >', '<Param Name = "Name" Value = "%s" />' % name,
           '<Param Name = "AllowShuffle" Value = "yes" />', ""]
    out += list(extra)
    for entry in entries:
        out += entry
    return out + ["</Asx>"]


def pls(items, count=None, tail=("Version=2",), head=()):
    out = ["[playlist]"] + list(head)
    for number, ref, title, length in items:
        out.append("File%d=%s" % (number, ref))
        if title is not None:
            out.append("Title%d=%s" % (number, title))
        if length is not None:
            out.append("Length%d=%s" % (number, length))
    out.append("NumberOfEntries=%d" % (len(items) if count is None else count))
    return out + list(tail)
