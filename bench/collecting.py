"""The queue beside its floor and beside a script; collecting on a disk whose contents the system has
forgotten."""

import sys
from pathlib import Path

from machines import expect_entries, queue_candidate
from results import Part, Row, memory_row
from runner import Candidate, ratio, why_not_cold

SCRIPT = Path(__file__).parent / "script_collect.py"


def floor_candidate(workshop, machine, entries):
    return Candidate("floor_collect", [workshop.program("floor_collect"), machine.folder],
                     machine.reset, expect_entries(entries))


def script_candidate(name, machine, entries, *options):
    command = [sys.executable, "-B", SCRIPT, machine.folder, *options]
    return Candidate(name, command, machine.reset, expect_entries(entries))


def collect(workshop):
    options, machine, entries = workshop.arguments, workshop.machine(), workshop.entries()
    candidates = [floor_candidate(workshop, machine, entries),
                  queue_candidate("queue", workshop.program("queue_program"), machine,
                                  options.playlists, entries)]
    if options.kinds == "m3u":  # the only kind that the script knows
        candidates += [script_candidate("script", machine, entries),
                       script_candidate("script, remembers", machine, entries, "--remember")]
    runs = workshop.in_turn(candidates)
    machine.reset()
    shape = shape_of(workshop)
    rows = [Row(f"queue, {shape}, user + system, to floor", ratio(runs, "queue", "floor_collect", "cpu")),
            Row(f"queue, {shape}, wall, to floor", ratio(runs, "queue", "floor_collect")),
            Row("an entry of the queue, wall", runs["queue"]["wall"]["median"] / entries * 1e6, "us")]
    rows += [Row(f"queue beside the {name}, user + system", ratio(runs, "queue", name, "cpu"))
             for name in runs if name.startswith("script")]
    rows.append(memory_row("queue, peak memory", runs["queue"]))
    return [Part("collect", runs, rows)]


def shape_of(workshop):
    options = workshop.arguments
    return f"{options.playlists} x {options.entries} on {options.files} files"


def cold(workshop):
    reason = why_not_cold()
    if reason:
        return [Part("cold", skipped=reason)]
    machine, entries = workshop.machine(), workshop.entries()
    candidates = [floor_candidate(workshop, machine, entries),
                  workshop.collect_candidate(machine, workshop.arguments.playlists, entries)]
    runs = workshop.in_turn(candidates, cold=True)
    machine.reset()
    row = Row(f"collect, {shape_of(workshop)}, wall, cold disk, to the floor cold",
              ratio(runs, "collect", "floor_collect"))
    return [Part("collect, cold", runs, [row, memory_row("collect, peak memory", runs["collect"])])]
