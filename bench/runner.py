"""Runs programs and measures each; several of them in turn, so that a noisy machine treats all alike."""

import json
import os
import statistics
import subprocess
from pathlib import Path

CACHES = Path("/proc/sys/vm/drop_caches")


class BenchError(Exception):
    """A run that failed or did not do its work."""


class Candidate:
    """One thing to measure: a command, what comes before each run, and a check after it."""

    def __init__(self, name, command, prepare=None, check=None):
        self.name = name
        self.command = [str(part) for part in command]
        self.prepare = prepare or (lambda: None)
        self.check = check or (lambda output: None)


class Runner:
    """Runs candidates through the launcher that measures one child."""

    def __init__(self, launcher, folder):
        self.launcher = launcher
        self.result = folder / "run.json"
        self.output = folder / "run.out"

    def run(self, candidate, cold=False):
        candidate.prepare()
        os.sync()  # the preparation's writes are not the candidate's to pay for
        if cold:
            drop_caches()
        with open(self.output, "wb") as output:
            command = [str(self.launcher), str(self.result), *candidate.command]
            subprocess.run(command, stdout=output, check=True)
        outcome = json.loads(self.result.read_text())
        if outcome["exit"] != 0:
            raise BenchError(f"{candidate.name} ended with {outcome['exit']}")
        candidate.check(self.output.read_text(errors="replace"))
        return {
            "wall": outcome["wall"],
            "cpu": outcome["user"] + outcome["sys"],
            "rss_kib": outcome["rss"],
        }

    def run_in_turn(self, candidates, repeat, cold=False):
        """Measures all candidates, interleaved, the order rotated from round to round; one
        unmeasured run of each goes first. `cold` forgets the disk's contents before each run."""
        for candidate in candidates:
            self.run(candidate)
        runs = {candidate.name: [] for candidate in candidates}
        for turn in range(repeat):
            shift = turn % len(candidates)
            for candidate in candidates[shift:] + candidates[:shift]:
                runs[candidate.name].append(self.run(candidate, cold))
        return {name: summarise(samples) for name, samples in runs.items()}


def why_not_cold():
    """Why the system's cache cannot be emptied; empty when it can."""
    if os.access(CACHES, os.W_OK):
        return ""
    return f"{CACHES} cannot be written: cold runs need root"


def drop_caches():
    CACHES.write_text("3\n")


def summarise(samples):
    return {key: summary_of([sample[key] for sample in samples]) for key in samples[0]}


def summary_of(values):
    return {"median": statistics.median(values), "min": min(values), "max": max(values)}


def ratio(measured, name, floor, key="wall", statistic="median"):
    """Of one candidate to another."""
    return measured[name][key][statistic] / measured[floor][key][statistic]
