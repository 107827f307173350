"""The document that `migrate --json` writes, as the tests read it. What its parts are called is
known here alone."""

import json
from dataclasses import dataclass

LEFT_OUT, SKIPPED, NO_SONGS = "leftOut", "skipped", "noSongs"
RESTORED, ALREADY_RESTORED = "restored", "alreadyRestored"


@dataclass(frozen=True)
class ListRow:
    path: str  # on the old machine
    name: str  # of a list that shares its file with others; else empty
    outcome: str
    natives: tuple
    companion: str  # empty without one
    left_out: int  # items that did not come
    elsewhere: int  # items that were not where the list says
    candidates: frozenset  # paths of which one may be meant
    told: str  # all that is told of it, as JSON text

    def forms(self):
        return (*self.natives, self.companion) if self.companion else self.natives

    def is_there(self):
        return self.outcome in (RESTORED, ALREADY_RESTORED)


@dataclass(frozen=True)
class MediaRow:
    source: str
    places: tuple  # its name, and a second, plain one where it has that
    outcome: str


class MoveDocument:
    """What one run tells."""

    def __init__(self, output):
        self.data = json.loads(output.decode("utf-8"))
        self.exit_code = self.data["exitCode"]
        self.lists = [self.list_row(row) for row in self.data["playlists"]]
        self.media = [MediaRow(row["source"], self.places(row), row["outcome"])
                      for row in self.data["media"]]
        # Media files that no list names, with their sizes.
        self.unlisted = {row["source"]: row["bytes"] for row in self.data.get("unlisted", [])}

    @staticmethod
    def list_row(row):
        return ListRow(row["path"], row.get("name") or "", row["outcome"], tuple(row["natives"]),
                       row.get("companion") or "",
                       sum(item["outcome"] == LEFT_OUT for item in row["items"]),
                       sum(bool(item.get("foundElsewhere")) for item in row["items"]),
                       frozenset(path for item in row["items"]
                                 for path in item.get("candidates", ())),
                       json.dumps(row, ensure_ascii=False))

    @staticmethod
    def places(row):
        """Each once, the song's own name first."""
        named = (row.get("place"), row.get("plainPlace"))
        return tuple(dict.fromkeys(place for place in named if place))

    def rows_of(self, path):
        return [row for row in self.lists if row.path == path]
