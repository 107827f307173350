"""The scan of many files beside a bare listing of their folders."""

from results import Part, Row, memory_row
from runner import BenchError, Candidate, ratio, why_not_cold


def scan(workshop):
    options = workshop.arguments
    machine = workshop.make_machine("scanned", 0, 0, 0, plain_files=options.plain_files)
    floor = [workshop.program("floor_scan"), machine.folder / "C"]
    candidates = [Candidate("floor_scan", floor, machine.reset), scan_candidate(workshop, machine)]
    parts = [measured(workshop, candidates, "warm")]
    reason = why_not_cold()
    parts.append(Part("scan, cold", skipped=reason) if reason
                 else measured(workshop, candidates, "cold"))
    return parts


def measured(workshop, candidates, state):
    runs = workshop.in_turn(candidates, cold=state == "cold")
    row = Row(f"scan, {workshop.arguments.plain_files} files, wall, {state}, to a bare listing",
              ratio(runs, "scan", "floor_scan"))
    return Part(f"scan, {state}", runs, [row, memory_row(f"scan, {state}, peak memory", runs["scan"])])


def scan_candidate(workshop, machine):
    def check(_):
        if machine.listed() != machine.playlist_count():
            raise BenchError(f"scan: {machine.listed()} playlists listed, "
                             f"not {machine.playlist_count()}")

    command = [workshop.host, "scan", "--machine", machine.folder, "--quiet"]
    return Candidate("scan", command, machine.forget_list, check)
