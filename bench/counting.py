"""Instructions and allocations, which no other process can disturb, as valgrind counts them."""

import re
import shutil
import subprocess

from results import Part, Row
from runner import BenchError

PLAYLISTS, ENTRIES, FILES = 10, 500, 1000  # each song stands in five playlists on average


def counted_by(tool, program, machine, pattern):
    """The numbers that a tool of valgrind tells at the end of a run of the queue."""
    command = ["valgrind", *tool, str(program), str(machine)]
    outcome = subprocess.run(command, capture_output=True, text=True, check=False)
    found = re.search(pattern, outcome.stderr)
    if outcome.returncode != 0 or not found:
        raise BenchError(f"{' '.join(command)} ended with {outcome.returncode}:\n{outcome.stderr}")
    return [int(number.replace(",", "")) for number in found.groups()]


def instructions_of(program, machine):
    tool = ["--tool=callgrind", "--callgrind-out-file=/dev/null"]
    return counted_by(tool, program, machine, r"Collected : (\d+)")[0]


def allocations_of(program, machine):
    """How many, and how many bytes."""
    return counted_by(["--tool=memcheck", "--leak-check=no", "--undef-value-errors=no"], program,
                      machine, r"total heap usage: ([\d,]+) allocs, [\d,]+ frees, ([\d,]+) bytes")


def counts_of(program, machine):
    """Instructions, allocations and allocated bytes, all for each entry."""
    instructions = instructions_of(program, machine.folder)
    machine.reset()
    allocations, size = allocations_of(program, machine.folder)
    machine.reset()
    return [count / (PLAYLISTS * ENTRIES) for count in (instructions, allocations, size)]


def counts(workshop):
    if not shutil.which("valgrind"):
        return [Part("counts", skipped="there is no valgrind")]
    machine = workshop.make_machine("counted", FILES, PLAYLISTS, ENTRIES)
    instructions, allocations, size = counts_of(workshop.program("queue_program"), machine)
    what = f"an entry, queue of {PLAYLISTS} x {ENTRIES}"
    return [Part("counts", rows=[Row(f"instructions {what}", instructions, "count"),
                                 Row(f"allocations {what}", allocations),
                                 Row(f"allocated {what}", size, "bytes")])]
