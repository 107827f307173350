#!/usr/bin/env python3
"""End-to-end measurements: the queue, the scan, the move and their parts beside the least that the
system calls cost, or beside another program that does the same.

Every comparison is made inside one call: what is compared runs in turn, interleaved, the order
rotated from round to round, after one unmeasured run of each that warms the cache.
"""

import argparse
import json
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

import collecting
import counting
import growing
import moving
import scanning
import single
from corpus import kinds
from machines import Workshop
from results import as_json, print_part, print_rows
from runner import BenchError, Runner

MODES = {"counts": counting.counts, "collect": collecting.collect, "cold": collecting.cold,
         "songs": moving.songs, "move": moving.settings, "scan": scanning.scan,
         "growth": growing.growth, "open": single.opened, "start": single.start,
         "generic": single.generic}


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("mode", nargs="+", choices=[*MODES, "all", "table"],
                        help="what to measure; table is all, with the figures once more at the end")
    parser.add_argument("--build", type=Path, required=True, help="build folder of the project")
    parser.add_argument("--files", type=int, default=20000)
    parser.add_argument("--playlists", type=int, default=200)
    parser.add_argument("--entries", type=int, default=500)
    parser.add_argument("--kinds", type=kinds, default="m3u",
                        help="kinds in turn, from m3u,pls,mmjb")
    parser.add_argument("--plain-files", type=int, default=200000)
    parser.add_argument("--songs", type=int, default=5000, help="songs of usual size that are moved")
    parser.add_argument("--song-mib", type=float, default=3, help="how large each of them is")
    parser.add_argument("--song-repeat", type=int, default=3, help="how often they are moved")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--repeat", type=int, default=9)
    parser.add_argument("--work", type=Path, help="folder for the corpora (a temporary one)")
    parser.add_argument("--keep", action="store_true", help="leave the corpora in place")
    parser.add_argument("--json", type=Path, help="write all figures to this file")
    arguments = parser.parse_args()
    arguments.build = arguments.build.resolve()
    arguments.work = arguments.work and arguments.work.resolve()
    if min(arguments.repeat, arguments.song_repeat) < 1:
        parser.error("everything is measured at least once")
    return arguments


def measure(arguments, work):
    workshop = Workshop(arguments, work, Runner(arguments.build / "bench" / "measure_run", work))
    modes = MODES if {"all", "table"} & set(arguments.mode) else arguments.mode
    parts = []
    for mode in modes:
        for part in MODES[mode](workshop):
            print_part(part)
            sys.stdout.flush()
            parts.append(part)
    return parts


def write_json(arguments, parts):
    settings = {name: value for name, value in vars(arguments).items()
                if isinstance(value, (int, float, str))}
    text = json.dumps({"arguments": settings, "results": as_json(parts)}, indent=2)
    arguments.json.write_text(text + "\n")


def main():
    arguments = parse_arguments()
    if arguments.work:
        arguments.work.mkdir(parents=True, exist_ok=True)
    work = Path(tempfile.mkdtemp(prefix="norvo-bench-", dir=arguments.work))
    try:
        parts = measure(arguments, work)
        if "table" in arguments.mode:
            print("table:")
            print_rows([row for part in parts for row in part.rows])
        if arguments.json:
            write_json(arguments, parts)
        return 0
    except (BenchError, subprocess.CalledProcessError) as error:
        print(f"end_to_end: {error}", file=sys.stderr)
        return 1
    finally:
        if arguments.keep:
            print(f"kept: {work}", file=sys.stderr)
        else:
            shutil.rmtree(work, ignore_errors=True)


if __name__ == "__main__":
    sys.exit(main())
