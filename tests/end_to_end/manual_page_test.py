#!/usr/bin/env python3
"""Holds the manual page against the program's help, and reads it as a person does, with man. Ends
with 77 where man is missing."""

import argparse
import re
import shutil
import subprocess
import sys
import unittest

from help_texts import Help

OPTIONS = None


def rendered(width):
    """The page on a terminal; man must have nothing to warn of."""
    environment = {"MANWIDTH": str(width), "LC_ALL": "C.UTF-8", "PATH": "/usr/bin:/bin",
                   "MAN_KEEP_FORMATTING": ""}
    done = subprocess.run(["man", "--warnings", "--no-hyphenation", "-l", OPTIONS.page],
                          env=environment, capture_output=True, timeout=60, check=True)
    return done.stdout.decode(), done.stderr.decode()


def sections(text, indent):
    """Texts below headings, which begin in a column."""
    parts = re.split(rf"^ {{{indent}}}(\S.*)$", text, flags=re.M)
    return dict(zip(parts[1::2], parts[2::2]))


def words_of(lines):
    """Without what the two break differently. A long example goes on behind a backslash."""
    return " ".join(" ".join(lines).replace(" \\ ", " ").split())


def rows_of(section):
    """Each option and plain word of a section, with what is told of it, as one text."""
    rows = []
    for line in section.splitlines():
        if re.match(r"^ {7}(-|PATH)", line):
            rows.append(line)
        elif rows and re.match(r"^ {14}\S", line):
            rows[-1] += line
        elif line:
            rows.append("")
    return [words_of([row]) for row in rows if row]


def row_of(tag, text):
    """What the page is to say of a row of the help."""
    names, _, rest = tag.partition(" ")
    value = re.sub(r" ?(REQUIRED|Excludes:.*|\.\.\.|TEXT)", "", rest).strip()
    choices = re.search(r"\{(.*)\}", value)
    if choices:
        value = choices[1].replace(",", "|")
    if " ..." in tag and not names.startswith("-"):
        names += "..."
    return " ".join(", ".join(names.split(",")).split() + value.split() + text.split())


class ManualPageTest(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.wide, cls.warnings = rendered(900)
        cls.parts = sections(cls.wide, 0)
        cls.commands = sections(cls.parts["COMMANDS"], 3)
        cls.program = Help(OPTIONS.program)

    def test_man_warns_of_nothing(self):
        self.assertEqual(self.warnings, "")

    def test_no_line_is_wider_than_a_terminal(self):
        page, _ = rendered(80)
        self.assertGreater(len(page.splitlines()), 100)
        self.assertEqual([line for line in page.splitlines() if len(line) > 80], [])

    def test_it_has_the_commands_of_the_help_in_their_order(self):
        self.assertEqual(list(self.commands), [name for name, _ in self.program.commands])
        synopsis = re.findall(r"^ +norvo-playlists (\w+) ", self.parts["SYNOPSIS"], re.M)
        self.assertEqual(synopsis, list(self.commands))

    def check_rows(self, section, helped):
        """The same options and words, told of in the same way."""
        self.assertEqual(rows_of(section),
                         [row_of(*row) for row in [*helped.words, *helped.options]])

    def test_each_command_is_told_of_in_the_words_of_its_help(self):
        for name, section in self.commands.items():
            with self.subTest(name):
                helped = Help(OPTIONS.program, name)
                self.assertTrue(section.split("\n\n")[0].strip().startswith(helped.about))
                self.check_rows(section, helped)
                words = words_of(section.splitlines())
                self.assertTrue(words.endswith(words_of(helped.footer)), words)

    def test_the_program_is_told_of_in_the_words_of_its_help(self):
        self.check_rows(self.parts["OPTIONS"], self.program)
        told = words_of((self.parts["DESCRIPTION"] + self.parts["EXIT STATUS"]).splitlines())
        self.assertIn(words_of(self.program.footer), told)
        name = words_of(self.parts["NAME"].splitlines())
        self.assertEqual(name.lower() + ".", f"norvo-playlists - {self.program.about}".lower())


def main():
    global OPTIONS
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    parser.add_argument("--page", required=True)
    OPTIONS, rest = parser.parse_known_args()
    if not shutil.which("man"):
        print("man is not installed: the page is not looked at")
        sys.exit(77)
    unittest.main(argv=["manual_page_test", *rest])


if __name__ == "__main__":
    main()
