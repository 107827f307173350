#!/usr/bin/env python3
"""Installs the program for Windows silently under Wine, uses what is installed as a person and a
script do, and removes it; registry and disk are compared before and after.

Wine of Debian runs no 32-bit programs. So that what the installer does for these is seen as well, a
program stands for the system's 32-bit regsvr32 that writes down how it was called."""

import argparse
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import unittest
import zipfile
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parents[2] / "scripts"))  # where the makers are
sys.path.append(str(Path(__file__).resolve().parents[1] / "com"))

from makers.playlists import Item, m3u  # noqa: E402
from makers.text import encoded, joined  # noqa: E402
from wine_prefix import WinePrefix  # noqa: E402

ROOT = Path(__file__).resolve().parents[2]
OPTIONS = None
FOLDER = "Program Files/NorvoPlayList"
INSTALLED = "C:\\Program Files\\NorvoPlayList"
UNINSTALLER = INSTALLED + "\\Uninstall.exe"
MENU = "ProgramData/Microsoft/Windows/Start Menu/Programs/Norvo Media Playlist Parser"
ENVIRONMENT = r"HKLM\SYSTEM\CurrentControlSet\Control\Session Manager\Environment"
UNINSTALL = r"HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\NorvoPlayList"
# Longer than any string of the installer, and with a name in it that only begins as its own.
LONG_PATH = ";".join([r"%SystemRoot%\system32", r"%SystemRoot%", INSTALLED + "\\x64\\more",
                      *(rf"C:\Programs\Tool {i:03}\bin" for i in range(120))])
NOTED = "calls.txt"
NOTER = r"""
#include <stdio.h>
#include <windows.h>
int main(void) {
  FILE* file = fopen("C:\\calls.txt", "a");
  fprintf(file, "%s\n", GetCommandLineA());
  return fclose(file);
}
"""
SCRIPT = """
Set manager = CreateObject("NorvoPlayList.helperMan")
WScript.Echo TypeName(manager)
Set entry = CreateObject("NorvoPlayList.Entry")
entry.SongName = "Northern Lights"
WScript.Echo entry.SongName
"""
# The system's own books of its devices, services and a person's folders.
PASSING = re.compile(r"^\[HKEY_CURRENT_USER\\.*\\Explorer\\Shell Folders\]|^\[HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\(?:Hardware Profiles|"
                     r"Control\\(?:Class|DeviceClasses|ServiceCurrent|Video))\b", re.I)


def registry_lines(text):
    """Every value with its key in front."""
    lines, key = set(), ""
    for line in text.replace("\r", "").replace("\\\n  ", "").splitlines():
        if line.startswith("["):
            key = line
            if not PASSING.match(key):
                lines.add(key)
        elif line and not PASSING.match(key):
            lines.add(f"{key} {line}")
    return lines


