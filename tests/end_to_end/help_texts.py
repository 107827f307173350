"""What the program's own help tells, taken apart."""

import re
import subprocess

ROW = re.compile(r"^  (\S.*?)(?:  +(\S.*))?$")
OPTION = re.compile(r"--?[A-Za-z][\w-]*")


class Help:
    """The help of one command, or of the program when none is named; `text` where it was told
    already."""

    def __init__(self, program, *command, text=None):
        if text is None:
            text = subprocess.run([program, *command, "--help"], capture_output=True, check=True,
                                  timeout=60).stdout.decode()
        self.lines = text.splitlines()
        self.about = self.lines[0]
        self.options = self._rows("Options:")
        self.words = self._rows("Positionals:")
        self.commands = self._rows("Subcommands:")
        self.footer = self._footer()

    def names(self):
        """All names of its options."""
        return [name for tag, _ in self.options for name in OPTION.findall(tag.split(" ")[0])]

    def choices(self, option):
        for tag, _ in self.options:
            if tag.split(" ")[0] == option and "{" in tag:
                return re.search(r"\{(.*)\}", tag)[1].split(",")
        return []

    def _rows(self, heading):
        """Pairs of what stands left and right."""
        if heading not in self.lines:
            return []
        rows = []
        for line in self.lines[self.lines.index(heading) + 1:]:
            if not line:
                break
            if line.startswith(" " * 30):
                tag, text = rows[-1]
                rows[-1] = (tag, f"{text} {line.strip()}".strip())
            else:
                rows.append(tuple(part or "" for part in ROW.match(line).groups()))
        return rows

    def _footer(self):
        """The lines behind the last rows."""
        heading = "Subcommands:" if self.commands else "Options:"
        rest = self.lines[self.lines.index(heading):]
        return rest[rest.index("") + 1:]
