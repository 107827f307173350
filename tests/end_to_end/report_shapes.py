"""The names in the documents that the program's commands report, the same on every system. They are
written down here, not taken from a run, so that a change of one is seen."""

PLACE = {"machine": str, "system": str}
DROP = {"reference": str, "reason": str, "reasonCode": str}
ENDING = {"version": int, "leftOut": [str], "exitCode": int}

SHAPES = {
    "init": {"command": str, "written": [str], "alreadyThere": [str], **ENDING},
    "scan": {"command": str,
             "playlists": [{"path": str, "type": int, "typeName": str}],
             "byType": {name: int for name in ("WMP_ASX", "WMP_M3U", "WINAMP_M3U", "WINAMP_PLS",
                                               "SONIQUE_PLS", "MMJB_M3U")},
             "skipped": [{"path": str, "reason": str, "reasonCode": str}],
             "folders": int, "listFile": PLACE, **ENDING},
    "collect": {"command": str,
                "playlists": [{"path": str, "type": int, "typeName": str, "outcome": str,
                               "kept": int, "dropped": [DROP], "neutralFile": str}],
                "summary": {**{name: int for name in (
                    "found", "written", "empty", "replaced", "notWritten", "unknownType",
                    "unreadable", "restoredCopy", "notProcessed", "entriesKept",
                    "mediaBytes")},
                    "entriesDropped": {name: int for name in (
                        "missing", "notMedia", "emptyReference", "notRegistered")}},
                "neutralFiles": PLACE, **ENDING},
    "show": {"command": str, "machine": str, "path": str, "type": int, "typeName": str,
             "name": str,
             "entries": [{"urlType": int, "artist": str, "title": str, "duration": str,
                          "size": int, "source": str}],
             "dropped": [DROP], **ENDING},
    "restore": {"command": str, "neutralFiles": [str],
                "natives": [{"path": str, "typeName": str, "whole": bool, "replaced": int}],
                "settings": [{"player": str, "place": str, "value": str}], **ENDING},
    "verify": {"command": str,
               "playlists": [{"path": str, "whole": bool, "reason": str, "found": int, "addresses": int,
                              "missing": [str]}], **ENDING},
    "failure": {"error": str, **ENDING},
}


def shape_fault(found, shape, place="the document"):
    """What is wrong with a value, told in words; nothing when it has the shape. In a list every
    element has the shape of the one that stands for all."""
    if isinstance(shape, type):
        return None if type(found) is shape else f"{place} is {found!r}, no {shape.__name__}"
    if isinstance(shape, list):
        if not isinstance(found, list):
            return f"{place} is {found!r}, no list"
        faults = (shape_fault(each, shape[0], f"{place}[{i}]") for i, each in enumerate(found))
    else:
        if not isinstance(found, dict) or set(found) != set(shape):
            return f"{place} has {found!r} instead of the names {sorted(shape)}"
        faults = (shape_fault(found[name], each, f"{place}.{name}")
                  for name, each in shape.items())
    return next((fault for fault in faults if fault), None)
