#!/usr/bin/env python3
"""Disturbs a whole move at each call to the system that it makes: fails the call, kills the program
before it, with or without a loss of power, or lets the new machine's disk be full; and judges what
each time is left. By default a sample of all points, chosen by a seed; --all for every point, --how
for every one of a kind, --point for one of them."""

import argparse
import os
import random
import subprocess
import sys
import tempfile
from collections import Counter
from multiprocessing import Pool
from pathlib import Path

import beside  # noqa: F401

from generated_machines_test import scratch
from interrupted_migrate_test import may_trace

from judge import Judge
from points import Point, points_of_calls
from stage import SmallDisk, Stage, may_mount, own_mounts

SEED, SAMPLE = 2026, 500
WORKERS = 2
BUILT = Path(__file__).resolve().parents[2] / "build/release/src/cli/norvo-playlists"
JUDGES = {}  # of this process: by whether the disk may fill up


def points_of_disk(folder, options):
    """From a disk that holds just what stands there already to one where the move has room."""
    stage = SmallDisk(folder, options)
    stage.put_back()
    before = stage.used()
    stage.move()
    after = stage.used()
    stage.clear()
    return [Point("full", what, number) for what, first, last in
            zip(("bytes", "files"), before, after) for number in range(first, last + 2)]


def all_points(folder, options):
    stage = Stage(folder / "counting", options)
    stage.put_back()
    stage.move([options.strace, "-f", "-qq", "-y", "-o", str(stage.trace)])
    lines = stage.trace.read_text(errors="replace").splitlines()
    points = points_of_calls(lines, stage.folder)
    if may_mount(folder):
        return points + points_of_disk(folder / "disk of a size", options)
    print("Skipped the full disks: none can be mounted here.")
    return points


def judge_for(point, folder, options):
    full = point.how == "full"
    if full not in JUDGES:
        own = Path(folder, f"{os.getpid()} {'disk' if full else 'calls'}")
        JUDGES[full] = Judge((SmallDisk if full else Stage)(own, options))
    return JUDGES[full]


def work(job):
    point, folder, options = job
    judge = judge_for(point, folder, options)
    verdict = judge.fill_at(point) if point.how == "full" else judge.try_at(point)
    judge.stage.clear()
    return verdict


def tell(verdict, options):
    print(f"{verdict.point}: {verdict.ending}: {verdict.hit}")
    for line in verdict.told.splitlines()[:options.shown]:
        print(f"    told: {line}")
    for fault in verdict.faults[:options.shown]:
        print(f"    {fault}")
    if len(verdict.faults) > options.shown:
        print(f"    and {len(verdict.faults) - options.shown} more")
    print(f"    again: tests/faults/run.py --program {options.program} --point {verdict.point}",
          flush=True)


def table(verdicts):
    """How the points ended, by what was done."""
    for how in ("fail", "kill", "power", "full"):
        endings = Counter(each.ending for each in verdicts if each.point.how == how)
        faulty = sum(bool(each.faults) for each in verdicts if each.point.how == how)
        print(f"{how}: {sum(endings.values())} points; " + "; ".join(
            f"{count} {ending}" for ending, count in sorted(endings.items())) +
            f"; {faulty} did not hold")
    for reason, count in Counter(reason for each in verdicts for reason in each.allowed).items():
        print(f"held, though not to the byte: {count} with {reason}")


def chosen(points, options):
    if options.point:
        return [Point.of(text) for text in options.point]
    if options.how:
        return [point for point in points if point.how == options.how]
    if options.all or len(points) <= options.sample:
        return points
    # Not by their place among all of them: how many there are differs a little each time.
    return sorted(points, key=lambda point: random.Random(f"{options.seed} {point}").random()
                  )[:options.sample]


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", default=str(BUILT))
    parser.add_argument("--strace", default="strace")
    parser.add_argument("--seed", type=int, default=SEED)
    parser.add_argument("--sample", type=int, default=SAMPLE)
    parser.add_argument("--all", action="store_true")
    parser.add_argument("--how", choices=("fail", "kill", "power", "full"))
    parser.add_argument("--point", action="append", help="such as fail:openat2:37:EIO")
    parser.add_argument("--shown", type=int, default=4, help="faults of one point that are told")
    options = parser.parse_args()
    options.program = str(Path(options.program).resolve())
    if not may_trace(options.strace):
        print("Skipped: strace is missing here, or may not trace.")
        sys.exit(77)
    own_mounts()

    with tempfile.TemporaryDirectory(prefix="faults-", dir=scratch()) as folder:
        folder = Path(folder)
        points = all_points(folder, options)
        picked = chosen(points, options)
        print(f"{len(picked)} of {len(points)} points", flush=True)
        verdicts = []
        with Pool(WORKERS) as pool:
            jobs = [(point, folder, options) for point in picked]
            for verdict in pool.imap_unordered(work, jobs, chunksize=4):
                verdicts.append(verdict)
                if verdict.faults:
                    tell(verdict, options)
    table(verdicts)
    reached = sum(verdict.ending != "not reached" for verdict in verdicts)
    if 2 * reached < len(verdicts):
        sys.exit("most points were not reached: the trace was not understood")
    sys.exit(any(verdict.faults for verdict in verdicts))


if __name__ == "__main__":
    main()
