#!/usr/bin/env python3
"""The new PC as it may be, with the program for Windows under Wine: documents on another disk,
players, songs that are in use, moves that are killed, a disk that is full, two moves at once, and
mistakes of whoever types."""

import contextlib
import os
import signal
import subprocess
import time
from pathlib import Path

import windows_move_case
from windows_move_case import (LISTS, LONGEST, MIX, MUSIC, OMEGA, SONGS, WindowsMoveCase, fill,
                               song)

from stage import may_mount, mount
from windows_machine import HOLDER, PROGRAM, Locked

LOCK = "C:\\ProgramData\\Norvo\\.norvo-playlists.lock"
FOLDERS = 1500  # so many take a moment


class WindowsPcTest(WindowsMoveCase):
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

    def test_documents_may_have_a_name_in_any_script(self):
        fill(self.write_on(self.stick / "old" / "C"))
        new = self.pc()
        documents = f"C:\\Users\\{OMEGA}\\Documents"
        new.place(documents).mkdir(parents=True)
        new.keep_documents_in(documents)
        self.run_on(new, 0, "migrate", "--from", "E:\\old")
        # Older players' lists cannot hold that name.
        self.check(new.drive, "Norvo Media/PlayLists")
        self.assertTrue((new.place(documents) / "Norvo PlayLists" / "Mix.ini").is_file())
        self.assertEqual([path for path in new.drive.rglob("*") if "?" in path.name], [])
        self.run_on(new, 0, "verify")

    # ------------------------------------------------------------------------ the players ----

    def test_the_players_of_this_pc_are_pointed_at_their_lists(self):
        settings = r"HKCU\Software\Microsoft\MediaPlayer\Player\Settings"
        paths = r"HKLM\Software\Microsoft\Windows\CurrentVersion\App Paths\wmplayer.exe"
        command = r"HKLM\Software\Classes\Winamp.File\shell\open\command"
        winamp = "C:\\Winamp\\Winamp.ini"
        fill(self.write_on(self.stick / "old" / "C"))
        new = self.pc()
        new.write("C:\\WMP\\wmplayer.exe", b"MZ")
        new.write(winamp, b"[Winamp]\r\ncwd=C:\\\r\nvolume=7\r\n")
        new.write(HOLDER, Path(windows_move_case.OPTIONS.holder).read_bytes())
        for key, name, text in ((paths, ("/v", "Path"), "C:\\WMP"),
                                (settings, ("/v", "OpenDir"), "C:\\"),
                                (command, ("/ve",), "C:\\Winamp\\Winamp.exe %1")):
            new.wine("reg", "add", key, *name, "/d", text, "/f")
        # What cannot be set is named, with the command that may; the rest is done.
        with Locked(new, winamp):
            told = self.run_on(new, 1, "migrate", "--from", "E:\\old")
        self.assertIn("this setting of a player cannot be changed to", told)
        self.assertIn("run this as an administrator: norvo-playlists migrate --from E:\\old\n", told)
        self.check(new.drive)
        found = new.wine("reg", "query", settings, "/v", "OpenDir").stdout.decode("utf-8")
        self.assertIn(f"REG_SZ    {LISTS}Windows Media Player\r\n", found)
        self.run_on(new, 0, "migrate", "--from", "E:\\old")
        self.assertEqual(new.place(winamp).read_bytes(),
                         f"[Winamp]\r\ncwd={LISTS}Winamp\r\nvolume=7\r\n".encode("ascii"))

    # --------------------------------------------------------------------------- mishaps ----

    def test_what_another_program_keeps_to_itself_on_this_pc_is_named_and_stays(self):
        fill(self.write_on(self.stick / "old" / "C"))
        new = self.pc()
        new.write(HOLDER, Path(windows_move_case.OPTIONS.holder).read_bytes())
        self.run_on(new, 0, "migrate", "--from", "E:\\old")
        before = {path for path in (new.drive / "My Documents").rglob("*")}
        media = "C:\\My Documents\\Norvo Media\\"
        with Locked(new, media + "Music\\One.mp3"):
            told = self.run_on(new, 1, "migrate", "--from", "E:\\old")
        self.assertIn("One.mp3: a file of that name is there already and cannot be compared: another "
                      "program has it open", told)
        with Locked(new, media + "SubNames.txt"):
            told = self.run_on(new, 2, "migrate", "--from", "E:\\old")
        self.assertIn(f"The file {media}SubNames.txt cannot be used: Permission denied. Close the "
                      "program that uses it", told)
        self.assertEqual({path for path in (new.drive / "My Documents").rglob("*")}, before)

    def test_a_move_that_is_killed_is_completed_by_the_next(self):
        old, count = self.stick / "old" / "C", 30
        write = self.write_on(old)
        for number in range(count):
            write(f"{MUSIC}{number}.mp3", song(number) * 3000)
        write(MIX, "".join(f"{MUSIC}{number}.mp3\r\n" for number in range(count))
              .encode("utf-8-sig"))
        whole = {path.read_bytes() for path in old.rglob("*.mp3")}
        new = self.pc()
        documents = new.drive / "My Documents"
        killed = 0
        points = (("*.mp3", 1), ("*.mp3", count // 2), ("*.m3u8", 1), ("WinAmp/*.m3u", 1))
        for pattern, enough in points:
            run = new.begin(PROGRAM, "migrate", "--from", "E:\\old")
            while run.poll() is None and len(list(documents.rglob(pattern))) < enough:
                pass
            killed += run.poll() is None
            run.kill()
            run.communicate(timeout=LONGEST)
            self.assertLessEqual({path.read_bytes() for path in documents.rglob("*.mp3")}, whole)
        self.assertGreater(killed, 1)
        self.run_on(new, 0, "migrate", "--from", "E:\\old")
        self.assertEqual({path.read_bytes() for path in documents.rglob("*.mp3")}, whole)
        self.assertEqual([path.name for path in new.drive.rglob("*") if ".norvo-" in path.name], [])
        self.assertEqual(len(list(documents.rglob("*.mp3"))), count)
        self.run_on(new, 0, "verify")

    def test_a_disk_without_room_is_told_before_the_first_song(self):
        if not may_mount(self.stick):
            self.skipTest("no disk can be mounted here")
        fill(self.write_on(self.stick / "old" / "C"))
        self.write_on(self.stick / "old" / "C")(f"{MUSIC}One.mp3", song(1) * 5000)
        new = self.pc()
        small = new.folder / "small disk"
        small.mkdir()
        mount("-t", "tmpfs", "-o", "size=500k", "norvo-room", small)
        self.addCleanup(subprocess.run, ["umount", small], check=True)
        (small / "Docs").mkdir()
        (new.drives() / "f:").symlink_to(small)
        new.keep_documents_in("F:\\Docs")
        new.restart()
        told = self.run_on(new, 2, "migrate", "--from", "E:\\old")
        self.assertIn("Drive F: of the new machine has no room for the songs", told)
        self.assertEqual([path for path in small.rglob("*") if path.suffix == ".mp3"], [])
        mount("-o", "remount,size=20m", small)
        self.run_on(new, 0, "migrate", "--from", "E:\\old")
        come = {path.read_bytes() for path in (small / "Docs").rglob("*.mp3")}
        self.assertEqual(come, {path.read_bytes() for path in (self.stick / "old").rglob("*.mp3")})

    def test_a_song_that_another_program_keeps_to_itself_is_named_and_the_others_come(self):
        old = self.pc()
        fill(old.write)
        old.write(HOLDER, Path(windows_move_case.OPTIONS.holder).read_bytes())
        with Locked(old, MUSIC + "One.mp3"):
            told = self.run_on(old, 1, "migrate", "--to", "E:\\Move")
        self.assertIn(f"{MUSIC}One.mp3", told)
        self.assertIn("another program has it open", told)
        come = {path.read_bytes() for path in (self.stick / "Move").rglob("*.mp3")}
        self.assertEqual(come, {song(2), song(3)})
        self.run_on(old, 0, "migrate", "--to", "E:\\Move")
        come = {path.read_bytes() for path in (self.stick / "Move").rglob("*.mp3")}
        self.assertEqual(come, {song(1), song(2), song(3)})
        with Locked(old, MIX):
            told = self.run_on(old, 1, "migrate", "--to", "E:\\Other")
        self.assertIn(f"{MIX}: it cannot be read: Permission denied. Close the program", told)

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


if __name__ == "__main__":
    windows_move_case.run("windows_pc_test")
