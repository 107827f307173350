#!/usr/bin/env python3
"""Checks the example programs that cannot run under Wine as far as that is possible here: C# is
compiled, the blocks and texts of PowerShell are whole, and no program uses a member that the library
does not have. Every task has a program in each language."""

import re
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
EXAMPLES = ROOT / "examples/automation"
IDL = ROOT / "src/com/dll/NorvoPlayList.idl"
TASKS = ("ListSongs", "FindMissing", "WriteAnew", "Repair", "Events", "Carry")
LANGUAGES = (".vbs", ".js", ".ps1", ".cs")
TEXT = re.compile(r"'(?:[^']|'')*'")  # of PowerShell, in which nothing has a meaning
PAIRS = {")": "(", "]": "[", "}": "{"}
# Names that only objects of the library have, as the programs call them.
OBJECTS = ("manager", "list", "old", "entry", "song", "songs", "PlayListEntries", "Repaired", "entries")
OTHERS = {"Length", "length", "Count", "push", "sort", "Success", "OrderBy"}  # of arrays by the same names
MEMBER = re.compile(r"\b(?:%s)(?:\([^()]*\))?\.(\w+)" % "|".join(OBJECTS))
CREATED = re.compile(r"NorvoPlayList\.(\w+)|\bCreate\(\"(\w+)\"\)")


def block_faults(text):
    """What is open or closed too often in a PowerShell program; empty for a whole one."""
    stack, i = [], 0
    while i < len(text):
        char = text[i]
        if char == "`":
            i += 1
        elif stack and stack[-1] == '"':
            if char == '"':
                stack.pop()
            elif text.startswith("$(", i):
                stack.append("(")
                i += 1
        elif char == "#":
            i = text.find("\n", i)
        elif char == "'":
            end = TEXT.match(text, i)
            if not end:
                return [f"a text is not ended: {text[i:i + 20]}"]
            i = end.end() - 1
        elif char == '"' or char in PAIRS.values():
            stack.append(char)
        elif char in PAIRS and (not stack or stack.pop() != PAIRS[char]):
            return [f"closed too often: {text[max(0, i - 20):i + 1]}"]
        i += 1
    return [f"not closed: {' '.join(stack)}"] if stack else []


def described_members():
    text = IDL.read_text(encoding="utf-8")
    return set(re.findall(r"HRESULT (\w+)\(", text)), set(re.findall(r"coclass (\w+)", text))


def programs(*endings):
    return [path for path in sorted(EXAMPLES.iterdir()) if path.suffix in endings]


class ExampleSources(unittest.TestCase):
    def test_every_task_has_a_program_in_each_language(self):
        for task in TASKS:
            for language in LANGUAGES:
                self.assertTrue((EXAMPLES / (task + language)).is_file(), task + language)

    def test_c_sharp_compiles(self):
        if not shutil.which("mcs"):
            self.skipTest("no C# compiler (mono-mcs)")
        with tempfile.TemporaryDirectory() as folder:
            for path in programs(".cs"):
                with self.subTest(path.name):
                    done = subprocess.run(
                        ["mcs", "-langversion:5", "-warnaserror", "-warn:4", "-r:Microsoft.CSharp",
                         f"-out:{folder}/{path.stem}.exe", path], capture_output=True, text=True,
                        check=False)
                    self.assertEqual(done.returncode, 0, done.stdout + done.stderr)

    def test_powershell_is_whole(self):
        for path in programs(".ps1"):
            with self.subTest(path.name):
                self.assertEqual(block_faults(path.read_text(encoding="ascii")), [])

    def test_a_broken_program_is_found(self):
        for text in ("if ($x { }", "'a", '"a', "}", '"$(a"', "(]"):
            self.assertNotEqual(block_faults(text), [], text)
        for text in ("if ($x) { 'a }' } # {\n", '"a $(f "b") {"', "'it''s'", '"`""'):
            self.assertEqual(block_faults(text), [], text)

    def test_only_members_and_classes_of_the_library_are_used(self):
        members, classes = described_members()
        seen = set()
        for path in programs(*LANGUAGES):
            text = path.read_text(encoding="ascii")
            for name in MEMBER.findall(text):
                if name in OTHERS:
                    continue
                seen.add(name)
                with self.subTest(file=path.name, member=name):
                    self.assertIn(name, members)
            for found in CREATED.findall(text):
                with self.subTest(file=path.name, created=found):
                    self.assertIn("".join(found), classes | {"dll", "PlayList\\CLSID"})
        self.assertGreater(len(seen), 15)

    def test_the_event_interface_is_that_of_the_type_library(self):
        identifier = re.search(r"uuid\(([0-9a-f-]+)\), hidden,\s*helpstring\(\"Events of an entry\"",
                               IDL.read_text(encoding="utf-8")).group(1)
        self.assertIn(f'Guid("{identifier}")', (EXAMPLES / "Events.cs").read_text(encoding="ascii"))


if __name__ == "__main__":
    unittest.main()
