#!/usr/bin/env python3
"""Moves playlists and songs with the program for Windows under Wine: between PCs by way of a stick,
from an old PC's disk, and between folders."""

import json
import os
import re
import subprocess
from pathlib import Path

import windows_move_case
from windows_move_case import LISTS, MIX, MUSIC, OMEGA, WindowsMoveCase, fill, song

from help_texts import Help
from native_playlists import PLAYER_FOLDERS, find_on_machine
from stage import may_mount, mount
from windows_machine import Item


def printed_moves():
    """What the README shows for two PCs and a stick: the arguments of each command."""
    page = (Path(__file__).resolve().parents[2] / "README.md").read_text("utf-8")
    lines = [line.split() for line in page.splitlines() if line.startswith("    norvo-playlists")]
    return [words[1:] for words in lines if any("E:" in word for word in words)]


def printed_steps():
    """The commands for single steps, as the manual prints them."""
    page = (Path(__file__).resolve().parents[2] / "docs/manual/commands.md").read_text("utf-8")
    section = page.split("\n## On Windows\n")[1].split("\n## ")[0]
    return [line.strip() for line in section.splitlines() if line.startswith("    ")]


class WindowsMoveTest(WindowsMoveCase):
    # ------------------------------------------------------------------- by way of a stick ----

    def test_from_one_pc_to_another_by_way_of_a_stick(self):
        old = self.pc()
        fill(old.write)
        before = old.snapshot()
        on_old, on_new = printed_moves()
        self.assertEqual(on_old, ["migrate", "--to", "E:\\Move"])
        self.run_on(old, 0, *on_old)
        self.assertEqual(old.snapshot(), before)
        self.check(self.stick / "Move" / "C")
        # Once more, with the stick as part of what is searched: nothing is new.
        self.run_on(old, 0, "migrate", "--to", "E:\\Move")
        self.check(self.stick / "Move" / "C")
        self.assertEqual(old.snapshot(), before)

        new = self.pc()
        self.run_on(new, 0, *on_new)
        self.check(new.drive)
        lists = new.wine("reg", "query", r"HKLM\SOFTWARE\Norvo\Migration\KVS", "/v", "mode")
        self.assertIn("0x1", lists.stdout.decode("utf-8"))
        after = new.snapshot()
        (self.stick / "Move").rename(self.stick / "Moved")
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

    def test_a_song_that_is_named_by_its_short_names_too_comes_once_and_by_its_long_one(self):
        old = self.pc()
        folder, name = "A folder with a long name", "A song with a long name.mp3"

        def short(place):
            listed = old.wine("cmd", "/c", "dir /x " + place).stdout.decode("cp437")
            return re.search(r"(\S+~\S+) +A (folder|song) with", listed).group(1)

        disk = self.stick / "disk"
        (disk / "Windows").mkdir(parents=True)
        for write in (old.write, self.write_on(disk)):
            write(f"C:\\Music\\{folder}\\{name}", song(1))
        folders = [short("C:\\Music"), folder]
        names = [short("C:\\Music\\" + folders[0]), name]
        lines = [f"C:\\Music\\{one}\\{other}\r\n" for one in folders for other in names]
        for write in (old.write, self.write_on(disk)):
            write("C:\\Music\\Mix.m3u", "".join(lines).encode())
        for number, words in enumerate([[], ["--from", "E:\\disk"]]):
            for _ in range(2):
                self.run_on(old, 0, "migrate", *words, "--to", f"E:\\Move{number}", "--all-music")
                come = list((self.stick / f"Move{number}").rglob("*.mp3"))
                self.assertEqual([path.name for path in come], [name])
                self.assertEqual(come[0].read_bytes(), song(1))

    # ------------------------------------------------------------------------ an old disk ----

    def test_lists_that_are_named_as_devices_come_over_and_the_move_ends(self):
        write = self.write_on(self.stick / "disk")
        write("C:\\Windows\\win.ini", b"")
        write("C:\\Music\\One.mp3", song(1))
        for name in ("aux.m3u", "con.m3u8", "NUL.pls.m3u"):
            write("C:\\Music\\" + name, b"One.mp3\r\n")
        new = self.pc()
        out = self.run_on(new, 0, "migrate", "--from", "E:\\disk")
        self.assertIn("Checked     3 of 3 playlists, 1 of 1 song right", out)

    def test_a_second_disk_of_an_old_pc_is_named_with_its_drive(self):
        system, second = self.stick / "system", self.stick / "second"
        self.write_on(system)("C:\\Music\\Mix.m3u", b"D:\\Songs\\Two.mp3\r\n")
        self.write_on(second)("D:\\Songs\\Two.mp3", song(2))
        (system / "Windows").mkdir()
        new = self.pc()
        new.connect(system)
        (new.drives() / "f:").symlink_to(second)
        # A drive is meant as a whole, whatever folder is current there.
        self.run_on(new, 0, "migrate", "--from", "E:", "--drive", "D=\\\\?\\F:")
        come = [path.read_bytes() for path in (new.drive / "My Documents").rglob("*.mp3")]
        self.assertEqual(come, [song(2)])

    def test_a_second_disk_of_an_old_pc_is_named_in_its_settings(self):
        write = self.write_on(self.stick / "old" / "system")
        write("C:\\Music\\Mix.m3u", b"D:\\Songs\\Two.mp3\r\n")
        self.write_on(self.stick / "old" / "second")("D:\\Songs\\Two.mp3", song(2))
        (self.stick / "old" / "machine.ini").write_text("[Drives]\nC=fixed,system\nD=fixed,second\n")
        new = self.pc()
        self.run_on(new, 0, "migrate", "--from", "E:\\old")
        come = [path.read_bytes() for path in (new.drive / "My Documents").rglob("*.mp3")]
        self.assertEqual(come, [song(2)])

    def test_a_disk_that_is_named_in_the_settings_of_a_folder_is_not_written_to(self):
        disk = self.stick / "disk"
        write = self.write_on(disk)
        write("C:\\Music\\Mix.m3u", b"One.mp3\r\n")
        write("C:\\Music\\One.mp3", song(1))
        before = {path for path in disk.rglob("*")}
        (self.stick / "old").mkdir()
        (self.stick / "old" / "machine.ini").write_text("[Drives]\nC=fixed,E:\\disk\n")
        new = self.pc()
        self.run_on(new, 0, "migrate", "--from", "E:\\old")
        come = [path.read_bytes() for path in (new.drive / "My Documents").rglob("*.mp3")]
        self.assertEqual(come, [song(1)])
        self.assertEqual({path for path in disk.rglob("*")}, before)
        self.assertEqual([path.name for path in (self.stick / "old").iterdir()], ["machine.ini"])

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
        self.assertEqual([path for path in new.drive.rglob("norvo-*") if path.is_dir()], [])

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

    def test_every_command_has_the_same_options_on_both_systems(self):
        pc = self.pc()
        other = windows_move_case.OPTIONS.other_program
        commands = [name for name, _ in Help(other).commands]
        self.assertIn("migrate", commands)
        for command in ((), *((name,) for name in commands)):
            with self.subTest(command):
                here = Help(None, text=self.run_on(pc, 0, *command, "--help"))
                there = Help(other, *command)
                # On Windows the machine is this PC where none is named.
                self.assertEqual([tag for tag, _ in here.options],
                                 [tag.removesuffix(" REQUIRED") for tag, _ in there.options])
                # A path of a machine's folder looks like one of this PC, and is told of otherwise.
                self.assertEqual([tag for tag, _ in here.words], [tag for tag, _ in there.words])
                self.assertEqual(here.commands, there.commands)

    def test_a_folder_goes_from_one_system_to_the_other_and_back(self):
        other = windows_move_case.OPTIONS.other_program
        if not other or not other.exists():
            self.skipTest("the program for this system is not built")
        fill(self.write_on(self.stick / "old" / "C"))
        machine = self.pc()
        self.run_on(machine, 0, "migrate", "--from", "E:\\old", "--to", "E:\\second")
        # Of one folder both make the same, byte for byte.
        subprocess.run([other, "migrate", "--quiet", "--from", "old", "--to", "same"],
                       cwd=self.stick, check=True)
        trees = [{path.relative_to(self.stick / name): path.read_bytes()
                  for path in (self.stick / name).rglob("*") if path.is_file()}
                 for name in ("second", "same")]
        self.assertEqual(trees[0], trees[1])
        subprocess.run([other, "migrate", "--quiet", "--from", "second", "--to", "third"],
                       cwd=self.stick, check=True)
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

    def test_a_report_that_cannot_be_written_is_named_as_this_system_writes_paths(self):
        told = self.run_on(self.pc(), 2, "migrate", "--to", "E:\\Move", "--report", "E:/no/page.html")
        self.assertIn("E:\\no\\page.html cannot be written: there is no such drive, folder or file",
                      told)

    def test_a_folder_with_lists_and_a_report_stays_a_machine(self):
        old = self.pc()
        fill(old.write)
        page = "E:\\Move\\My move.html"
        self.run_on(old, 0, "migrate", "--to", "E:\\Move")
        (self.stick / "Move" / "desktop.ini").write_bytes(b"[.ShellClassInfo]\r\n")
        self.run_on(old, 0, "migrate", "--to", "E:\\Move", "--report", page)
        told = self.run_on(old, 0, "migrate", "--to", "E:\\Move", "--report", page)
        self.assertIn("drives and registry.reg found", told)
        self.check(self.stick / "Move" / "C")
        self.assertEqual({path.name for path in (self.stick / "Move").iterdir()
                          if not path.name.startswith(".")},
                         {"C", "My move.html", "desktop.ini", "registry.reg"})
        new = self.pc()
        self.run_on(new, 0, "migrate", "--from", "E:\\Move")
        self.check(new.drive)

    def test_a_write_protected_stick_is_only_read(self):
        if not may_mount(self.stick):
            self.skipTest("no disk can be mounted here")
        fill(self.write_on(self.stick / "Move" / "C"))
        mount("--bind", self.stick, self.stick)
        self.addCleanup(subprocess.run, ["umount", self.stick], check=True)
        mount("-o", "remount,bind,ro", self.stick)
        new = self.pc()
        self.run_on(new, 0, "migrate", "--from", "E:\\Move")
        self.check(new.drive)

    # ----------------------------------------------------------------------- what is wrong ----

    def test_a_drive_that_is_not_there_is_told_also_by_a_trial(self):
        old = self.pc()
        fill(old.write)
        for more in ([], ["--dry-run"]):
            told = self.run_on(old, 2, "migrate", "--to", "Q:\\Move", *more)
            self.assertIn("Q:\\Move cannot be made a machine: there is no such drive, folder or file",
                          told)

    def test_a_name_that_ended_in_its_quotation_marks_is_explained(self):
        told = self.run_on(self.pc(), 2, "migrate", "--from", "E:\" --dry-run")
        self.assertIn("a name that ends with \\ stands without quotation marks", told)


if __name__ == "__main__":
    windows_move_case.run("windows_move_test")
