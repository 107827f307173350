#!/usr/bin/env python3
"""Proves the automation library with the script hosts of Wine: one prefix with a machine of its
own, on which the old machine's calls run first, then the new one's, then one script for each
class, and last that nothing is left when the library is unregistered."""

import argparse
import re
import shutil
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parents[2] / "scripts"))  # where the makers are

import music_machine as machine  # noqa: E402
import script_output  # noqa: E402
from makers.machine import DESTINATION, SOURCE, group_key, product_keys  # noqa: E402
from wine_prefix import WinePrefix  # noqa: E402

SCRIPTS = Path(__file__).resolve().parent / "scripts"
OPTIONS = None
PREFIX = None


def setUpModule():
    global PREFIX
    PREFIX = WinePrefix(OPTIONS.prefix)
    unittest.addModuleCleanup(PREFIX.stop)
    PREFIX.boot()
    PREFIX.bring(OPTIONS.dll, "Norvo/NorvoPlayList.dll")
    for script in [*SCRIPTS.glob("*.vbs"), *SCRIPTS.glob("*.js")]:
        shared = sorted((SCRIPTS / "shared").glob("*" + script.suffix))
        text = "\n".join(part.read_text(encoding="ascii") for part in [*shared, script])
        PREFIX.put("Norvo/" + script.name, text)
    PREFIX.put("Norvo/ManyScripts.txt", machine.MANY_SCRIPTS)
    _, status = PREFIX.run("regsvr32", "/s", "C:\\Norvo\\NorvoPlayList.dll")
    if status != 0:
        raise RuntimeError(f"regsvr32 gave {status}")
    PREFIX.set_registry(machine.surroundings())


class ScriptCase(unittest.TestCase):
    maxDiff = None

    def run_script(self, name):
        output, status = PREFIX.run("cscript", "//nologo", name, folder="Norvo")
        faults = script_output.faults(output)
        if faults or status != 0:
            self.fail("\n".join([f"{name} gave {status}", *faults]))

    def check_files(self, folder, expected):
        """The files below a folder are these, byte for byte; line ends are the system's."""
        root = PREFIX.path(folder)
        found = {str(path.relative_to(root)): read(path) for path in root.rglob("*")
                 if path.is_file()}
        self.assertEqual(sorted(found), sorted(expected))
        for name, text in expected.items():
            self.assertEqual(found[name], text, name)

    def check_log(self, expected):
        """The log since the last look at it."""
        log = PREFIX.path("Norvo/VBLog.txt")
        self.assertEqual(read(log).splitlines(), expected)
        log.unlink()


def read(path):
    """A file's text with plain line ends; a playlist's time of creation is that of the test."""
    text = path.read_bytes().decode("utf-8").replace("\n", "\\n").replace("\r\\n", "\n")
    return re.sub(r"^CreationTime=\d+/\d+/\d{4} \d+:\d\d:\d\d [AP]M$", machine.NOW.strip(), text,
                  flags=re.MULTILINE)


def put_all(files):
    for name, content in files.items():
        PREFIX.put(name, content)


class TheMove(ScriptCase):
    """One machine after the other; the steps go in the order of their names."""

    def test_1_the_old_machine_collects(self):
        put_all(machine.MUSIC_FILES)
        PREFIX.put("My Documents/Norvo Media/SubNames.txt", machine.OLD_NAMES)
        PREFIX.set_registry(product_keys(SOURCE, machine.OLD_ROOT))
        self.run_script("Collect.vbs")
        expected = dict(machine.GENERIC_FILES)
        expected["MediaList.txt"] = machine.media_list()
        self.check_files(machine.OLD_AREA, expected)
        size = PREFIX.registry_value(group_key(machine.OLD_ROOT), "SubGroupSize")
        self.assertEqual(size, ("REG_BINARY", machine.MEDIA_BYTES))
        self.check_log(machine.COLLECT_LOG)

    def test_2_the_new_machine_restores(self):
        shutil.rmtree(PREFIX.path("Music"))
        put_all(machine.PLAYER_FILES)
        PREFIX.put("Norvo Media/SubNames.txt", machine.NEW_NAMES)
        PREFIX.set_registry(product_keys(DESTINATION, machine.NEW_ROOT) + machine.players())
        self.run_script("Restore.vbs")
        self.check_log(machine.RESTORE_LOG)
        self.check_files(machine.NATIVE, machine.NATIVE_FILES)
        for (key, name), folder in machine.PLAYER_SETTINGS.items():
            self.assertEqual(PREFIX.registry_value(key, name), ("REG_SZ", folder), key)
        self.assertEqual(read(PREFIX.path("Programs/Winamp/Winamp.ini")), machine.WINAMP_INI)


