"""What makes a folder a machine: its drives, and the settings of the product."""

from .registry import LOCAL_MACHINE, number_value, text_value
from .text import joined

GROUP_ROOT = "C:\\My Documents\\Norvo Media\\"
PRODUCT = LOCAL_MACHINE + "Norvo\\Migration"
SOURCE, DESTINATION = 0, 1  # the product's two modes


def machine_ini(drives=(), documents=None, end="\r\n", between=("",)):
    """The description of a machine from drives such as "C=fixed" and its documents folder, with
    these lines between the two."""
    lines = ["[Drives]", *drives]
    if documents is not None:
        lines += [*between, "[ShellFolders]", "5=" + documents]
    return joined(lines, end).encode()


def role_keys(mode, group_root):
    """Which machine of a move this is, and where the group root is."""
    return [(PRODUCT + "\\KVS", [number_value("mode", mode)]),
            (PRODUCT + "\\KVS\\KVMediaPlayLists", [text_value("SubGroupRootName", group_root)])]


def group_key(group_root):
    """Where the product keeps what it has found about the group."""
    return f"HKEY_LOCAL_MACHINE\\{group_root}KVs\\KVMediaPlayLists"


def product_keys(mode, group_root):
    return role_keys(mode, group_root) + [(group_key(group_root), [])]


def sub_names(both="Music", artist="Music", album="Music", neither="Music"):
    """The lines of SubNames.txt: the folder of songs with an artist and an album, with one of
    them, and with none."""
    return ["[PlayListStrings]", "SzID001=" + both, "SzID002=" + artist, "SzID003=" + album,
            "SzID004=" + neither, "szID005=PlayLists", "szID006="]
