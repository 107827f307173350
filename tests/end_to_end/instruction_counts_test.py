#!/usr/bin/env python3
"""Holds what an entry costs the queue, in instructions and allocations: figures that depend on the
compiler, but on no other process and hardly on the machine."""

import argparse
import shutil
import sys
import tempfile
from pathlib import Path

# A tenth above what was reached.
MOST_AN_ENTRY = {"instructions": 19_300, "allocations": 5.5, "allocated bytes": 3_600}
COUNTED_BUILD = "Release"
SKIPPED = 77


def why_skipped(options):
    if options.build_type != COUNTED_BUILD:
        return f"a build of type {options.build_type or 'none'} is not optimised as a release is"
    return "" if shutil.which("valgrind") else "there is no valgrind"


def counted(options):
    sys.path.append(options.bench)
    from corpus import Plan, make_corpus
    from counting import ENTRIES, FILES, PLAYLISTS, counts_of
    from machines import Machine

    with tempfile.TemporaryDirectory() as folder:
        make_corpus(folder, Plan(files=FILES, playlists=PLAYLISTS, entries=ENTRIES,
                                 writes_list=True))
        return counts_of(options.program, Machine(Path(folder)))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--bench", required=True)
    parser.add_argument("--program", required=True)
    parser.add_argument("--build-type", required=True)
    options = parser.parse_args()
    reason = why_skipped(options)
    if reason:
        print(f"skipped: {reason}")
        return SKIPPED
    failures = []
    for (what, most), actual in zip(MOST_AN_ENTRY.items(), counted(options)):
        print(f"{what} an entry: {actual:,.1f} (at most {most:,})")
        if actual > most:
            failures.append(what)
    if failures:
        print("too many: " + ", ".join(failures))
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