def for_class(name):
    return lambda case: case.run_script(name)


class TheClasses(ScriptCase):
    """One script for each class and host, on the new machine."""

    @classmethod
    def setUpClass(cls):
        put_all(machine.CLASS_FILES)
        PREFIX.put("Norvo Media/SubNames.txt", machine.NEW_NAMES)
        PREFIX.set_registry(product_keys(DESTINATION, machine.NEW_ROOT))


for path in sorted(SCRIPTS.iterdir()):
    if path.is_file() and path.stem not in ("Collect", "Restore", "SideBySide", "Unregistered"):
        setattr(TheClasses, f"test_{path.stem}_in_{path.suffix[1:]}", for_class(path.name))


class TwoHosts(ScriptCase):
    """Two script hosts at the same moment, on the new machine."""

    ROUNDS = 5

    def test_both_add_their_songs_to_one_list_and_none_twice(self):
        for name in ("A", "B"):
            # Wine's host opens its script alone, and says nothing when another has it open.
            PREFIX.bring(PREFIX.path("Norvo/SideBySide.vbs"), f"Norvo/Side{name}.vbs")
            for i in range(1, 11):
                songs = (f"{name}{i}.mp3", f"Both{i}.mp3")
                paths = [f"C:\\Side\\{song}" for song in songs]
                PREFIX.put(f"Side/{name}{i}.m3u", "\n".join(("#EXTM3U", *paths, "")))
                for song in songs:
                    PREFIX.put(f"Side/{song}", bytes(200))
        PREFIX.put("Norvo Media/SubNames.txt", machine.NEW_NAMES)
        PREFIX.set_registry(product_keys(DESTINATION, machine.NEW_ROOT))
        media_list = PREFIX.path("Norvo Media/KVs/MediaList.txt")
        for _ in range(self.ROUNDS):
            media_list.unlink(missing_ok=True)
            hosts = [PREFIX.begin("cscript", "//nologo", f"Side{name}.vbs", name, folder="Norvo")
                     for name in ("A", "B")]
            for host in hosts:
                output = host.communicate(timeout=240)[0].decode("latin-1")
                self.assertEqual(script_output.faults(output), [])
            records = media_list.read_text(encoding="utf-8-sig").splitlines()
            self.assertEqual(len(records), len(set(records)))
            self.assertEqual(len({record.split("\t")[1] for record in records}), 30)


class TheEnd(ScriptCase):
    """Leaves the machine without the library."""

    def test_unregistering_leaves_no_class_behind(self):
        server = machine.CLASSES + "CLSID\\" + machine.ENTRY_CLASS + "\\InprocServer32"
        self.assertEqual(PREFIX.registry_value(server, "ThreadingModel"), ("REG_SZ", "Apartment"))
        _, status = PREFIX.run("regsvr32", "/s", "/u", "C:\\Norvo\\NorvoPlayList.dll")
        self.assertEqual(status, 0)
        self.assertIsNone(PREFIX.registry_value(server, "ThreadingModel"))
        self.run_script("Unregistered.vbs")


class TheJudge(unittest.TestCase):
    """A script that tells less or other than it planned does not pass."""

    def test_a_whole_output_passes(self):
        self.assertEqual(script_output.faults("1..2\nok 1 - a\nok 2 - b\ndone\n"), [])

    def test_anything_else_does_not(self):
        for output in ["", "done\n", "1..1\n", "1..1\nok 1 - a\n", "1..2\nok 1 - a\ndone\n",
                       "1..1\nnot ok 1 - a: got 1, wanted 2\ndone\n", "1..1\nok 2 - a\ndone\n",
                       "1..1\nok 1 - a\nok 2 - b\ndone\n", "1..1\nok 1 - a\ndone\nok 2 - b\n",
                       "ok 1 - a\ndone\n", "1..1\nok 1 - a\nsome error\ndone\n"]:
            self.assertNotEqual(script_output.faults(output), [], output)


def load_tests(loader, _tests, _pattern):
    """In this order: the playlists of single tests are none of the move."""
    cases = (TheJudge, TheMove, TheClasses, TwoHosts, TheEnd)
    return unittest.TestSuite(map(loader.loadTestsFromTestCase, cases))


def main():
    global OPTIONS
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--dll", required=True)
    parser.add_argument("--prefix", help="folder of the machine; must not exist, and is kept")
    OPTIONS, rest = parser.parse_known_args()
    with tempfile.TemporaryDirectory(prefix="norvo-scripts-") as folder:
        OPTIONS.prefix = OPTIONS.prefix or folder + "/machine"
        unittest.main(argv=["scripts_test.py", *rest])


if __name__ == "__main__":
    main()
