#!/usr/bin/env python3
"""Moves playlists and songs with the program for Windows under Wine: between PCs by way of a stick,
from an old PC's disk, and between folders. What comes is read by readers that share nothing with
the program, and songs are compared by their content."""

import argparse
import contextlib
import json
import os
import shutil
import signal
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from native_playlists import PLAYER_FOLDERS, find_on_machine, read_native
from windows_machine import HOLDER, PROGRAM, Item, Locked, Machine

OPTIONS = None
OMEGA = "\u03a9 \u97f3\u697d"  # in no 8-bit page of Europe
LISTS = "C:\\My Documents\\Norvo Media\\PlayLists\\"
MUSIC = "C:\\Users\\Ann\\Music\\"
SONGS = {f"{MUSIC}One.mp3": 1, f"{MUSIC}Deep\\Zo\u00eb.mp3": 2, f"{MUSIC}{OMEGA}.mp3": 3}
MIX = f"{MUSIC}Mix.m3u8"
LOCK = "C:\\ProgramData\\Norvo\\.norvo-playlists.lock"
FOLDERS = 1500  # so many take a moment
LONGEST = 120  # seconds


def song(number):
    return b"ID3\3\0\0\0\0\0\0" + b"\xff\xfb\x90\0" + bytes(413) + b"song %d" % number


def mix():
    """Every song by a full path, and one by a relative one."""
    return "".join(line + "\r\n" for line in ["#EXTM3U", *SONGS, "One.mp3"]).encode("utf-8-sig")


CONTENTS = [song(number) for number in [*SONGS.values(), 1]]


def printed_steps():
    """The commands for single steps, as the manual prints them."""
    page = (Path(__file__).resolve().parents[2] / "docs/manual/commands.md").read_text("utf-8")
    section = page.split("\n## On Windows\n")[1].split("\n## ")[0]
    return [line.strip() for line in section.splitlines() if line.startswith("    ")]


def fill(write):
    for path, number in SONGS.items():
        write(path, song(number))
    write(MIX, mix())


