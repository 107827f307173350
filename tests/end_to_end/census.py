"""Holds what a move tells of an old machine against what is there: every playlist and every song is
in its place or named, lengths come over, and the exit code agrees."""

from collections import Counter, defaultdict

from move_document import LEFT_OUT, RESTORED, SKIPPED
from native_playlists import Malformed, find_on_machine, is_local, upper
from told_details import read_modern


class Census:
    """The judgement over one document; `faults` is empty when all is well."""

    def __init__(self, machine, document):
        self.machine = machine
        self.document = document
        self.faults = []

    def fault(self, text):
        self.faults.append("census: " + text)

    # ---- playlists ----

    def check_lists(self):
        known = {each.path for each in self.machine.playlists} | set(self.machine.unread)
        for row in self.document.lists:
            if row.path not in known:
                self.fault(f"{row.path} is told, which nobody made")
        for path, count in Counter((row.path, row.name) for row in self.document.lists).items():
            if count > 1:
                self.fault(f"{path} is told {count} times")
        for path in self.machine.unread:
            if [row.outcome for row in self.document.rows_of(path)] != [LEFT_OUT]:
                self.fault(f"{path}, which nobody reads, is not told")
        for each in self.machine.playlists:
            self.check_list(each)

    def check_list(self, each):
        rows = [row for row in self.document.rows_of(each.path)
                if not row.name or not each.name or row.name == each.name]
        if each.skipped:
            self.check_skipped(each, rows)
        elif not rows:
            self.fault(f"{each.path} {each.name} ({each.what}) is not told")
        elif each.is_expected() and not rows[0].is_there():
            self.fault(f"{each.path} {each.name} ({each.what}) did not come: {rows[0].told}")
        else:
            self.check_lost(each, rows[0])
            # An earlier run may have told of the files of a list that came then.
            if each.is_expected() and (rows[0].companion or rows[0].outcome == RESTORED):
                self.check_companion(each, rows[0])

    def check_skipped(self, each, rows):
        """By content alone nobody looks there, and in the system's own folder nobody at all."""
        silent = upper(each.path).endswith((".TXT", ".LIST")) or "SYSTEM VOL" in upper(each.path)
        if not silent and [row.outcome for row in rows[:1]] != [SKIPPED]:
            self.fault(f"{each.path} is not told as skipped: {[row.outcome for row in rows]}")

    def check_lost(self, each, row):
        if row.left_out != len(each.lost()):
            self.fault(f"{each.path} {each.name} ({each.what}) lost {len(each.lost())} items, "
                       f"told are {row.left_out}: {row.told}")
        wanted = {upper(path) for item in each.lost() for path in item.candidates}
        if {upper(path) for path in row.candidates} != wanted:
            self.fault(f"{each.path} tells that {sorted(row.candidates)} may be meant instead of "
                       f"{sorted(wanted)}")

    def check_companion(self, each, row):
        """The row's own file has the list's songs, with the lengths that are known of them."""
        place = find_on_machine(self.machine.new, row.companion)
        if place is None or not place.is_file():
            return self.fault(f"{each.path} has no list for players of today: {row.told}")
        try:
            told = read_modern(place.read_bytes())
        except (Malformed, UnicodeDecodeError) as malformed:
            return self.fault(f"{row.companion}: {malformed}")
        if len(told) != len(each.kept()):
            return self.fault(f"{row.companion} has {len(told)} entries, {each.path} "
                              f"{len(each.kept())}")
        for item, seconds, found in zip(each.kept(), each.kept_lengths(), told):
            self.check_entry(each, item, seconds, found)

    def check_entry(self, each, item, seconds, found):
        content = item.song.content if item.song else None
        if not self.leads_to(found.reference, item.address if content is None else content):
            self.fault(f"{each.path} has {found.reference} for {item.song or item.address}"[:300])
        lengths = {seconds, self.machine.seconds.get(content)} - {None}
        is_open = not lengths or each.ANY_LENGTH in lengths
        if item.song and not is_open and found.seconds not in lengths:
            self.fault(f"{each.path} ({each.what}) tells {found.seconds} seconds of "
                       f"{item.song.path} instead of {lengths}")
        if (found.title or "").strip() == "-":
            self.fault(f"{each.path} tells no title of {found.reference}")

    def leads_to(self, reference, wanted):
        if not is_local(reference):
            return reference == wanted
        place = find_on_machine(self.machine.new, reference)
        return place is not None and place.is_file() and place.read_bytes() == wanted

    # ---- songs ----

    def check_songs(self):
        listed = {upper(path) for path in self.machine.listed()}
        rows = defaultdict(list)
        for row in self.document.media:
            rows[upper(row.source)].append(row)
        unlisted = {upper(path): size for path, size in self.document.unlisted.items()}
        for song in self.machine.songs:
            key = upper(song.path)
            if key in listed:
                self.check_listed(song, rows.pop(key, []))
                if key in unlisted:
                    self.fault(f"{song.path} is told as in no list")
            elif unlisted.pop(key, None) != len(song.content):
                self.fault(f"{song.path}, which no list names, is not told with its size")
        for key in (*rows, *(unlisted.keys() - listed)):
            self.fault(f"{key} is told as a song, which nobody made or listed")

    def check_listed(self, song, rows):
        if len(rows) != 1 or rows[0].outcome == LEFT_OUT or not rows[0].places:
            return self.fault(f"{song.path} did not come: {rows}")
        for path in rows[0].places:
            if not self.leads_to(path, song.content):
                self.fault(f"{song.path} is not at {path}")

    # ---- the end ----

    def check_exit_code(self, code):
        if not code == self.document.exit_code == self.machine.exit_code():
            self.fault(f"exit code {code}, told as {self.document.exit_code}, instead of "
                       f"{self.machine.exit_code()}")


def census_faults(machine, document, exit_code):
    census = Census(machine, document)
    census.check_lists()
    census.check_songs()
    census.check_exit_code(exit_code)
    return census.faults
