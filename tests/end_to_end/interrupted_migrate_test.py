#!/usr/bin/env python3
"""Kills a migration at its calls to the system, one after the other, and at random moments, runs
it again to its end, and holds what stands then against a run that nobody disturbed: the same, byte
for byte, nothing more and nothing less."""

import argparse
import os
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time
from collections import Counter, defaultdict
from multiprocessing import Pool
from pathlib import Path

from generated_machine import make_machine
from generated_machines_test import changes, scratch, snapshot

# Machines with many playlists and songs, and with foreign files on the new machine.
SEEDS = [107, 38]
# Calls that change something on a disk; a question mark is for calls that a system may not have.
CHANGING = ["?write", "?pwrite64", "?writev", "?pwritev", "?rename", "?renameat", "?renameat2",
            "?link", "?linkat", "?symlinkat", "?unlink", "?unlinkat", "?mkdir", "?mkdirat",
            "?rmdir", "?fsync", "?fdatasync", "?syncfs", "?sync_file_range", "?truncate",
            "?ftruncate", "?fallocate", "?copy_file_range", "?sendfile", "?ioctl", "?utimensat",
            "?chmod", "?fchmod", "?fchmodat", "?fchown"]
OPENING = ["?open", "?openat", "?openat2"]  # that create cannot be told from those that read
QUICK = ["--seccomp-bpf"]  # strace stops at the traced calls alone
KILLED = 137  # how the killer ends when it has killed
RANDOM_KILLS = 10
RUNS_AT_RANDOM = 2  # one after the other, before the one that completes them
MOST_SHOWN = 8
MOST_TOLD = 4
WORKERS = 2


class Stage:
    """A machine pair that can be put back as it was, always at the same place."""

    def __init__(self, folder, make):
        self.pristine, self.folder = folder / "pristine", folder / "run"
        self.pristine.mkdir(parents=True)
        make(self.pristine)
        self.before = snapshot(self.pristine)

    def put_back(self):
        shutil.rmtree(self.folder, ignore_errors=True)
        shutil.copytree(self.pristine, self.folder)

    def command(self, options):
        return [options.program, "migrate", "--from", str(self.folder / "old"), "--to",
                str(self.folder / "new"), "--quiet"]

    def run(self, options, tracer=()):
        return subprocess.run([*tracer, *self.command(options)], capture_output=True, timeout=100,
                              check=False)

    def state(self):
        """What has to be equal: the old machine's own lists of a run may differ."""
        return {path: content for path, content in snapshot(self.folder).items()
                if not re.match(r"old/.*/KVs(/|$)|.*/VBLog\.txt$", path)}

    def harm(self):
        """What an interrupted run has done to files that are not its own."""
        now = snapshot(self.folder)
        return [f"harmed while interrupted: {path}" for path, content in self.before.items()
                if content is not None and now.get(path) != content and
                Path(path).name not in ("registry.reg", "Winamp.ini")]


