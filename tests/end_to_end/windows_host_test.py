#!/usr/bin/env python3
"""Runs the program for Windows under Wine, on a machine of its own: every command that works on the
machine that the program runs on."""

import argparse
import json
import sys
import unittest
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parents[2] / "scripts"))  # where the makers are

from makers.playlists import Item  # noqa: E402
from report_shapes import SHAPES, shape_fault  # noqa: E402
from windows_machine import HOLDER, Locked, PROGRAM, Machine  # noqa: E402

OPTIONS = None
GROUP_ROOT = "C:\\My Documents\\Norvo Media\\"
GREEK_AND_CHINESE = "Μουσική 音乐"
MIX = "C:\\Music\\Mix.m3u"
ONE = Item("C:\\Music\\One.mp3", "Ann - One", 61)
# Two songs, and one that is not there.
MIX_ITEMS = [ONE, Item("Two.mp3", "Bob - Two", 62), Item("Three.mp3", "Cid - Three", 63)]
PLAYERS = ("Windows Media Player", "WinAmp", "MusicMatch Jukebox", "Sonique")


class WindowsHostTest(unittest.TestCase):
    """The methods run in the order of their names, on one machine."""

    @classmethod
    def setUpClass(cls):
        cls.machine = Machine(OPTIONS.program)
        cls.addClassCleanup(cls.machine.end)
        cls.machine.start()
        cls.machine.write(HOLDER, Path(OPTIONS.holder).read_bytes())
        song = bytes(1000)
        for path in ("C:\\Music\\One.mp3", "C:\\Music\\Two.mp3",
                     f"C:\\Music\\{GREEK_AND_CHINESE}\\Song.mp3"):
            cls.machine.write(path, song)
        cls.machine.write_m3u(MIX, MIX_ITEMS)
        cls.machine.write_m3u("C:\\Music\\Whole.m3u", [ONE])
        cls.machine.write_m3u(f"C:\\Music\\{GREEK_AND_CHINESE}\\{GREEK_AND_CHINESE}.m3u",
                              [Item("Song.mp3", "Eve - Song", 5)])

    def run_program(self, *words):
        return self.machine.run_program(*words)

    def document(self, code, *words, shape=None):
        found, out, err = self.run_program(*words, "--json")
        self.assertEqual(found, code, err + out)
        document = json.loads(out)
        self.assertIsNone(shape_fault(document, SHAPES[shape or words[0]]))
        self.assertEqual(document["exitCode"], code)
        return document

    def refused(self, *words):
        """What standard error says when the program ends with 2 and no report."""
        code, out, err = self.run_program(*words)
        self.assertEqual((code, out), (2, ""), err)
        return err

    # ---------------------------------------------------------------------------- the usage ----

    def test_00_help_offers_what_this_system_has(self):
        code, out, err = self.run_program("--help")
        self.assertEqual((code, err), (0, ""))
        for command in ("init", "scan", "collect", "show", "restore", "verify", "migrate"):
            self.assertIn(f"\n  {command} ", out)
            code, text, err = self.run_program(command, "--help")
            self.assertEqual((code, err), (0, ""))
            self.assertIn(f"Examples:\n  norvo-playlists {command}", text)
            self.assertNotIn("/mnt", text)
            self.assertIn("this PC", text)
            self.assertLessEqual(max(map(len, text.splitlines())), 80, text)

    def test_01_version(self):
        code, out, err = self.run_program("--version")
        self.assertEqual((code, err), (0, ""))
        self.assertRegex(out, r"^norvo-playlists \d+\.\d+\.\d+ \(([0-9a-f]+, )?Windows x64\)\n$")
        self.assertEqual(self.run_program("-V"), (0, out, ""))
        program = self.machine.place(PROGRAM).read_bytes()
        # The file tells the same to whoever looks at its properties.
        version = out.split()[1].encode("utf-16-le")
        self.assertRegex(program, "FileVersion".encode("utf-16-le") + rb"\0+" + version)
        self.assertIn(b'<requestedExecutionLevel level="asInvoker"', program)

    def test_02_wrong_usage_ends_with_two(self):
        for words in ((), ("conquer",), ("show",), ("scan", "surplus"), ("init", "--role", "x"),
                      ("show", MIX, "--type", "7")):
            with self.subTest(words):
                self.assertIn("--help", self.refused(*words))

    def test_03_folders_that_are_named_by_nothing_are_refused(self):
        for words in (("scan", "--machine", ""), ("init", "--machine", ""), ("scan", "--machine"),
                      ("migrate", "--from", "", "--to", "E:\\"), ("migrate", "--to", "")):
            with self.subTest(words):
                self.assertIn(words[1], self.refused(*words))
        self.assertIn("Both machines would be this PC", self.refused("migrate"))

    def test_04_without_settings_init_is_named(self):
        for command in ("scan", "collect", "restore"):
            err = self.refused(command)
            self.assertIn("Run norvo-playlists init first", err)
            self.assertNotIn("--machine", err)
        self.document(2, "scan", shape="failure")

    def test_05_show_needs_no_settings_and_changes_nothing(self):
        before = self.machine.snapshot()
        report = self.document(1, "show", MIX)
        self.assertEqual([row["source"] for row in report["entries"]],
                         ["C:\\Music\\One.mp3", "C:\\Music\\Two.mp3"])
        self.assertEqual(self.machine.snapshot(), before)
        self.assertIn("Run norvo-playlists init first", self.refused("scan"))

    # ----------------------------------------------------------------------------- the work ----

    def test_10_init_writes_what_is_missing(self):
        self.assertIn("which this PC does not have",
                      self.refused("init", "--group-root", "Q:\\Norvo Media"))
        report = self.document(0, "init")
        self.assertEqual(report["alreadyThere"], ["product folder C:\\Program Files\\Norvo\\"])
        self.assertTrue(self.machine.place(GROUP_ROOT + "SubNames.txt").is_file())
        value = self.machine.wine("reg", "query", r"HKLM\SOFTWARE\Norvo\Migration\KVS"
                                  r"\KVMediaPlayLists", "/v", "SubGroupRootName")
        self.assertIn(GROUP_ROOT, value.stdout.decode("utf-8"))
        again = self.document(0, "init")
        self.assertEqual(again["written"], [])
        self.assertEqual(len(again["alreadyThere"]), 6)

    def test_11_what_init_does_not_change_is_told(self):
        report = self.document(1, "init", "--role", "destination")
        self.assertIn("Change mode in the registry", report["leftOut"][0])

    def test_20_scan_lists_the_playlists_of_the_drives(self):
        report = self.document(0, "scan")
        # The list is 8-bit text, and has no path that does not fit.
        self.assertLessEqual({MIX, "C:\\Music\\Whole.m3u"},
                             {row["path"] for row in report["playlists"]})
        place = GROUP_ROOT + "KVs\\PlayLists.txt"
        self.assertEqual(report["listFile"], {"machine": place, "system": place})
        self.assertTrue(self.machine.place(place).is_file())
        code, out, _ = self.run_program("scan")
        self.assertEqual(code, 0)
        self.assertIn(f"List: {place}\n", out)

    def test_21_collect_writes_neutral_files(self):
        report = self.document(1, "collect")
        rows = {row["path"]: row for row in report["playlists"]}
        self.assertEqual((rows[MIX]["outcome"], rows[MIX]["kept"]), ("written", 2))
        self.assertEqual(rows[MIX]["dropped"],
                         [{"reference": "C:\\Music\\Three.mp3", "reason": "no such file",
                           "reasonCode": "missing"}])
        neutral = self.machine.place(rows[MIX]["neutralFile"]).read_bytes()
        self.assertIn(b"One.mp3", neutral)
        media = self.machine.place(GROUP_ROOT + "KVs\\MediaList.txt").read_bytes()
        self.assertIn(b"C:\\Music\\One.mp3", media)

    def test_22_the_log_stands_beside_the_program(self):
        code, _, err = self.run_program("collect", "--log", "--quiet")
        self.assertEqual(code, 1)
        self.assertIn("no such file", err)
        log = self.machine.place("C:\\Program Files\\Norvo\\VBLog.txt")
        self.assertIn(b"File Not Found: C:\\Music\\Three.mp3", log.read_bytes())
        log.unlink()
        self.run_program("show", MIX, "--log")
        self.assertIn(b"File Not Found: C:\\Music\\Three.mp3", log.read_bytes())
        log.unlink()

    # ------------------------------------------------------------------------------- paths ----

    def test_30_show_takes_every_letter(self):
        path = f"C:\\Music\\{GREEK_AND_CHINESE}\\{GREEK_AND_CHINESE}.m3u"
        report = self.document(0, "show", path)
        self.assertEqual((report["path"], report["machine"]), (path, ""))
        self.assertEqual(report["entries"][0]["source"],
                         f"C:\\Music\\{GREEK_AND_CHINESE}\\Song.mp3")
        code, out, err = self.run_program("show", path)
        self.assertEqual((code, err), (0, ""))
        self.assertIn(f"{path}: M3U of WinAmp\n", out)
        self.assertIn(f"C:\\Music\\{GREEK_AND_CHINESE}\\Song.mp3\n", out)

    def test_31_a_path_is_taken_from_the_current_folder(self):
        for path in ("Mix.m3u", ".\\Mix.m3u", "..\\music\\mix.m3u", "C:Mix.m3u", "/music/mix.m3u"):
            with self.subTest(path):
                report = self.document(1, "show", path)
                self.assertEqual(report["path"].lower(), MIX.lower())
                self.assertEqual(len(report["entries"]), 2)
        self.assertEqual(self.document(0, "verify", "Whole.m3u")["playlists"][0]["found"], 1)

    def test_32_wildcards_are_no_names(self):
        self.assertIn("M*.m3u is no file of this PC", self.refused("show", "M*.m3u"))

    def test_33_paths_that_lead_nowhere_are_named(self):
        for path in ("C:\\Music\\Mux.m3u", "Q:\\Mix.m3u", "C:\\Music", "C:\\Music\\a|b.m3u",
                     f"C:\\{GREEK_AND_CHINESE}.m3u"):
            with self.subTest(path):
                self.assertIn(path + " is no file of this PC", self.refused("show", path))

    # ------------------------------------------------------------------------ the new place ----

    def test_40_restore_writes_native_playlists(self):
        report = self.document(1, "restore")
        # The name of the third playlist has letters that no 8-bit list holds.
        self.assertEqual(len(report["leftOut"]), 1)
        self.assertIn("cannot hold all letters of their names", report["leftOut"][0])
        self.assertIn(GREEK_AND_CHINESE, report["leftOut"][0])
        natives = {row["path"]: row for row in report["natives"]}
        for player in PLAYERS:
            ending = {"Windows Media Player": ".asx", "Sonique": ".pls"}.get(player, ".m3u")
            path = f"{GROUP_ROOT}PlayLists\\{player}\\Mix{ending}"
            self.assertTrue(natives[path]["whole"])
            self.assertIn(b"Two.mp3", self.machine.place(path).read_bytes())

    def test_41_verify_tells_the_missing_songs(self):
        report = self.document(1, "verify")
        self.assertGreaterEqual(len(report["playlists"]), 8)
        missing = {path for row in report["playlists"] for path in row["missing"]}
        self.assertIn(GROUP_ROOT + "Music\\Ann\\One.mp3", missing)
        for path in missing:
            self.machine.write(path, bytes(1000))
        report = self.document(0, "verify")
        self.assertEqual([row["path"] for row in report["playlists"] if row["missing"]], [])
        self.assertTrue(all(row["found"] for row in report["playlists"]))

    def test_42_verify_changes_nothing(self):
        before = self.machine.snapshot()
        self.assertIn("missing: Three.mp3", self.run_program("verify", MIX)[2])
        self.assertEqual(self.machine.snapshot(), before)

    def test_43_what_restore_has_made_is_not_collected(self):
        report = self.collected()
        self.assertGreaterEqual(report["summary"]["restoredCopy"], 8)
        made = [row["path"] for row in report["playlists"] if row["path"].startswith(GROUP_ROOT)]
        self.assertEqual(len(made), report["summary"]["restoredCopy"])

    def test_44_a_file_that_is_not_there_is_called_so(self):
        self.assertIn("C:\\Music\\nope.m3u: there is no such file",
                      self.run_program("verify", "nope.m3u")[2])

    # --------------------------------------------------------- files that others keep locked ----

    def collected(self):
        """The document of a collecting; of what was not collected it names less."""
        code, out, err = self.run_program("collect", "--json")
        self.assertEqual(code, 1, err)
        return json.loads(out)

    def test_50_a_locked_media_list_is_named_and_nothing_is_done(self):
        for name in ("KVs\\MediaList.txt", "SubNames.txt"):
            with self.subTest(name), Locked(self.machine, GROUP_ROOT + name):
                err = self.refused("collect")
                self.assertIn(f"The file {GROUP_ROOT}{name} cannot be used: Permission denied. "
                              "Close the program that uses it", err)
                self.assertEqual(err.count(name), 1)

    def test_51_a_locked_playlist_is_told_once_and_counted(self):
        whole = self.collected()["summary"]
        with Locked(self.machine, MIX):
            report = self.collected()
        told = [line for line in report["leftOut"] if MIX in line]
        self.assertEqual(len(told), 1, told)
        self.assertEqual(told[0].count(MIX), 1)
        self.assertIn("this file cannot be read: Permission denied. Close the program", told[0])
        self.assertEqual(report["summary"]["unreadable"], whole["unreadable"] + 1)
        self.assertEqual(report["summary"]["found"], whole["found"])

    def test_52_a_locked_song_loses_its_tags_and_that_is_told(self):
        with Locked(self.machine, "C:\\Music\\One.mp3"):
            report = self.collected()
        told = [line for line in report["leftOut"] if line.startswith("C:\\Music\\One.mp3: ")]
        self.assertEqual(len(told), 1, report["leftOut"])
        self.assertIn("(its tags) could not be read: Permission denied", told[0])

    def test_53_folder_names_that_are_locked_end_a_restoring(self):
        before = self.machine.snapshot()
        with Locked(self.machine, GROUP_ROOT + "SubNames.txt"):
            self.assertIn("SubNames.txt cannot be used", self.refused("restore"))
        self.assertEqual(self.machine.snapshot(), before)


def main():
    global OPTIONS
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    parser.add_argument("--holder", required=True)
    OPTIONS, rest = parser.parse_known_args()
    unittest.main(argv=["windows_host_test", *rest])


if __name__ == "__main__":
    main()