class InstallerTest(unittest.TestCase):
    """The methods run in the order of their names, on one machine."""

    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.work = Path(tempfile.mkdtemp(prefix="norvo-installer-"))
        cls.addClassCleanup(shutil.rmtree, cls.work)
        cls.prefix = WinePrefix(cls.work / "wine")
        cls.addClassCleanup(cls.prefix.stop)
        cls.prefix.boot()
        cls.prefix.bring(OPTIONS.installer, "setup.exe")
        (cls.work / "noter.c").write_text(NOTER)
        noter = cls.prefix.path("windows/syswow64/regsvr32.exe")
        noter.parent.mkdir(parents=True, exist_ok=True)
        noter.unlink(missing_ok=True)
        subprocess.run(["x86_64-w64-mingw32-gcc", cls.work / "noter.c", "-o", noter], check=True)
        cls.prefix.path(NOTED).touch()
        cls.prefix.put("test.vbs", SCRIPT)
        # A person's documents, and the songs in them.
        cls.must("reg", "add", r"HKCU\Software\Microsoft\Windows\CurrentVersion\Explorer"
                 r"\User Shell Folders", "/v", "Personal", "/d", r"C:\My Documents", "/f")
        cls.prefix.path("My Documents").mkdir()
        cls.prefix.put("Music/One.mp3", bytes(1000))
        cls.prefix.put("Music/Mix.m3u", encoded(joined(m3u([Item("One.mp3", "Ann - One", 61)]))))
        cls.must("reg", "add", ENVIRONMENT, "/v", "Path", "/t", "REG_EXPAND_SZ", "/d", LONG_PATH,
                 "/f")
        # The script host registers itself when it is first used.
        cls.prefix.put("nothing.vbs", "WScript.Echo 1")
        cls.must("cscript", "//nologo", "C:\\nothing.vbs")
        cls.files_before, cls.registry_before = cls.files(), cls.registry()

    @classmethod
    def must(cls, *words, folder="windows"):
        output, status = cls.prefix.run(*words, folder=folder)
        if status != 0:
            raise AssertionError(f"{words} ended with {status}: {output}")
        return output.replace("\r\n", "\n")

    @classmethod
    def files(cls):
        return {path.relative_to(cls.prefix.drive_c).as_posix()
                for path in cls.prefix.drive_c.rglob("*")
                if "/temp/" not in path.as_posix().lower() + "/"}

    @classmethod
    def registry(cls):
        lines = set()
        for root in ("HKEY_LOCAL_MACHINE", "HKEY_CURRENT_USER"):
            cls.must("regedit", "/E", "C:\\windows\\temp\\all.reg", root)
            file = cls.prefix.path("windows/temp/all.reg")
            lines |= registry_lines(file.read_bytes().decode("utf-16"))
            file.unlink()
        return lines

    def calls(self):
        """How the 32-bit regsvr32 was called since the last look."""
        file = self.prefix.path(NOTED)
        lines = [line.partition("regsvr32.exe")[2].strip('" ')
                 for line in file.read_text().splitlines()]
        file.write_text("")
        return lines

    def path_value(self):
        return self.prefix.registry_value(ENVIRONMENT, "Path")

    def check_only_the_copy_is_left_for_the_next_start(self, line):
        """The uninstaller works from a copy of itself among the temporary files, which the system
        removes."""
        self.assertIn('"PendingFileRenameOperations"=', line)
        files = bytes.fromhex(line.partition("hex(7):")[2].replace(",", "")).decode("utf-16-le")
        for name in filter(None, files.split("\0")):
            self.assertIn("\\Temp\\~nsu", name)

    def remove(self):
        self.must(UNINSTALLER, "/S")
        # It goes on from a copy of itself, so that it can remove itself.
        for _ in range(300):
            if not self.prefix.path(FOLDER + "/Uninstall.exe").exists():
                break
            time.sleep(0.2)
        time.sleep(1)

    # ------------------------------------------------------------------------ installing ----

    def test_10_it_is_installed_silently(self):
        self.must("C:\\setup.exe", "/S")
        with zipfile.ZipFile(OPTIONS.zip) as package:
            for each in package.infolist():
                if not each.is_dir():
                    file = self.prefix.path(FOLDER) / each.filename
                    self.assertEqual(file.read_bytes(), package.read(each), each.filename)
        self.assertTrue(self.prefix.path(FOLDER + "/licenses/NSIS.txt").is_file())

    def test_11_each_bitness_is_registered_by_its_own_regsvr32(self):
        server = r"HKCR\CLSID\{C020009E-713A-4900-8B7F-65BAB998FB02}\InprocServer32"
        output = self.must("reg", "query", server, "/ve")
        self.assertIn(INSTALLED + "\\x64\\NorvoPlayList.dll", output)
        self.assertEqual(self.calls(), [f'/s "{INSTALLED}\\x86\\NorvoPlayList.dll'])

    def test_12_the_program_is_on_the_path(self):
        self.assertEqual(self.path_value(),
                         ("REG_EXPAND_SZ", f"{LONG_PATH};{INSTALLED}\\x64"))

    def test_13_the_start_menu_leads_to_the_manual(self):
        links = sorted(path.name for path in self.prefix.path(MENU).iterdir())
        self.assertEqual(links, ["Automation library.lnk", "Manual.lnk", "Uninstall.lnk"])
        for name in ("Manual", "Automation library"):
            # The link holds its target as text, of which a part is there in any case.
            link = self.prefix.path(f"{MENU}/{name}.lnk").read_bytes()
            pages = [page for page in self.prefix.path(FOLDER).rglob("*.html")
                     if page.name.encode() in link or page.name.encode("utf-16-le") in link]
            self.assertEqual(len(pages), 1, name)

    def test_14_the_system_can_tell_what_it_is(self):
        version = re.search(r"-(\d+\.\d+\.\d+)-", Path(OPTIONS.installer).name)[1]
        self.assertEqual(self.prefix.registry_value(UNINSTALL, "DisplayVersion"),
                         ("REG_SZ", version))
        self.assertEqual(self.prefix.registry_value(UNINSTALL, "QuietUninstallString"),
                         ("REG_SZ", f'"{UNINSTALLER}" /S'))
        icon = self.work / "norvo.ico"
        subprocess.run([ROOT / "scripts/make-icon.py", icon], check=True)
        drawn = icon.read_bytes()
        images = [drawn[place:place + size] for size, place in
                  (struct.unpack_from("<II", drawn, 6 + 16 * number + 8)
                   for number in range(struct.unpack_from("<H", drawn, 4)[0]))]
        for program in (Path(OPTIONS.installer), self.prefix.path(FOLDER + "/Uninstall.exe")):
            with self.subTest(program.name):
                content = program.read_bytes()
                self.assertRegex(content, "FileVersion".encode("utf-16-le") + rb"\0+" +
                                 version.encode("utf-16-le") + rb"\0")
                for image in images:
                    self.assertIn(image, content)

    # ----------------------------------------------------------------------------- using ----

    def test_20_a_script_creates_classes(self):
        output = self.must("cscript", "//nologo", "C:\\test.vbs")
        self.assertEqual(output, "_helperMan\nNorthern Lights\n")

    def test_21_the_program_works_for_a_person(self):
        program = INSTALLED + "\\x64\\norvo-playlists.exe"
        version = self.must(program, "--version")
        self.assertRegex(version, r"^norvo-playlists .*Windows x64\)")
        self.must(program, "init", "--log")
        self.must(program, "collect", "--log")
        lists = list(self.prefix.path("My Documents/Norvo Media").rglob("MediaList.txt"))
        self.assertEqual(len(lists), 1)
        self.assertTrue(self.prefix.path(FOLDER + "/x64/VBLog.txt").is_file())

    def test_22_installing_it_once_more_changes_nothing(self):
        before = self.registry()
        self.must("C:\\setup.exe", "/S")
        self.assertEqual(self.registry(), before)
        self.assertEqual(self.calls(), [f'/s /u "{INSTALLED}\\x86\\NorvoPlayList.dll',
                                        f'/s "{INSTALLED}\\x86\\NorvoPlayList.dll'])

    # -------------------------------------------------------------------------- removing ----

    def test_23_while_a_script_uses_it_nothing_is_changed(self):
        # Wine's script host cannot sleep.
        self.prefix.put("hold.vbs", 'Set held = CreateObject("NorvoPlayList.Entry")\n'
                        'Set files = CreateObject("Scripting.FileSystemObject")\n'
                        'WScript.Echo "held"\n'
                        'Do While files.FileExists("C:\\hold.vbs")\nLoop\n')
        holder = self.prefix.begin("cscript", "//nologo", "C:\\hold.vbs")
        self.addCleanup(holder.communicate)
        self.addCleanup(self.prefix.path("hold.vbs").unlink)
        self.assertIn(b"held", holder.stdout.readline())
        files, registry = self.files(), self.registry()
        for program in ("C:\\setup.exe", UNINSTALLER):
            with self.subTest(program):
                _, status = self.prefix.run(program, "/S")
                if program != UNINSTALLER:  # which ends before its copy does
                    self.assertEqual(status, 4)
                time.sleep(2)
                self.assertIsNone(holder.poll())
                self.assertEqual(self.files(), files)
                after = self.registry()
                self.assertEqual(registry - after, set())
                for line in after - registry:
                    self.check_only_the_copy_is_left_for_the_next_start(line)

    def test_30_it_is_removed_silently_and_leaves_a_persons_data_alone(self):
        self.remove()
        self.assertEqual(self.calls(), [f'/s /u "{INSTALLED}\\x86\\NorvoPlayList.dll'])
        stays = self.files() - self.files_before
        self.assertTrue(stays)
        for name in stays:
            self.assertTrue(name.startswith("My Documents/Norvo Media"), name)
        self.assertEqual(self.files_before - self.files(), set())

    def test_31_the_registry_is_as_it_was_but_for_a_persons_settings(self):
        after = self.registry()
        self.assertEqual(self.registry_before - after, set())
        added = after - self.registry_before
        self.assertTrue(added)
        for line in added:
            if '"PendingFileRenameOperations"=' in line:
                self.check_only_the_copy_is_left_for_the_next_start(line)
                continue
            # The library keeps a size below a key that is named like the group root.
            self.assertRegex(line, r"^\[HKEY_LOCAL_MACHINE\\(Software\\Norvo|C:[\]\\])")
        self.assertEqual(self.path_value(), ("REG_EXPAND_SZ", LONG_PATH))

    def test_32_what_a_person_has_put_beside_it_stays(self):
        self.must("C:\\setup.exe", "/S")
        self.prefix.put(FOLDER + "/x64/mine.txt", "mine")
        self.must("reg", "add", ENVIRONMENT, "/v", "Path", "/t", "REG_SZ", "/d",
                  f"C:\\a;{INSTALLED.upper()}\\X64;C:\\b;", "/f")
        self.remove()
        found = sorted(path.relative_to(self.prefix.path(FOLDER)).as_posix()
                       for path in self.prefix.path(FOLDER).rglob("*"))
        self.assertEqual(found, ["x64", "x64/mine.txt"])
        self.assertEqual(self.path_value(), ("REG_SZ", "C:\\a;C:\\b;"))

    def test_33_a_path_that_ends_in_a_semicolon_comes_back_as_it_was(self):
        self.must("reg", "add", ENVIRONMENT, "/v", "Path", "/t", "REG_SZ", "/d", "C:\\a;", "/f")
        self.must("C:\\setup.exe", "/S")
        self.assertEqual(self.path_value(), ("REG_SZ", f"C:\\a;{INSTALLED}\\x64;"))
        # Without the long PATH, with which Wine's shell has its own troubles.
        self.assertRegex(self.must("cmd", "/c", "norvo-playlists --version"), "Windows x64")
        self.remove()
        self.assertEqual(self.path_value(), ("REG_SZ", "C:\\a;"))


def main():
    global OPTIONS
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--installer", required=True)
    parser.add_argument("--zip", required=True)
    OPTIONS, rest = parser.parse_known_args()
    unittest.main(argv=["installer_test", "-v", *rest])


if __name__ == "__main__":
    main()
