"""A Windows PC that Wine makes."""

import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parents[2] / "scripts"))  # where the makers are
sys.path.append(str(Path(__file__).resolve().parents[1] / "support"))

from makers.playlists import Item, m3u  # noqa: E402, F401
from makers.text import encoded, joined  # noqa: E402
from wine_template import make_prefix  # noqa: E402

PROGRAM = "C:\\Program Files\\Norvo\\norvo-playlists.exe"
HOLDER = "C:\\Program Files\\Norvo\\hold_file.exe"


class Machine:
    """A Wine prefix of its own, until its end. It has drive C alone: the disk of the system that
    Wine runs on is no part of it, nor is its user's folder."""

    def __init__(self, program, stick=None):
        """With a stick, a folder of this system, as drive E."""
        self.program = program
        self.stick = stick
        self.folder = Path(tempfile.mkdtemp(prefix="norvo-windows-"))
        self.drive = self.folder / "wine" / "drive_c"
        self.environment = {**os.environ, "WINEPREFIX": str(self.folder / "wine"),
                            "HOME": str(self.folder / "home"), "WINEDEBUG": "-all",
                            "WINEDLLOVERRIDES": "mscoree,mshtml=", "LC_ALL": "C.UTF-8",
                            "DISPLAY": ""}

    def start(self):
        (self.folder / "home").mkdir()
        make_prefix(self.folder / "wine")
        self.place("C:\\My Documents").mkdir()
        self.place(PROGRAM).parent.mkdir(parents=True)
        shutil.copy(self.program, self.place(PROGRAM))
        self.serve("wineboot")
        self.keep_documents_in("C:\\My Documents")
        # Later than Wine lists its drives: a stick is none of those that are searched.
        if self.stick:
            self.connect(self.stick)

    def serve(self, *boot):
        """Started apart: whoever starts the first program of a prefix waits for the services, too."""
        for words in (("wineserver", "--persistent"), boot):
            subprocess.run(words, env=self.environment, stdout=subprocess.DEVNULL,
                           stderr=subprocess.DEVNULL, timeout=120, check=True)

    def restart(self):
        """Wine's list of drives is made anew when its server begins."""
        for words in (("wineserver", "-k"), ("wineserver", "-w")):
            subprocess.run(words, env=self.environment, timeout=120, check=False)
        self.serve("wineboot")

    def keep_documents_in(self, folder):
        self.wine("reg", "add", r"HKCU\Software\Microsoft\Windows\CurrentVersion\Explorer"
                  r"\User Shell Folders", "/v", "Personal", "/d", folder, "/f")

    def drives(self):
        return self.folder / "wine" / "dosdevices"

    def connect(self, stick):
        """Another stick, as drive E."""
        (self.drives() / "e:").unlink(missing_ok=True)
        (self.drives() / "e:").symlink_to(stick)

    def wine(self, *words):
        """Runs a program in the music folder, once there is one."""
        music = self.drive / "Music"
        folder = music if music.exists() else self.folder
        return subprocess.run(["wine", *words], env=self.environment, cwd=folder,
                              stdin=subprocess.DEVNULL, capture_output=True, timeout=120,
                              check=False)

    def begin(self, *words, stderr=subprocess.DEVNULL):
        """Starts a program, which can be written to and read from while it runs."""
        return subprocess.Popen(["wine", *words], env=self.environment, cwd=self.folder,
                                stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=stderr)

    def place(self, path):
        return self.drive.joinpath(*path[3:].split("\\"))

    def write(self, path, content):
        place = self.place(path)
        place.parent.mkdir(parents=True, exist_ok=True)
        place.write_bytes(content)

    def write_m3u(self, path, items):
        self.write(path, encoded(joined(m3u(items))))

    def snapshot(self):
        """Every file of the machine that is none of the system's own, and its bytes."""
        system = self.drive / "windows"
        return {path: path.read_bytes() for path in self.drive.rglob("*")
                if path.is_file() and system not in path.parents}

    def end(self):
        subprocess.run(["wineserver", "-k"], env=self.environment, check=False)
        subprocess.run(["wineserver", "-w"], env=self.environment, check=False)
        shutil.rmtree(self.folder, ignore_errors=True)

    def run_program(self, *words):
        """Exit code, standard output and standard error, the latter both UTF-8."""
        result = self.wine(PROGRAM, *words)
        return (result.returncode, result.stdout.decode("utf-8").replace("\r\n", "\n"),
                result.stderr.decode("utf-8").replace("\r\n", "\n"))


class Locked:
    """A file that another program keeps to itself for as long as this is entered."""

    def __init__(self, machine, path):
        self.machine = machine
        self.path = path

    def __enter__(self):
        self.holder = self.machine.begin(HOLDER, self.path)
        if b"held" not in self.holder.stdout.readline():
            raise RuntimeError(f"{self.path} cannot be held")

    def __exit__(self, *_):
        self.holder.communicate(timeout=60)
