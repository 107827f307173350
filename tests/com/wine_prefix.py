"""A Windows machine of Wine in a folder of its own, with drive C and nothing else."""

import os
import shutil
import subprocess
import sys
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parents[1] / "support"))

from makers.registry import key_lines  # noqa: E402
from makers.text import joined  # noqa: E402
from wine_template import make_prefix  # noqa: E402

# A hang is a failure, but a loaded machine is not.
SECONDS = 240


class WinePrefix:
    """`folder` must not exist yet. Paths of the machine are given below drive C, with slashes."""

    def __init__(self, folder):
        self.folder = Path(folder).resolve()
        self.drive_c = self.folder / "drive_c"
        self.environment = dict(os.environ, WINEPREFIX=str(self.folder), WINEDEBUG="-all",
                                WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe=")

    def boot(self):
        """Makes the machine; nothing of this one is seen from there afterwards."""
        make_prefix(self.folder)
        self._run(["wineboot"])

    def stop(self):
        self._run(["wineserver", "--kill"])

    def path(self, name):
        return self.drive_c / name

    def put(self, name, content):
        """Writes a file; a text gets the system's line ends."""
        path = self.path(name)
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content if isinstance(content, bytes)
                         else content.replace("\n", "\r\n").encode("ascii"))

    def bring(self, source, name):
        path = self.path(name)
        path.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(source, path)

    def run(self, *command, folder="windows"):
        """Output and exit status of a program that runs in a folder of drive C."""
        done = self._run(["wine", *command], cwd=self.path(folder))
        return done.stdout.decode("latin-1"), done.returncode

    def begin(self, *command, folder="windows"):
        """Starts a program in a folder of drive C."""
        return subprocess.Popen(["wine", *command], cwd=self.path(folder), env=self.environment,
                                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                stderr=subprocess.DEVNULL)

    def set_registry(self, keys):
        """Takes pairs of a key and its values, as the makers give them."""
        self.put("windows/temp/settings.reg", joined(["REGEDIT4", "", *key_lines(keys)], "\n"))
        _, status = self.run("regedit", "/S", "C:\\windows\\temp\\settings.reg")
        if status != 0:
            raise RuntimeError(f"regedit gave {status}")

    def registry_value(self, key, name):
        """Type and text of a value of the registry; None when there is none."""
        output, _ = self.run("reg", "query", key, "/v", name)
        for line in output.splitlines():
            parts = line.strip().split("    ", 2)
            if len(parts) == 3 and parts[0] == name:
                return parts[1], parts[2]
        return None

    def _run(self, command, cwd=None):
        return subprocess.run(command, cwd=cwd, env=self.environment, timeout=SECONDS, check=False,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL)
