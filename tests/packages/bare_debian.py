"""A Debian of its own in a folder, with nothing but apt in it."""

import os
import shutil
import stat
import subprocess
import tempfile
from pathlib import Path

RELEASE = "bookworm"
# The packages' managers keep books; the kernel's file systems are none of the disk.
BOOKS = ("var/lib/dpkg/", "var/lib/apt/", "var/cache/", "var/log/", "proc/", "sys/", "dev/", "tmp/")


class CannotBeMade(Exception):
    """For want of rights, tools or the network; says which."""


def kept_archive():
    """The fresh system, which is made once and kept for the next time."""
    caches = Path(os.environ.get("XDG_CACHE_HOME") or Path.home() / ".cache")
    archive = caches / "norvo-playlists" / "debian" / f"{RELEASE}.tar"
    if archive.is_file():
        return archive
    archive.parent.mkdir(parents=True, exist_ok=True)
    new = archive.with_name(f"{RELEASE}.{os.getpid()}.tar")
    done = subprocess.run(["mmdebstrap", "--quiet", "--mode=root", "--variant=apt", RELEASE, new],
                          capture_output=True, check=False, timeout=900)
    if done.returncode != 0:
        new.unlink(missing_ok=True)
        raise CannotBeMade("mmdebstrap cannot make a Debian: " + done.stderr.decode()[-500:])
    new.rename(archive)
    return archive


class BareDebian:
    def __init__(self):
        if os.geteuid() != 0:
            raise CannotBeMade("only root can enter a Debian in a folder")
        if not shutil.which("mmdebstrap"):
            raise CannotBeMade("mmdebstrap is not installed")
        archive = kept_archive()
        self.root = Path(tempfile.mkdtemp(prefix="norvo-debian-"))
        self.root.chmod(0o755)
        subprocess.run(["tar", "-xpf", archive, "-C", self.root], check=True)
        shutil.copyfile("/etc/resolv.conf", self.root / "etc/resolv.conf")
        if self.run("apt-get", "-q", "update").returncode != 0:
            self.end()
            raise CannotBeMade("the network has no Debian packages")

    def end(self):
        shutil.rmtree(self.root)

    def run(self, *words, folder="/tmp"):
        """Runs a program in there; both outputs in one."""
        environment = {"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "HOME": "/root", "LC_ALL": "C.UTF-8",
                       "DEBIAN_FRONTEND": "noninteractive"}
        return subprocess.run(["chroot", self.root, "/usr/bin/env", "-C", folder, *words],
                              env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, check=False, timeout=900)

    def bring(self, source, name):
        target = self.root / name
        if source.is_dir():
            shutil.copytree(source, target)
        else:
            shutil.copyfile(source, target)

    def snapshot(self):
        """Every file, folder and link that is none of the managers' books, and what it is."""
        found = {}
        for path in self.root.rglob("*"):
            name = str(path.relative_to(self.root))
            if (name + "/").startswith(BOOKS):
                continue
            status = path.lstat()
            # A folder's size and time tell what has come and gone in it, which is no matter.
            is_folder = stat.S_ISDIR(status.st_mode)
            found[name] = (status.st_mode, None if is_folder else (status.st_size, status.st_mtime))
        return found