class WindowsMoveTest(unittest.TestCase):
    def setUp(self):
        self.stick = Path(tempfile.mkdtemp(prefix="norvo-stick-"))
        self.addCleanup(shutil.rmtree, self.stick)

    def pc(self):
        machine = Machine(OPTIONS.program, self.stick)
        self.addCleanup(machine.end)
        machine.start()
        return machine

    def run_on(self, machine, code, *words):
        found, out, err = machine.run_program(*words)
        self.assertEqual(found, code, out + err)
        return out + err

    def write_on(self, disk):
        """Writes to a folder that is the drive of a machine."""
        def write(path, content):
            place = disk.joinpath(*path[3:].split("\\"))
            place.parent.mkdir(parents=True, exist_ok=True)
            place.write_bytes(content)
        return write

    def check(self, drive, lists="My Documents/Norvo Media/PlayLists"):
        """The lists on the drive of a new machine lead to the songs, in order."""
        folder = drive / lists
        for player, ending in PLAYER_FOLDERS.items():
            files = sorted(path.name for path in (folder / player).iterdir())
            self.assertEqual(files, ["Mix" + ending], player)
            self.lead_to_songs(drive, read_native(player, (folder / player / files[0]).read_bytes()))
        modern = (folder / "Modern Players" / "Mix.m3u8").read_text(encoding="utf-8-sig")
        self.lead_to_songs(drive, [line for line in modern.splitlines()
                                   if line and not line.startswith("#")])

    def lead_to_songs(self, drive, references):
        with tempfile.TemporaryDirectory() as machine:
            (Path(machine) / "machine.ini").write_text(f"[Drives]\nC=fixed,{drive}\n")
            found = [find_on_machine(machine, reference) for reference in references]
        self.assertEqual([place and place.read_bytes() for place in found], CONTENTS, references)

    # ------------------------------------------------------------------- by way of a stick ----

    def test_from_one_pc_to_another_by_way_of_a_stick(self):
        old = self.pc()
        fill(old.write)
        before = old.snapshot()
        self.run_on(old, 0, "migrate", "--to", "E:\\Move")
        self.assertEqual(old.snapshot(), before)
        self.check(self.stick / "Move" / "C")
        # Once more, with the stick as part of what is searched: nothing is new.
        self.run_on(old, 0, "migrate", "--to", "E:\\Move")
        self.check(self.stick / "Move" / "C")
        self.assertEqual(old.snapshot(), before)

        new = self.pc()
        (self.stick / "Move").rename(self.stick / "Moved")
        self.run_on(new, 0, "migrate", "--from", "E:\\Moved")
        self.check(new.drive)
        lists = new.wine("reg", "query", r"HKLM\SOFTWARE\Norvo\Migration\KVS", "/v", "mode")
        self.assertIn("0x1", lists.stdout.decode("utf-8"))
        after = new.snapshot()
        self.assertIn("1 of them moved before", self.run_on(new, 0, "migrate", "--from", "E:\\Moved"))
        self.assertEqual({path for path in new.snapshot() if path not in after}, set())
        self.run_on(new, 0, "verify")
        # The new lists are none of the PC's own.
        scanned = json.loads(new.run_program("scan", "--json")[1])
        self.assertEqual((len(scanned["playlists"]), len(scanned["skipped"])), (0, 4))
        collected = json.loads(new.run_program("collect", "--json")[1])["summary"]
        self.assertEqual((collected["found"], collected["restoredCopy"]), (4, 4))

    def test_a_dry_run_writes_nothing_on_this_pc(self):
        fill(self.write_on(self.stick / "Move" / "C"))
        new = self.pc()
        before = new.snapshot()
        self.assertIn("A trial", self.run_on(new, 0, "migrate", "--from", "E:\\Move", "--dry-run"))
        self.assertEqual(new.snapshot(), before)

    # -------------------------------------------------------------------------- the songs ----

    def test_songs_of_any_name_come_with_their_times(self):
        names = ["Case\\Song.mp3", "Case\\song.mp3", "Mr. T.\\One.mp3", "NUL.mp3", "A blank .mp3",
                 "Deep\\" + "\\".join(["A long folder's name " * 2] * 7) + "\\Song.mp3"]
        paths = [MUSIC + name.replace(" \\", "\\") for name in names]
        self.assertGreater(len(paths[-1]), 260)
        old, write = self.stick / "old" / "C", self.write_on(self.stick / "old" / "C")
        for number, path in enumerate(paths):
            write(path, song(number))
            os.utime(old.joinpath(*path[3:].split("\\")), (10**9, 10**9 + 1000 * number))
        write(MIX, "".join(path + "\r\n" for path in paths).encode("utf-8-sig"))
        new = self.pc()
        self.run_on(new, 0, "migrate", "--from", "E:\\old")
        lists = new.drive / "My Documents/Norvo Media/PlayLists/Modern Players/Mix.m3u8"
        (new.folder / "machine.ini").write_text(f"[Drives]\nC=fixed,{new.drive}\n")
        come = [find_on_machine(new.folder, line) for line in
                lists.read_text(encoding="utf-8-sig").splitlines() if not line.startswith("#")]
        self.assertEqual([(place.read_bytes(), int(place.stat().st_mtime)) for place in come],
                         [(song(number), 10**9 + 1000 * number) for number in range(len(paths))])

    def test_a_song_that_another_program_keeps_to_itself_is_named_and_the_others_come(self):
        old = self.pc()
        fill(old.write)
        old.write(HOLDER, Path(OPTIONS.holder).read_bytes())
        with Locked(old, MUSIC + "One.mp3"):
            told = self.run_on(old, 1, "migrate", "--to", "E:\\Move")
        self.assertIn(f"{MUSIC}One.mp3", told)
        self.assertIn("another program has it open", told)
        come = {path.read_bytes() for path in (self.stick / "Move").rglob("*.mp3")}
        self.assertEqual(come, {song(2), song(3)})
        self.run_on(old, 0, "migrate", "--to", "E:\\Move")
        come = {path.read_bytes() for path in (self.stick / "Move").rglob("*.mp3")}
        self.assertEqual(come, {song(1), song(2), song(3)})

    # ---------------------------------------------------------------------- the documents ----

    def test_documents_may_stand_on_another_drive(self):
        fill(self.write_on(self.stick / "old" / "C"))
        new = self.pc()
        second = new.folder / "second disk"
        (second / "Docs").mkdir(parents=True)
        (new.drives() / "f:").symlink_to(second)
        new.keep_documents_in("F:\\Docs")
        new.restart()
        self.run_on(new, 0, "migrate", "--from", "E:\\old")
        come = {path.read_bytes() for path in (second / "Docs" / "Norvo Media").rglob("*.mp3")}
        self.assertEqual(come, {song(number) for number in SONGS.values()})

    # ------------------------------------------------------------------------ an old disk ----

    def test_a_second_disk_of_an_old_pc_is_named_with_its_drive(self):
        system, second = self.stick / "system", self.stick / "second"
        self.write_on(system)("C:\\Music\\Mix.m3u", b"D:\\Songs\\Two.mp3\r\n")
        self.write_on(second)("D:\\Songs\\Two.mp3", song(2))
        (system / "Windows").mkdir()
        new = self.pc()
        new.connect(system)
        (new.drives() / "f:").symlink_to(second)
        self.run_on(new, 0, "migrate", "--from", "E:\\", "--drive", "D=F:\\")
        come = [path.read_bytes() for path in (new.drive / "My Documents").rglob("*.mp3")]
        self.assertEqual(come, [song(2)])

    def test_from_the_disk_of_an_old_pc(self):
        fill(self.write_on(self.stick))
        (self.stick / "Windows").mkdir()
        new = self.pc()
        before = {path: path.read_bytes() for path in self.stick.rglob("*") if path.is_file()}
        self.assertIn("C: = E:\\ (Windows found)",
                      self.run_on(new, 0, "migrate", "--from", "E:\\"))
        self.check(new.drive)
        self.assertEqual({path: path.read_bytes() for path in self.stick.rglob("*")
                          if path.is_file()}, before)

    # ------------------------------------------------------------------- step by step ----

    def test_the_single_steps_of_the_manual_restore_every_list(self):
        pc = self.pc()
        pc.write("C:\\Music\\One.mp3", song(1))
        pc.write_m3u("C:\\Music\\Mix.m3u", [Item("C:\\Music\\One.mp3", "Ann - One", 61)])
        told = {}
        for line in printed_steps():
            program, command, *rest = line.split()
            self.assertEqual(program, "norvo-playlists")
            code, out, err = pc.run_program(command, *rest)
            told[command] = (code, out + err)
        self.assertEqual(list(told), ["init", "collect", "show", "restore", "verify"])
        for command in ("init", "collect", "show", "restore"):
            self.assertEqual(told[command][0], 0, told[command][1])
        self.assertIn("Neutral files restored:  1", told["restore"][1])
        for player, ending in PLAYER_FOLDERS.items():
            lists = pc.drive / "My Documents/Norvo Media/PlayLists" / player
            self.assertTrue((lists / f"Mix{ending}").is_file(), told["restore"][1])
        # Single steps bring no songs: each reference waits for its own.
        self.assertEqual(told["verify"][0], 1, told["verify"][1])
        self.assertIn("Playlists: 4, references checked: 4, found: 0, missing: 4",
                      told["verify"][1])

    # ---------------------------------------------------------------------------- folders ----

    def test_from_folder_to_folder(self):
        fill(self.write_on(self.stick / "old" / "C"))
        machine = self.pc()
        self.run_on(machine, 0, "migrate", "--from", "E:\\old", "--to", f"E:\\{OMEGA}")
        self.check(self.stick / OMEGA / "C")
        self.run_on(machine, 0, "verify", "--machine", f"E:\\{OMEGA}")
        out = self.run_on(machine, 0, "show", "--machine", f"E:\\{OMEGA}",
                          LISTS + "WinAmp\\Mix.m3u")
        self.assertIn("Entries kept: 4", out)
        # A path of this system that leads into the machine is one of the machine.
        path = f"E:\\{OMEGA}\\" + LISTS.replace(":", "", 1) + "WinAmp\\Mix.m3u"
        self.assertIn("4 found", self.run_on(machine, 0, "verify", "--machine", f"E:\\{OMEGA}", path))

    def test_every_command_takes_a_machine_in_a_folder(self):
        write = self.write_on(self.stick / "held" / "C")
        write("C:\\Music\\One.mp3", song(1))
        write("C:\\Music\\Plain.m3u", b"C:\\Music\\One.mp3\r\n")
        machine = self.pc()
        before = machine.snapshot()
        for command in ("init", "scan", "collect", "restore"):
            with self.subTest(command):
                told = self.run_on(machine, 0, command, "--machine", "E:\\held")
        self.assertIn("Neutral files restored:  1", told)
        self.assertEqual(machine.snapshot(), before)

    def test_a_folder_goes_from_one_system_to_the_other_and_back(self):
        if not OPTIONS.other_program or not OPTIONS.other_program.exists():
            self.skipTest("the program for this system is not built")
        fill(self.write_on(self.stick / "old" / "C"))
        machine = self.pc()
        self.run_on(machine, 0, "migrate", "--from", "E:\\old", "--to", "E:\\second")
        subprocess.run([OPTIONS.other_program, "migrate", "--quiet", "--from", "second", "--to",
                        "third"], cwd=self.stick, check=True)
        self.check(self.stick / "third" / "C")
        self.run_on(machine, 0, "migrate", "--from", "E:\\third", "--to", "E:\\fourth")
        self.check(self.stick / "fourth" / "C")

    def test_drives_of_the_new_machine_that_lie_elsewhere_are_not_searched(self):
        old = self.pc()
        fill(old.write)
        old.write("C:\\Move\\machine.ini", b"[Drives]\r\nC=fixed,C:\\Drive\r\n")
        old.place("C:\\Drive").mkdir()
        for _ in range(2):
            told = self.run_on(old, 0, "migrate", "--to", "C:\\Move")
            self.assertRegex(told, r"Playlists +1: ")
            self.check(old.place("C:\\Drive"))

    # --------------------------------------------------------------------- one at a time ----

    @contextlib.contextmanager
    def at_work(self, machine, *words):
        """A run that has begun to work on this PC, and is held there until the end."""
        run = machine.begin(PROGRAM, *words, stderr=subprocess.STDOUT)
        until = time.monotonic() + LONGEST
        lock = machine.place(LOCK)
        while not (lock.is_file() and lock.stat().st_size):  # it tells who has it
            self.assertTrue(run.poll() is None and time.monotonic() < until, "it has not begun")
            time.sleep(0.01)
        os.kill(run.pid, signal.SIGSTOP)
        try:
            self.assertTrue(lock.is_file(), "it is over already")
            yield run
        finally:
            os.kill(run.pid, signal.SIGCONT)

    def end_of(self, run):
        out, err = run.communicate(timeout=LONGEST)
        self.assertEqual(run.returncode, 0, (out, err))

    def test_a_second_run_is_told_who_works_on_this_pc_or_waits(self):
        fill(self.write_on(self.stick))
        for name in ["Windows", *(f"Folder {number}" for number in range(FOLDERS))]:
            (self.stick / name).mkdir()
        new = self.pc()
        with self.at_work(new, "migrate", "--from", "E:\\") as first:
            for words in (("migrate", "--from", "E:\\"), ("init",), ("collect",), ("restore",)):
                told = self.run_on(new, 2, *words)
                self.assertRegex(told, r"Norvo is being worked on by norvo-playlists \(process \d+ of "
                                       r".+ on .+\) since \d{4}-\d\d-\d\d \d\d:\d\d", words)
            # Who writes nothing need not wait.
            self.run_on(new, 0, "migrate", "--from", "E:\\", "--dry-run")
            second = new.begin(PROGRAM, "migrate", "--from", "E:\\", "--wait",
                               stderr=subprocess.PIPE)
            told = second.stderr.readline().decode("utf-8")
            self.assertRegex(told, r"worked on by norvo-playlists .+; waiting until that is done")
            time.sleep(1)
            self.assertIsNone(second.poll(), "it has not waited")
        self.end_of(first)
        self.end_of(second)
        self.check(new.drive)
        self.assertFalse(new.place(LOCK).exists())

    # ---------------------------------------------------------------------------- reports ----

    def test_a_report_goes_to_the_root_of_a_drive(self):
        old = self.pc()
        fill(old.write)
        for page in ("E:\\page.html", "E:/page.html"):
            self.run_on(old, 0, "migrate", "--to", "E:\\Move", "--report", page)
            self.assertEqual({path.name for path in self.stick.iterdir()}, {"Move", "page.html"})
            text = (self.stick / "page.html").read_text(encoding="utf-8")
            self.assertTrue(text.startswith("<!doctype html>") and text.endswith("</html>\n"))
            for shown in ("Everything came over", "Mix.m3u8", OMEGA):
                self.assertTrue(shown in text, shown)
            (self.stick / "page.html").unlink()

    # --------------------------------------------------------------------------- mistakes ----

    def test_what_this_pc_does_not_take_is_refused(self):
        machine = self.pc()
        fill(self.write_on(self.stick))
        before = sorted(self.stick.rglob("*"))
        for words, text in ((("--to", "E:\\Move", "--work", "E:\\w"), "Leave --work out"),
                            (("--from", "E:\\", "--user", "Ann"), "Leave --to-drive, --user"),
                            (("--from", "E:\\gone"), "E:\\gone is no folder"),
                            (("--to", "C:\\"), "--to holds the documents of this PC, C:\\My Documents"),
                            (("--from", "E:\\Users", "--to", "e:\\USERS\\new"), "lie in each other"),
                            (("--to", "E:\\Move", "--link"), "--link writes to the old disk"),
                            ((), "Both machines would be this PC")):
            with self.subTest(words):
                self.assertIn(text, self.run_on(machine, 2, "migrate", *words))
        self.assertEqual(sorted(self.stick.rglob("*")), before)


def main():
    global OPTIONS
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    parser.add_argument("--holder", required=True, help="what keeps a file to itself")
    parser.add_argument("--other-program", help="the one for this system")
    OPTIONS, rest = parser.parse_known_args()
    OPTIONS.other_program = OPTIONS.other_program and Path(OPTIONS.other_program).resolve()
    unittest.main(argv=["windows_move_test", *rest])


if __name__ == "__main__":
    main()
