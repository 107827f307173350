#!/usr/bin/env python3
"""End-to-end measurements: the queue and the scan beside the least that the system calls cost.

Every comparison is made inside one call: program and floor run in turn, interleaved, the
order rotated from round to round, after one unmeasured run of each that warms the cache.
"""

import argparse
import json
import os
import shutil
import statistics
import subprocess
import sys
import tempfile
from pathlib import Path

from corpus import Plan, kinds, make_corpus

GROWTH_STEPS = (1000, 4000, 16000)
ENTRIES_PER_GROWTH_PLAYLIST = 40
TOTAL_NAME = "WINAMP_M3U Total"


class BenchError(Exception):
    """A run that failed or did not do its work."""


class Machine:
    """A machine folder that can be put back to its state before a queue run."""

    def __init__(self, folder):
        self.folder = folder
        self.playlists = folder / "C" / "Playlists"
        self.data_area = folder / "C" / "My Documents" / "Norvo Media" / "KVs"
        self.list_file = self.data_area / "PlayLists.txt"
        self.saved_list = self.list_file.read_bytes()
        self.registry = folder / "registry.reg"
        self.saved_registry = self.registry.read_bytes()

    def reset(self):
        for path in self.generic_files():
            path.unlink()
        (self.data_area / "MediaList.txt").unlink(missing_ok=True)
        shutil.rmtree(self.folder / "floor-out", ignore_errors=True)
        self.registry.write_bytes(self.saved_registry)
        self.list_file.write_bytes(self.saved_list)

    def generic_files(self):
        return sorted(self.data_area.glob("*.ini"))

    def generic_entries(self):
        return sum(count_sections(path.read_bytes()) for path in self.generic_files())

    def listed(self):
        """The sum of the list file's totals, whatever encoding a scan gave it."""
        if not self.list_file.exists():
            return 0
        lines = decode(self.list_file.read_bytes()).splitlines()
        totals = (line.partition("=") for line in lines if " Total=" in line)
        return sum(int(value) for _, _, value in totals)

    def playlist_count(self):
        return sum(1 for _ in self.playlists.iterdir())


def decode(content):
    if content.startswith(b"\xff\xfe"):
        return content.decode("utf-16")
    return content.decode("cp1252", errors="replace")


def count_sections(content):
    return sum(line.startswith("[Entry ") for line in decode(content).split("\r\n"))


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

    def run(self, candidate):
        candidate.prepare()
        os.sync()  # the preparation's writes are not the candidate's to pay for
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

    def run_in_turn(self, candidates, repeat):
        """Measures all candidates, interleaved; one unmeasured run of each goes first."""
        for candidate in candidates:
            self.run(candidate)
        runs = {candidate.name: [] for candidate in candidates}
        for turn in range(repeat):
            shift = turn % len(candidates)
            for candidate in candidates[shift:] + candidates[:shift]:
                runs[candidate.name].append(self.run(candidate))
        return {name: summarise(samples) for name, samples in runs.items()}


def summarise(samples):
    summary = {}
    for key in samples[0]:
        values = [sample[key] for sample in samples]
        summary[key] = {
            "median": statistics.median(values),
            "min": min(values),
            "max": max(values),
        }
    return summary


def expect_entries(expected):
    def check(output):
        if output.split() != [str(expected)]:
            raise BenchError(f"the floor went over {output.strip()} entries, not {expected}")

    return check


def queue_candidate(name, program, machine, playlists, entries, prepare=None):
    """The queue on a freshly reset machine; a run that leaves work undone is an error."""

    def check(_):
        files, found = len(machine.generic_files()), machine.generic_entries()
        if (files, found) != (playlists, entries):
            raise BenchError(
                f"{name}: {files} generic files with {found} entries, "
                f"not {playlists} with {entries}"
            )

    def reset():
        machine.reset()
        if prepare:
            prepare()

    return Candidate(name, [program, machine.folder], reset, check)