class Judge:
    def __init__(self, stage, options):
        self.stage, self.options = stage, options
        self.faults = []
        first, duration = self.undisturbed()
        if first.returncode not in (0, 1):
            self.faults.append(f"exit code {first.returncode}: {first.stderr.decode()[:500]}")
        self.reference, self.code = stage.state(), first.returncode
        # The shorter of two: a moment behind the end of the run would disturb nothing.
        self.duration = min(duration, self.undisturbed()[1])
        for line in changes(self.reference, stage.state()):
            self.faults.append(f"two undisturbed runs differ: {line}")

    def undisturbed(self):
        """What a run over the untouched machines gives, and how long it takes."""
        self.stage.put_back()
        start = time.monotonic()
        result = self.stage.run(self.options)
        return result, time.monotonic() - start

    def finish(self, how):
        """Runs the disturbed migration to its end and looks."""
        faults = self.stage.harm()
        last = self.stage.run(self.options)
        if last.returncode != self.code:
            faults.append(f"exit code {last.returncode}, not {self.code}: "
                          f"{last.stderr.decode(errors='replace')[:300]}")
        faults += changes(self.reference, self.stage.state())
        if faults:
            self.faults.append(f"killed {how}: {len(faults)} differences: " +
                               "; ".join(faults[:MOST_TOLD]))

    def kill_at(self, call, number):
        """True when the run was killed there."""
        self.stage.put_back()
        tracer = [self.options.killer, call, str(number)]
        code = self.stage.run(self.options, tracer).returncode
        if code not in (0, 1, KILLED):
            self.faults.append(f"exit code {code} of the run to be killed at {call} {number}")
        self.finish(f"at {call} {number}")
        return code == KILLED

    def kill_after(self, seconds):
        """True when the run was killed; it may be over before."""
        process = subprocess.Popen(self.stage.command(self.options), stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        try:
            process.wait(seconds)
        except subprocess.TimeoutExpired:
            process.kill()
        return process.wait() < 0

    def kill_at_random(self, number):
        """Runs one after the other; gives how many of them were killed."""
        moments = random.Random(number)
        self.stage.put_back()
        waits = [moments.random() * self.duration for _ in range(RUNS_AT_RANDOM)]
        killed = sum(self.kill_after(seconds) for seconds in waits)
        self.finish("after " + ", ".join(f"{seconds:.4f} s" for seconds in waits))
        return killed


def place_of(call, line, folder):
    """The folder, not too deep, that a traced call is about; the kind of work, so to say."""
    found = re.search(r'<([^>]*)>(?:, "([^"]*)")?', line)
    if not found:
        return ""
    path = Path(found.group(1), (found.group(2) or "") if "at" in call else "")
    return "/".join(path.parent.relative_to(folder).parts[:5]) if folder in path.parents else ""


def calls_of(stage, options, names):
    """The calls of an undisturbed run, in order: each with its number among those of its name, and
    with the place that it is about."""
    stage.put_back()
    trace = stage.folder.parent / "trace"
    result = stage.run(options, [options.strace, *QUICK, "-f", "-qq", "-y", "-o", str(trace), "-e",
                                 "trace=" + ",".join(names)])
    if result.returncode not in (0, 1):
        return []
    counted, calls = Counter(), []
    for line in trace.read_text(errors="replace").splitlines():
        call = re.match(r"\d+\s+(\w+)\(", line)
        if call:
            name = call.group(1)
            counted[name] += 1
            calls.append((name, counted[name], place_of(name, line, stage.folder)))
    return calls


def spread(calls, most):
    """So many of each kind of call at each place, from the first to the last; all when `most` is
    0. A run does the same work for each song and each playlist."""
    if most == 0:
        return calls
    kinds = defaultdict(list)
    for call in calls:
        kinds[call[0], call[2]].append(call)
    chosen = set()
    for kind in kinds.values():
        count = min(most, len(kind))
        chosen |= {kind[index * (len(kind) - 1) // max(count - 1, 1)] for index in range(count)}
    return [call for call in calls if call in chosen]


def sample(options):
    return lambda folder: shutil.copytree(options.sample, folder / "old")


def generated(seed):
    return lambda folder: make_machine(seed, folder)


def machines(options):
    return [("sample", sample(options))] + [(f"seed {seed}", generated(seed)) for seed in SEEDS]


def work(job):
    """One worker's share of the kills of one machine: counts, and the faults found."""
    number, name, options = job
    with tempfile.TemporaryDirectory(prefix="interrupted-", dir=scratch()) as folder:
        stage = Stage(Path(folder), dict(machines(options))[name])
        judge = Judge(stage, options)
        counts = Counter()
        if options.traces:
            for names in (CHANGING, OPENING):
                calls = calls_of(stage, options, names)
                counts["calls"] += len(calls)
                for call, which, _ in spread(calls, options.kills)[number::WORKERS]:
                    killed = judge.kill_at(call, which)
                    counts["kills at calls" if killed else "runs that were not killed"] += 1
        for moment in range(number, RANDOM_KILLS, WORKERS):
            killed = judge.kill_at_random(moment)
            counts["kills at random"] += killed
            counts["runs over before their moment"] += RUNS_AT_RANDOM - killed
        return name, counts, judge.faults


def may_trace(strace):
    """Whether strace is there, may trace, and tells of the calls that it is asked for."""
    if not strace or not shutil.which(strace):
        return False
    with tempfile.TemporaryDirectory() as folder:
        trace = Path(folder, "trace")
        subprocess.run([strace, *QUICK, "-f", "-qq", "-o", str(trace), "-e",
                        "trace=?mkdir,?mkdirat", "mkdir", str(Path(folder, "x"))],
                       capture_output=True, check=False)
        return trace.is_file() and "mkdir" in trace.read_text()


def may_kill(killer):
    """Whether the killer is there, and kills where it is told."""
    if not killer:
        return False
    result = subprocess.run([killer, "exit_group", "1", "true"], capture_output=True, check=False)
    return result.returncode == KILLED


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--program", required=True)
    parser.add_argument("--sample", required=True)
    parser.add_argument("--killer", help="what kills a program at a call")
    parser.add_argument("--strace", default="strace")
    parser.add_argument("--kills", type=int, default=int(os.environ.get("NORVO_KILLS", "2")),
                        help="kills at each kind of call at each place; 0 for every call")
    options = parser.parse_args()
    options.program = str(Path(options.program).resolve())
    options.traces = may_kill(options.killer) and may_trace(options.strace)
    if not options.traces:
        print("Skipped the kills at calls: kill_at or strace is missing here, or may not trace.")

    jobs = [(number, name, options) for name, _ in machines(options) for number in range(WORKERS)]
    counts, faults = {}, {}
    with Pool(WORKERS) as pool:
        for name, counted, found in pool.imap_unordered(work, jobs):
            counts.setdefault(name, Counter()).update(counted)
            faults.setdefault(name, []).extend(found)
    for name, counted in counts.items():
        counted["calls"] //= WORKERS  # each worker has seen them all
        print(f"{name}: " + ", ".join(f"{count} {what}" for what, count in counted.items()) +
              f", {len(faults[name])} faults")
        for fault in faults[name][:MOST_SHOWN]:
            print(f"  {fault}")
    if not all(each["kills at random"] for each in counts.values()):
        sys.exit("no run was killed at a random moment: they come too late")
    if options.traces and not all(each["kills at calls"] for each in counts.values()):
        sys.exit("no run was killed at a call: the trace was not understood")
    sys.exit(1 if any(faults.values()) else 0)


if __name__ == "__main__":
    main()
