#!/usr/bin/env python3
"""Runs the example scripts (examples/automation) with the script hosts of Wine, and the program in
C++ among them, those of all languages over the same PC: each tells the same, and leaves the same
files."""

import argparse
import shutil
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.append(str(ROOT / "scripts"))  # where the makers are

from makers.machine import (DESTINATION, GROUP_ROOT, PRODUCT, SOURCE, group_key,  # noqa: E402
                            role_keys, sub_names)
from makers.playlists import Item, bare_m3u, m3u, pls  # noqa: E402
from makers.registry import CURRENT_USER, number_value, text_value  # noqa: E402
from makers.songs import audio, id3v2  # noqa: E402
from makers.text import joined  # noqa: E402
from wine_prefix import WinePrefix  # noqa: E402

EXAMPLES = ROOT / "examples/automation"
LANGUAGES = ("vbs", "js")
SWITCH = CURRENT_USER + "Norvo\\Debug"
LISTS = GROUP_ROOT + "PlayLists\\"
PLAYERS = {"Windows Media Player": ".asx", "WinAmp": ".m3u", "MusicMatch Jukebox": ".m3u",
           "Sonique": ".pls"}
OPTIONS = None
PREFIX = None

SONGS = {"Walk": ("Zither", "Hills"), "Run": ("Accordion", "Hills"), "Rest": (None, None)}
WALK, RUN, REST = (f"C:\\Music\\{title}.mp3" for title in SONGS)
FILES = {f"Music/{title}.mp3": (id3v2(title=title, artist=artist, album=album) if artist else b"") +
                               audio(1000) for title, (artist, album) in SONGS.items()}
ASX = """<Asx Version="3.0">
<Title>Slow</Title>
<Entry>
<Ref Href="C:\\Music\\Walk.mp3" />
</Entry>
<Entry>
<Ref Href="C:\\Music\\gone.mp3" />
</Entry>
</Asx>
"""
FILES |= {
    "Music/Trip.m3u": joined(m3u([Item(WALK, "Zither - Walk", 61), Item("Lost\\Way.mp3"), Item(RUN),
                                  Item("notes.txt"), Item("Rest.mp3"),
                                  Item("http://radio.example/live")]), "\n"),
    "Music/notes.txt": "no song\n",
    "Music/Slow.asx": ASX,
    "Music/Evening.pls": joined(pls([Item(RUN, "Accordion - Run", 62)]), "\n"),
    "Music/Plain.m3u": joined(bare_m3u([Item(WALK), Item("D:\\Gone\\Far.mp3")]), "\n"),
}

LISTED = ("C:\\Music\\Slow.asx", "  Zither: Walk",
          "C:\\Music\\Trip.m3u", "  Zither: Walk", "  Accordion: Run", "  " + REST,
          "  http://radio.example/live",
          "C:\\Music\\Evening.pls", "  Accordion: Run",
          "C:\\Music\\Plain.m3u", "  Zither: Walk")
MISSING = ("C:\\Music\\Slow.asx", "  C:\\Music\\gone.mp3",
           "C:\\Music\\Trip.m3u", "  C:\\Music\\Lost\\Way.mp3",
           "C:\\Music\\Plain.m3u", "  D:\\Gone\\Far.mp3",
           "3 missing")


def setUpModule():
    global PREFIX
    PREFIX = WinePrefix(OPTIONS.prefix)
    unittest.addModuleCleanup(PREFIX.stop)
    PREFIX.boot()
    PREFIX.bring(OPTIONS.dll, "Norvo/NorvoPlayList.dll")
    PREFIX.bring(OPTIONS.early_bound, "Examples/source.exe")
    for language in LANGUAGES:
        for script in EXAMPLES.glob("*." + language):
            PREFIX.bring(script, "Examples/" + script.name)
    _, status = PREFIX.run("regsvr32", "/s", "C:\\Norvo\\NorvoPlayList.dll")
    if status != 0:
        raise RuntimeError(f"regsvr32 gave {status}")
    shell = CURRENT_USER + "Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders"
    PREFIX.set_registry([
        (CURRENT_USER + "Wine\\Drivers", [text_value("Graphics", "null")]),
        (shell, [text_value("Personal", "C:\\My Documents")]),
        (PRODUCT, [text_value("ProductFolder", "C:\\Norvo\\")]),
        (SWITCH, [number_value("VBDebugOut", 0)])])
    for name, content in FILES.items():
        PREFIX.put(name, content)


def lines_of(*lines):
    return "".join(line + "\n" for line in lines)