class Bench:
    """The modes of measurement over one set of arguments."""

    def __init__(self, arguments, work):
        self.arguments = arguments
        self.work = work
        self.floors = arguments.floors
        self.runner = Runner(self.floors / "measure_run", work)
        self.main_machine = None

    def make_machine(self, name, files, playlists, entries, **more):
        folder = self.work / name
        if folder.exists():
            shutil.rmtree(folder)
        make_corpus(folder, Plan(seed=self.arguments.seed, files=files, playlists=playlists,
                                 entries=entries, writes_list=True, **more))
        return Machine(folder)

    def machine(self):
        if self.main_machine is None:
            options = self.arguments
            self.main_machine = self.make_machine(
                "main", options.files, options.playlists, options.entries,
                plain_files=options.plain_files, kinds=options.kinds
            )
        return self.main_machine

    def collect(self):
        options, machine = self.arguments, self.machine()
        entries = options.playlists * options.entries
        floor = [self.floors / "floor_collect", machine.folder]
        candidates = [
            Candidate("floor_collect", floor, machine.reset, expect_entries(entries))
        ]
        if options.program:
            candidates.append(
                queue_candidate("queue", options.program, machine, options.playlists, entries)
            )
        measured = self.runner.run_in_turn(candidates, options.repeat)
        for summary in measured.values():
            summary["wall_us_per_entry"] = summary["wall"]["median"] / max(entries, 1) * 1e6
        return with_ratios(measured, "queue", "floor_collect")

    def scan(self):
        options, machine = self.arguments, self.machine()
        floor = [self.floors / "floor_scan", machine.folder / "C"]
        candidates = [Candidate("floor_scan", floor, machine.reset)]
        if options.host:
            candidates.append(self.scan_candidate(machine))
        measured = self.runner.run_in_turn(candidates, options.repeat)
        machine.reset()
        return with_ratios(measured, "scan", "floor_scan")

    def scan_candidate(self, machine):
        expected = machine.playlist_count()

        def prepare():
            machine.reset()
            machine.list_file.unlink()

        def check(_):
            if machine.listed() != expected:
                raise BenchError(f"scan: {machine.listed()} playlists listed, not {expected}")

        command = [self.arguments.host, "scan", "--machine", machine.folder, "--quiet"]
        return Candidate("scan", command, prepare, check)

    def growth(self):
        if not self.arguments.program:
            return {"skipped": "no --program"}
        return {
            "entries_in_one_playlist": self.growth_of_entries(),
            "playlists": self.growth_of_playlists(),
        }

    def growth_of_entries(self):
        """One playlist, cut to each size in turn; the music folder is the same for all."""
        machine = self.make_machine("growth-entries", self.growth_files(), 1, GROWTH_STEPS[-1])
        (playlist,) = machine.playlists.iterdir()
        lines = playlist.read_bytes().splitlines(keepends=True)
        candidates = []
        for size in GROWTH_STEPS:
            content = b"".join(lines[: 1 + 2 * size])  # the header, then two lines an entry
            candidates.append(
                queue_candidate(
                    str(size),
                    self.arguments.program,
                    machine,
                    1,
                    size,
                    lambda content=content: playlist.write_bytes(content),
                )
            )
        return slopes(self.runner.run_in_turn(candidates, self.arguments.repeat))

    def growth_of_playlists(self):
        """Short playlists, as many of them listed as make up each size."""
        counts = [size // ENTRIES_PER_GROWTH_PLAYLIST for size in GROWTH_STEPS]
        machine = self.make_machine(
            "growth-playlists", self.growth_files(), counts[-1], ENTRIES_PER_GROWTH_PLAYLIST
        )
        candidates = []
        for size, count in zip(GROWTH_STEPS, counts):
            content = cut_list(machine.saved_list, count)
            candidates.append(
                queue_candidate(
                    str(size),
                    self.arguments.program,
                    machine,
                    count,
                    size,
                    lambda content=content: machine.list_file.write_bytes(content),
                )
            )
        return slopes(self.runner.run_in_turn(candidates, self.arguments.repeat))

    def growth_files(self):
        return max(self.arguments.files, GROWTH_STEPS[-1])


def cut_list(content, count):
    """The list file with only its first playlists, all of them of the one kind."""
    kept = []
    for line in content.decode("cp1252").split("\r\n"):
        name = line.partition("=")[0]
        if name == TOTAL_NAME:
            line = f"{TOTAL_NAME}={count}"
        elif name.startswith("File") and int(name[4:]) > count:
            continue
        kept.append(line)
    return "\r\n".join(kept).encode("cp1252")


def with_ratios(measured, program, floor):
    result = {"runs": measured}
    if program in measured:
        result["ratio_to_floor"] = {
            key: measured[program][key]["median"] / measured[floor][key]["median"]
            for key in ("wall", "cpu")
            if measured[floor][key]["median"] > 0
        }
    return result


def slopes(measured):
    """Cost of one more entry between the sizes; a ratio of 1 is growth in proportion."""
    small, middle, large = GROWTH_STEPS
    result = {"runs": measured}
    for key in ("wall", "cpu", "rss_kib"):
        for statistic in ("median", "min"):
            at = {size: measured[str(size)][key][statistic] for size in GROWTH_STEPS}
            first = (at[middle] - at[small]) / (middle - small)
            second = (at[large] - at[middle]) / (large - middle)
            result[f"{key}_{statistic}"] = {
                "first_slope": first,
                "second_slope": second,
                "ratio": second / first if first > 0 else None,
            }
    return result


def format_run(name, summary):
    wall, cpu, rss = summary["wall"], summary["cpu"], summary["rss_kib"]
    line = (
        f"  {name:<14} wall {wall['median'] * 1e3:9.1f} ms"
        f" ({wall['min'] * 1e3:.1f}..{wall['max'] * 1e3:.1f})"
        f"  cpu {cpu['median'] * 1e3:9.1f} ms ({cpu['min'] * 1e3:.1f}..{cpu['max'] * 1e3:.1f})"
        f"  max rss {rss['median'] / 1024:.1f} MiB"
    )
    if "wall_us_per_entry" in summary:
        line += f"  {summary['wall_us_per_entry']:.2f} us an entry"
    return line


def format_slope(key, slope):
    unit, factor = ("B", 1024) if key.startswith("rss") else ("us", 1e6)
    ratio = "none" if slope["ratio"] is None else f"{slope['ratio']:.3f}"
    first, second = slope["first_slope"] * factor, slope["second_slope"] * factor
    return f"  {key:<15} {first:8.2f} then {second:8.2f} {unit} an entry, ratio {ratio}"


def print_result(title, result):
    print(f"{title}:")
    if "skipped" in result:
        print(f"  skipped: {result['skipped']}")
        return
    for name, summary in result["runs"].items():
        print(format_run(name, summary))
    for key, ratio in result.get("ratio_to_floor", {}).items():
        print(f"  {key} is {ratio:.2f} times the floor's")
    for key, value in result.items():
        if isinstance(value, dict) and "first_slope" in value:
            print(format_slope(key, value))


def print_mode(mode, result):
    if mode != "growth" or "skipped" in result:
        print_result(mode, result)
        return
    for name, part in result.items():
        print_result(f"growth, {name.replace('_', ' ')}", part)


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("mode", nargs="?", default="all",
                        choices=["collect", "scan", "growth", "all"])
    parser.add_argument("--files", type=int, default=20000)
    parser.add_argument("--playlists", type=int, default=200)
    parser.add_argument("--entries", type=int, default=500)
    parser.add_argument("--kinds", type=kinds, default="m3u",
                        help="kinds in turn, from m3u,pls,mmjb")
    parser.add_argument("--plain-files", type=int, default=200000)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--repeat", type=int, default=7)
    parser.add_argument("--program", type=Path, help="queue program; without it floors only")
    parser.add_argument("--host", type=Path,
                        help="host program; without it only the floor of the scan is measured")
    parser.add_argument("--floors", type=Path, required=True,
                        help="build folder with the floors and measure_run")
    parser.add_argument("--work", type=Path, help="folder for the corpora (a temporary one)")
    parser.add_argument("--keep", action="store_true", help="leave the corpora in place")
    parser.add_argument("--json", type=Path, help="write all figures to this file, - for stdout")
    arguments = parser.parse_args()
    for name in ("program", "host", "floors", "work"):
        path = getattr(arguments, name)
        setattr(arguments, name, path and path.resolve())
    if arguments.repeat < 1:
        parser.error("--repeat must be at least 1")
    return arguments


def run_modes(arguments, work):
    bench = Bench(arguments, work)
    modes = ["collect", "scan", "growth"] if arguments.mode == "all" else [arguments.mode]
    results = {}
    for mode in modes:
        results[mode] = getattr(bench, mode)()
        if str(arguments.json) != "-":
            print_mode(mode, results[mode])
    return results


def write_json(arguments, results):
    names = ("files", "playlists", "entries", "kinds", "plain_files", "seed", "repeat")
    text = json.dumps({"arguments": {name: getattr(arguments, name) for name in names},
                       "results": results}, indent=2)
    if str(arguments.json) == "-":
        print(text)
    else:
        arguments.json.write_text(text + "\n")


def main():
    arguments = parse_arguments()
    if arguments.work:
        arguments.work.mkdir(parents=True, exist_ok=True)
    work = Path(tempfile.mkdtemp(prefix="norvo-bench-", dir=arguments.work))
    try:
        results = run_modes(arguments, work)
        if arguments.json:
            write_json(arguments, results)
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
