"""The runs, one after the other as a person does them. Each story gives its screens by name."""

import shutil
import tempfile
from pathlib import Path

from . import machines
from .terminal import Screen, on_terminal

ROOT = Path(__file__).resolve().parents[2]
COLUMNS = 90
PICTURE_COLUMNS = 100


def sample(program, page=None):
    """The sample machine's move, as scripts/run-sample.sh does it. `page` is where its report page
    goes, if anywhere."""
    with tempfile.TemporaryDirectory(prefix="norvo-manual-") as folder:
        base = Path(folder)
        for source, name in (("sample-machine", "old"), ("sample-new-machine", "new")):
            shutil.copytree(ROOT / "examples" / source, base / name)
        words = ["migrate", "--from", "old", "--to", "new", *(["--report", page] if page else [])]
        return {"sample": on_terminal(program, words, base, PICTURE_COLUMNS,
                                      [(folder, "/home/ann")])}


def linux(program):
    """Both disks are mounted on Linux."""
    with tempfile.TemporaryDirectory(prefix="norvo-manual-") as folder:
        base = Path(folder)
        old, new = base / "old-disk", base / "new-disk"
        for disk in (old, new):
            machines.put_windows(disk)
        machines.put_old_disk(old)

        def run(*words):
            places = [(str(old), "/mnt/old-disk"), (str(new), "/mnt/new-disk")]
            real = [word.replace("/mnt", folder) for word in words]
            screen = on_terminal(program, real, base, COLUMNS, places)
            return Screen("$ " + " ".join(["norvo-playlists", *words]), screen.lines, screen.code)

        move = ["migrate", "--from", "/mnt/old-disk", "--to", "/mnt/new-disk"]
        screens = {"trial": run(*move, "--dry-run"),
                   "move": run(*move, "--report", "move.html")}
        shutil.copy(old / machines.RIGHT_INTRO, old / machines.MUSIC)
        screens["again"] = run(*move)
        (new / "Users/Bob/Documents").mkdir(parents=True)
        shutil.rmtree(new / "Norvo")
        shutil.rmtree(new / "Users/Ann/Documents/Norvo Media")
        screens["users"] = run(*move)
        return screens


def windows(program, machine_class):
    """Two PCs and a USB disk, then an old disk in a case. `machine_class` makes a Windows PC; the same
    one is each of them in turn, since its making takes longer than all runs."""
    with tempfile.TemporaryDirectory(prefix="norvo-manual-") as folder:
        stick, case = Path(folder) / "stick", Path(folder) / "case"
        stick.mkdir()
        machines.put_windows(case)
        machines.put_old_disk(case)
        pc = machine_class(program, stick)
        try:
            pc.start()
            machines.put_old_disk(pc.drive)
            screens = {"old-pc": run_on_pc(pc, ["migrate", "--to", "E:\\Move"])}
            shutil.rmtree(pc.drive / machines.MUSIC)
            screens["new-pc-trial"] = run_on_pc(pc, ["migrate", "--from", "E:\\Move", "--dry-run"])
            screens["new-pc"] = run_on_pc(pc, ["migrate", "--from", "E:\\Move"])
            for name in ("Norvo Media", "Norvo PlayLists"):
                shutil.rmtree(pc.drive / "My Documents" / name)
            pc.connect(case)
            screens["case"] = run_on_pc(pc, ["migrate", "--from", "E:\\"])
        finally:
            pc.end()
        return screens


def run_on_pc(machine, words):
    """Of standard error only what a console shows as well: the rest is for those who keep the
    report in a file, and stands in the report, too."""
    code, out, err = machine.run_program(*words)
    lines = [line for line in err.splitlines() if line.startswith("C: =")] + out.splitlines()
    return Screen("C:\\> " + " ".join(["norvo-playlists", *words]),
                  [[("plain", line)] for line in lines], code)