def new_lists(name):
    return [f"{LISTS}{player}\\{name}{ending}" for player, ending in PLAYERS.items()]


REPAIRED = ("left out: C:\\Music\\Lost\\Way.mp3", "left out: C:\\Music\\notes.txt",
            "2 left out, 4 kept", *new_lists("Trip repaired"))


class TheManual(unittest.TestCase):
    def test_shows_what_the_programs_tell(self):
        page = (ROOT / "docs/manual/scripts.md").read_text(encoding="utf-8")
        for lines in (LISTED, MISSING, REPAIRED):
            self.assertIn("\n" + lines_of(*lines), page)


class Examples(unittest.TestCase):
    maxDiff = None
    role = None  # of the PC as its registry has it

    def setUp(self):
        self.be(SOURCE)

    def be(self, role):
        """Makes the PC the old or the new one of a move, on which nothing was done yet."""
        for folder in ("My Documents", "Stick"):
            shutil.rmtree(PREFIX.path(folder), ignore_errors=True)
        PREFIX.put("My Documents/Norvo Media/SubNames.txt", joined(sub_names(), "\n"))
        PREFIX.path("Norvo/VBLog.txt").unlink(missing_ok=True)
        if role != Examples.role:
            PREFIX.set_registry([*role_keys(role, GROUP_ROOT), (group_key(GROUP_ROOT), [])])
        Examples.role = role

    def check(self, script, words, status, *lines):
        host = ["cscript", "//nologo", script]
        if script.endswith(".exe"):
            host = ["C:\\Examples\\" + script]
        output, found = PREFIX.run(*host, *words, folder="Examples")
        self.assertEqual((output.replace("\r\n", "\n"), found), (lines_of(*lines), status), script)

    def in_each_language(self, name, status, words, *lines):
        for language in LANGUAGES:
            with self.subTest(language):
                self.be(SOURCE)
                self.check(f"{name}.{language}", words, status, *lines)
                self.check_languages(language)

    def check_languages(self, language):
        """What stands there after each run; a test says it."""

    def text(self, path):
        """A text of the PC, with plain line ends."""
        return PREFIX.path(path[3:].replace("\\", "/")).read_bytes().decode("cp1252").replace(
            "\r\n", "\n")

    def test_list_songs(self):
        self.in_each_language("ListSongs", 0, [], *LISTED)

    def test_find_missing(self):
        self.check_languages = lambda language: self.assertEqual(
            PREFIX.registry_value(SWITCH, "VBDebugOut"), ("REG_DWORD", "0x0"))
        self.in_each_language("FindMissing", 1, [], *MISSING)

    def test_write_anew(self):
        def written(_):
            self.assertEqual(self.text(LISTS + "WinAmp\\By artist.m3u"), lines_of(
                "#EXTM3U", REST, "http://radio.example/live", "#EXTINF:0,Accordion - Run", RUN,
                "#EXTINF:0,Zither - Walk", WALK))

        self.check_languages = written
        self.in_each_language("WriteAnew", 0, ["C:\\Music\\Trip.m3u", "By artist"],
                              *new_lists("By artist"), "4 songs")

    def test_write_anew_tells_of_a_list_that_is_not_there(self):
        self.in_each_language("WriteAnew", 1, ["C:\\Music\\None.m3u", "New"],
                              "C:\\Music\\None.m3u cannot be read.")

    def test_repair(self):
        def written(_):
            self.assertEqual(self.text(LISTS + "WinAmp\\Trip repaired.m3u"), lines_of(
                "#EXTM3U", "#EXTINF:0,Zither - Walk", WALK, "#EXTINF:0,Accordion - Run", RUN, REST,
                "http://radio.example/live"))
            neutral = self.text(GROUP_ROOT + "KVs\\Trip repaired.ini")
            self.assertEqual([line for line in neutral.splitlines() if line.startswith("SourceURL")],
                             ["SourceURL=" + path for path in
                              (WALK, RUN, REST, "http://radio.example/live")])
            self.assertEqual([line for line in neutral.splitlines() if line.startswith("URLType")],
                             ["URLType=0", "URLType=0", "URLType=4", "URLType=9"])
            self.assertEqual(PREFIX.registry_value(SWITCH, "VBDebugOut"), ("REG_DWORD", "0x0"))

        before = self.text("C:\\Music\\Trip.m3u")
        self.check_languages = written
        self.in_each_language("Repair", 0, ["C:\\Music\\Trip.m3u"], *REPAIRED)
        self.assertEqual(self.text("C:\\Music\\Trip.m3u"), before)

    def test_repair_of_a_list_of_windows_media_player(self):
        def written(_):
            text = self.text(LISTS + "Windows Media Player\\Slow repaired.asx")
            self.assertEqual(text.count("<Entry>"), 1)
            self.assertIn(f'<Ref href = "{WALK}"/>', text)
            self.assertTrue(text.startswith('<ASX Version = "3.0" >\n<Title> Slow</Title>\n'), text)

        self.check_languages = written
        self.in_each_language("Repair", 0, ["C:\\Music\\Slow.asx"],
                              "left out: C:\\Music\\gone.mp3", "1 left out, 1 kept",
                              *new_lists("Slow repaired"))

    def test_a_log_that_cannot_be_written_is_told(self):
        def product_folder(path):
            PREFIX.set_registry([(PRODUCT, [text_value("ProductFolder", path)])])

        product_folder("C:\\Nowhere\\")
        self.addCleanup(product_folder, "C:\\Norvo\\")
        for name, words in (("FindMissing", []), ("Repair", ["C:\\Music\\Trip.m3u"])):
            self.in_each_language(name, 2, words, "Nothing can be written to C:\\Nowhere\\VBLog.txt.")

    def test_carry(self):
        lists = ["Evening.ini", "Plain.ini", "Slow.ini", "Trip.ini"]
        for language in LANGUAGES:
            with self.subTest(language):
                self.be(SOURCE)
                script = "Carry." + language
                self.check(script, ["out", "C:\\Stick"], 0, "The neutral files are in C:\\Stick")
                stick = {path.name: path.read_bytes() for path in PREFIX.path("Stick").iterdir()}
                # An ASX list gets no name without an extension, and so no neutral file of its own.
                self.assertEqual(sorted(stick), sorted(["MediaList.txt", *stick_lists(lists)]))
                self.be(DESTINATION)
                for name, content in stick.items():
                    PREFIX.put("Stick/" + name, content)
                self.check(script, ["in", "C:\\Stick"], 0,
                           "The neutral files are in C:\\My Documents\\Norvo PlayLists",
                           "The players' lists are in " + LISTS[:-1])
                self.assertIn(GROUP_ROOT + "Music\\Zither\\Hills\\Walk.mp3",
                              self.text(LISTS + "WinAmp\\Trip.m3u"))

    def test_events_but_for_the_connecting(self):
        # The script hosts of Wine cannot connect; tests/com/clients does it in C++.
        for language in LANGUAGES:
            text = (EXAMPLES / f"Events.{language}").read_text(encoding="ascii")
            for connecting, plain in (
                    ('WScript.CreateObject("NorvoPlayList.Entry", "Entry_")',
                     'WScript.CreateObject("NorvoPlayList.Entry")'),
                    ("WScript.DisconnectObject entry\n", ""),
                    ("WScript.DisconnectObject(entry);\n", "")):
                text = text.replace(connecting, plain)
            self.assertNotIn("DisconnectObject", text)
            PREFIX.put(f"Examples/Unconnected.{language}", text)
            self.check(f"Unconnected.{language}", [], 0, "Late Radio: http://radio.example/live",
                       "0 events")

    def test_source_and_destination(self):
        for ending in (*LANGUAGES, "exe"):
            with self.subTest(ending):
                self.be(SOURCE)
                self.check(f"source.{ending}", [], 0, "C:\\Music\\Slow.asx", "C:\\Music\\Trip.m3u",
                           "C:\\Music\\Evening.pls", "C:\\Music\\Plain.m3u", "4 playlists found",
                           "Done: the neutral files are in the folder KVs of the group root.")
        neutral = self.text(GROUP_ROOT + "KVs\\Trip.ini")
        self.be(DESTINATION)
        PREFIX.put("My Documents/Trip.ini", neutral)
        self.check("destination.vbs", [], 0, "Done: the neutral files are native playlists below "
                   "the group root now.")


def stick_lists(lists):
    return [name for name in lists if name != "Slow.ini"]


def main():
    global OPTIONS
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--dll", required=True)
    parser.add_argument("--early-bound", required=True, help="the example in C++, built")
    parser.add_argument("--prefix", help="folder of the PC; must not exist, and is kept")
    OPTIONS, rest = parser.parse_known_args()
    with tempfile.TemporaryDirectory(prefix="norvo-examples-") as folder:
        OPTIONS.prefix = OPTIONS.prefix or folder + "/machine"
        unittest.main(argv=["examples_test.py", *rest])


if __name__ == "__main__":
    main()
