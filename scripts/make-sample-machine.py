#!/usr/bin/python3
"""Makes the sample machines, two small Windows machines held in folders, and their description.

Run it through make-sample-machine.sh, which installs the tools it needs.
"""

import os
import shutil
import sys
import tempfile

sys.dont_write_bytecode = True  # the sources' folder stays clean

from makers.files import write  # noqa: E402
from sample_machine.describe import description  # noqa: E402
from sample_machine.machines import make_new_machine, make_old_machine  # noqa: E402


def replaceable(target):
    if os.path.lexists(target) and not os.path.isfile(os.path.join(target, "machine.ini")):
        sys.exit(target + " is not a sample machine; left alone")
    return target


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: make-sample-machine.py EXAMPLES-FOLDER")
    examples = os.path.abspath(sys.argv[1])
    names = ("sample-machine", "sample-new-machine")
    targets = [replaceable(os.path.join(examples, name)) for name in names]
    os.makedirs(examples, exist_ok=True)
    # Built beside the targets, so that a failing run leaves the old ones in place.
    work = tempfile.mkdtemp(prefix=".sample-machine-", dir=examples)
    try:
        made = [os.path.join(work, name) for name in names]
        for root in made:
            os.mkdir(root)
        playlists = make_old_machine(made[0])
        make_new_machine(made[1])
        for root, target in zip(made, targets):
            if os.path.lexists(target):
                shutil.rmtree(target)
            os.rename(root, target)
    finally:
        shutil.rmtree(work, ignore_errors=True)
    write(os.path.join(examples, "README.md"), description(playlists).encode())
    write(os.path.join(examples, ".gitattributes"),
          "".join(name + "/** -text\n" for name in names).encode())


main()
