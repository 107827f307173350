#!/usr/bin/env python3
"""Placing files on another machine beside `cp -r` of the same files, and `cp -r` that flushes.

The placing flushes every file to the disk before it gets its name; `cp -r` leaves that to the
system, so the second comparison is the fair one and the first the ambitious one. All candidates
run in turn in one call.
"""

import argparse
import json
import random
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

from runner import BenchError, Candidate, Runner

FILES_PER_FOLDER = 50
KIB = 1024


class Corpus:
    """A machine full of files, and the empty machines that they are placed on."""

    def __init__(self, folder, count, least, most, seed):
        self.machine = folder / "source"
        self.targets = folder / "targets"
        self.count = count
        self.bytes = 0
        self.made = 0
        self.keep = False
        chance = random.Random(seed)
        for number in range(count):
            parent = self.machine / "C" / "Music" / f"{number // FILES_PER_FOLDER:04d}"
            parent.mkdir(parents=True, exist_ok=True)
            size = chance.randint(least, most)
            (parent / f"Song {number}.mp3").write_bytes(chance.randbytes(size))
            self.bytes += size

    def keep_targets_if_possible(self, runs):
        """A disk such as ext4 goes a long way round the records of files just deleted, and that
        would be measured. So nothing is deleted meanwhile, as long as there is room for it."""
        self.keep = self.bytes * runs * 2 < shutil.disk_usage(self.machine).free

    def target(self):
        return self.targets / str(self.made)

    def next_target(self):
        if not self.keep:
            shutil.rmtree(self.targets, ignore_errors=True)
        self.made += 1
        (self.target() / "C").mkdir(parents=True)

    def check(self, name):
        files = [path for path in self.target().rglob("*") if path.is_file()]
        size = sum(path.stat().st_size for path in files)
        if (len(files), size) != (self.count, self.bytes):
            raise BenchError(f"{name}: {len(files)} files with {size} bytes, "
                             f"not {self.count} with {self.bytes}")


class Copy(Candidate):
    """One way to fill a new target; its command is made anew for each run."""

    def __init__(self, name, corpus, make_command):
        super().__init__(name, [], corpus.next_target, lambda _: corpus.check(name))
        self.corpus = corpus
        self.make_command = make_command

    @property
    def command(self):
        source, target = self.corpus.machine, self.corpus.target()
        return [str(part) for part in self.make_command(source, target)]

    @command.setter
    def command(self, _):
        pass


def candidates(corpus, program):
    copy, shell = shutil.which("cp"), shutil.which("sh")
    flushed = 'cp -r "$0/C/Music" "$1/C" && sync -f "$1"'
    return [
        Copy("cp", corpus, lambda source, target: [copy, "-r", source / "C" / "Music", target / "C"]),
        Copy("cp + sync", corpus, lambda source, target: [shell, "-c", flushed, source, target]),
        Copy("place", corpus, lambda source, target: [program, source, target]),
    ]


def measure(arguments, work, name, count, least, most):
    folder = work / name
    corpus = Corpus(folder, count, least, most, arguments.seed)
    corpus.keep_targets_if_possible(3 * (arguments.repeat + 1))
    runner = Runner(arguments.build / "measure_run", folder)
    runs = runner.run_in_turn(candidates(corpus, arguments.build / "place_program"),
                              arguments.repeat)
    shutil.rmtree(folder)
    return {"files": count, "bytes": corpus.bytes, "runs": runs,
            "ratio_to_cp": ratios(runs, "cp"), "ratio_to_cp_and_sync": ratios(runs, "cp + sync")}


def ratios(runs, floor):
    return {key: runs["place"]["wall"][key] / runs[floor]["wall"][key] for key in ("median", "min")}


def print_result(name, result):
    print(f"{name}: {result['files']} files, {result['bytes'] / KIB / KIB:.0f} MiB")
    for each, summary in result["runs"].items():
        wall, cpu = summary["wall"], summary["cpu"]
        print(f"  {each:<10} wall {wall['median'] * 1e3:8.0f} ms"
              f" ({wall['min'] * 1e3:.0f}..{wall['max'] * 1e3:.0f})"
              f"  cpu {cpu['median'] * 1e3:8.0f} ms"
              f"  max rss {summary['rss_kib']['median'] / KIB:.1f} MiB")
    for title, key in (("cp", "ratio_to_cp"), ("cp + sync", "ratio_to_cp_and_sync")):
        ratio = result[key]
        print(f"  place is {ratio['median']:.2f} times {title} (of the minima {ratio['min']:.2f})")


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("mode", nargs="?", default="all", choices=["large", "small", "all"])
    parser.add_argument("--large-files", type=int, default=1500)
    parser.add_argument("--small-files", type=int, default=5000)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--repeat", type=int, default=7)
    parser.add_argument("--build", type=Path, required=True,
                        help="build folder with place_program and measure_run")
    parser.add_argument("--work", type=Path, help="folder for the files (a temporary one)")
    parser.add_argument("--json", type=Path, help="write all figures to this file")
    arguments = parser.parse_args()
    arguments.build = arguments.build.resolve()
    arguments.work = arguments.work and arguments.work.resolve()
    if arguments.repeat < 1:
        parser.error("--repeat must be at least 1")
    return arguments


def main():
    arguments = parse_arguments()
    sizes = {
        "large": (arguments.large_files, 1024 * KIB, 6 * 1024 * KIB),
        "small": (arguments.small_files, 40 * KIB, 40 * KIB),
    }
    modes = list(sizes) if arguments.mode == "all" else [arguments.mode]
    if arguments.work:
        arguments.work.mkdir(parents=True, exist_ok=True)
    work = Path(tempfile.mkdtemp(prefix="norvo-bench-", dir=arguments.work))
    try:
        results = {}
        for mode in modes:
            results[mode] = measure(arguments, work, mode, *sizes[mode])
            print_result(mode, results[mode])
        if arguments.json:
            arguments.json.write_text(json.dumps(results, indent=2) + "\n")
        return 0
    except (BenchError, subprocess.CalledProcessError) as error:
        print(f"placing: {error}", file=sys.stderr)
        return 1
    finally:
        shutil.rmtree(work, ignore_errors=True)


if __name__ == "__main__":
    sys.exit(main())
