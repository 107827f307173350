#!/usr/bin/env python3
"""Completes command lines as bash, zsh and fish do, and holds what they offer against the program's
help. A shell that is not installed is named and passed over."""

import argparse
import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

from help_texts import Help

OPTIONS = None

BASH = """
source "$1"; shift
COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1))
_norvo_playlists norvo-playlists "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
printf '%s\\n' "${COMPREPLY[@]}"
"""

# The shell's own function would need a terminal; this one prints what it is asked for.
ZSH = """
_arguments() { print -rl -- "$@"; state=$wanted; line=($command) }
_describe() { print -rl -- "${(@P)2}" }
wanted=$2 command=$3
source $1
"""


class Completing(unittest.TestCase):
    SHELL = ""

    @classmethod
    def setUpClass(cls):
        if not shutil.which(cls.SHELL):
            raise unittest.SkipTest(f"{cls.SHELL} is not installed")
        cls.program = Help(OPTIONS.program)
        cls.commands = [name for name, _ in cls.program.commands]
        cls.folder = Path(tempfile.mkdtemp(prefix="norvo-completions-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        for name in ("old disk", "old pc"):
            (cls.folder / name).mkdir()
        (cls.folder / "old list.m3u").touch()

    def run_shell(self, *words):
        done = subprocess.run([self.SHELL, *words], cwd=self.folder, capture_output=True,
                              timeout=60, check=False,
                              env={**os.environ, "HOME": str(self.folder), "LC_ALL": "C.UTF-8"})
        self.assertEqual(done.stderr.decode(), "")
        return done.stdout.decode().splitlines()


class BashTest(Completing):
    SHELL = "bash"

    def offered(self, *words):
        return [line for line in
                self.run_shell("--norc", "-c", BASH, "bash",
                               str(OPTIONS.folder / "norvo-playlists"), "norvo-playlists", *words)
                if line]

    def test_the_first_word_is_a_command(self):
        self.assertEqual(self.offered(""), self.program.names() + self.commands)
        self.assertEqual(self.offered("mig"), ["migrate"])

    def test_the_options_of_each_command_are_those_of_its_help(self):
        for command in self.commands:
            with self.subTest(command):
                self.assertEqual(self.offered(command, "-"), Help(OPTIONS.program, command).names())
        self.assertEqual(self.offered("migrate", "--dry"), ["--dry-run"])

    def test_a_value_is_what_its_option_takes(self):
        self.assertEqual(self.offered("init", "--role", ""), ["source", "destination"])
        self.assertEqual(self.offered("init", "--role", "d"), ["destination"])
        self.assertEqual(self.offered("init", "--role", "=", "so"), ["source"])
        self.assertEqual(self.offered("init", "--role", "="), ["source", "destination"])
        self.assertEqual(sorted(self.offered("migrate", "--from", "old")), ["old disk", "old pc"])
        self.assertEqual(self.offered("migrate", "--user", ""), [])
        self.assertEqual(sorted(self.offered("migrate", "--report", "old")),
                         ["old disk", "old list.m3u", "old pc"])

    def test_a_word_alone_is_a_file_where_the_command_takes_one(self):
        self.assertEqual(sorted(self.offered("show", "old")),
                         ["old disk", "old list.m3u", "old pc"])
        self.assertEqual(self.offered("scan", "old"), [])

    def test_bash_completes_the_program_with_it(self):
        script = 'source "$1"; complete -p norvo-playlists'
        self.assertEqual(self.run_shell("--norc", "-c", script, "bash",
                                        str(OPTIONS.folder / "norvo-playlists")),
                         ["complete -F _norvo_playlists norvo-playlists"])


class ZshTest(Completing):
    SHELL = "zsh"

    def asked(self, *words):
        """What the script asks the shell for."""
        return self.run_shell("-fc", ZSH, "zsh", str(OPTIONS.folder / "_norvo-playlists"), *words)

    def test_the_shell_understands_it(self):
        script = OPTIONS.folder / "_norvo-playlists"
        self.assertEqual(self.run_shell("-n", str(script)), [])
        self.assertEqual(script.read_text().splitlines()[0], "#compdef norvo-playlists")

    def test_the_commands_are_those_of_the_help(self):
        told = [line for line in self.asked("command", "")
                if line.partition(":")[0] in self.commands]
        self.assertEqual([tuple(line.split(":", 1)) for line in told], self.program.commands)

    def test_the_options_of_each_command_are_those_of_its_help(self):
        for command in self.commands:
            with self.subTest(command):
                asked = self.asked("arguments", command)
                asked = asked[asked.index("*::argument:->arguments") + 1:]
                names = [line.partition("[")[0].rpartition(")")[2].strip("*=")
                         for line in asked if "[" in line]
                self.assertEqual(names, Help(OPTIONS.program, command).names())

    def test_values_are_what_their_options_take(self):
        asked = self.asked("arguments", "migrate")
        self.assertIn("(--from)--from=[The old machine, or its disk]:DIR:_files -/", asked)
        self.assertIn("*--drive=[One more disk of the old machine, such as D=DIR]:LETTER=DIR: ",
                      asked)
        self.assertIn("(--copy --no-media --link)--link[Link the songs where both disks are one, "
                      "else copy them]", [line.replace("--no-media --copy", "--copy --no-media")
                                          for line in asked])
        self.assertTrue(any(line.endswith(":ROLE:(source destination)")
                            for line in self.asked("arguments", "init")))
        self.assertTrue(any(line.startswith("1:Path on the machine (C\\:\\\\...)")
                            for line in self.asked("arguments", "show")))


class FishTest(Completing):
    SHELL = "fish"

    def offered(self, line):
        """Pairs of a word and what is told of it."""
        script = f"source '{OPTIONS.folder}/norvo-playlists.fish'; complete -C '{line}'"
        found = self.run_shell("--no-config", "-c", script)
        return [tuple((each + "\t").split("\t")[:2]) for each in found]

    def test_the_first_word_is_a_command(self):
        self.assertEqual(sorted(self.offered("norvo-playlists ")), sorted(self.program.commands))
        self.assertEqual([name for name, _ in self.offered("norvo-playlists mig")], ["migrate"])

    def test_the_options_of_each_command_are_those_of_its_help(self):
        for command in self.commands:
            with self.subTest(command):
                helped = Help(OPTIONS.program, command)
                offered = self.offered(f"norvo-playlists {command} -")
                self.assertEqual(sorted(name.rstrip("=") for name, _ in offered),
                                 sorted(helped.names()))
                texts = {name: text for name, text in offered}
                self.assertEqual(texts["--help"], "Print this help message and exit")

    def test_a_value_is_what_its_option_takes(self):
        self.assertEqual({name for name, _ in self.offered("norvo-playlists init --role ")},
                         {"source", "destination"})
        self.assertEqual({name for name, _ in self.offered("norvo-playlists migrate --from old")},
                         {"old disk/", "old pc/"})
        self.assertEqual(self.offered("norvo-playlists scan old"), [])
        self.assertIn("old list.m3u",
                      [name for name, _ in self.offered("norvo-playlists show old")])


def main():
    global OPTIONS
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", type=Path, required=True)
    parser.add_argument("--folder", type=Path, required=True, help="where the scripts are")
    OPTIONS, rest = parser.parse_known_args()
    OPTIONS.folder = OPTIONS.folder.resolve()
    unittest.main(argv=["completions_test", *rest])


if __name__ == "__main__":
    main()
