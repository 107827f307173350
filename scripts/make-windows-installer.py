#!/usr/bin/env python3
"""Makes the installer for Windows of the ZIP, whose name tells the version. Needs makensis.

    scripts/make-windows-installer.py NorvoPlayList-VERSION-windows.zip INSTALLER.exe
"""

import re
import shutil
import subprocess
import sys
import tempfile
import zipfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
MANUAL = "index.html"  # the page of docs/manual that the start menu opens


def quoted(path):
    """A text of the installer's language, in which a dollar begins a variable."""
    return '"' + str(path).replace("$", "$$") + '"'


def windows_path(path):
    return "$INSTDIR" + "".join("\\" + part.replace("$", "$$") for part in path.parts)


def file_macros(folder):
    """What puts the files there, and what removes these and the folders that are empty then."""
    files = sorted(path.relative_to(folder) for path in folder.rglob("*") if path.is_file())
    install, remove = ["!macro InstallFiles"], ["!macro RemoveFiles"]
    for parent in sorted({file.parent for file in files}):
        install.append(f'  SetOutPath "{windows_path(parent)}"')
        install += [f"  File {quoted(folder / file)}" for file in files if file.parent == parent]
    remove += [f'  Delete /REBOOTOK "{windows_path(file)}"' for file in files]
    folders = {parent for file in files for parent in file.parents if parent != Path(".")}
    remove += [f'  RMDir "{windows_path(each)}"' for each in sorted(folders, reverse=True)]
    return "\n".join([*install, "!macroend", *remove, "!macroend", ""])


def main():
    package, output = Path(sys.argv[1]), Path(sys.argv[2]).resolve()
    version = re.search(r"-(\d+\.\d+\.\d+)-", package.name)[1]
    with tempfile.TemporaryDirectory() as name:
        work = Path(name)
        folder = work / "files"
        with zipfile.ZipFile(package) as archive:
            archive.extractall(folder)
        # The installer carries a part of the tool that makes it.
        shutil.copyfile("/usr/share/doc/nsis/copyright", folder / "licenses" / "NSIS.txt")
        subprocess.run([ROOT / "scripts/make-icon.py", work / "norvo.ico"], check=True)
        (work / "files.nsh").write_text(file_macros(folder))
        values = {"VERSION": version, "OUTPUT": output, "ICON": work / "norvo.ico",
                  "FILES": work / "files.nsh", "LICENSE": folder / "LICENSE", "MANUAL": MANUAL}
        subprocess.run(["makensis", "-V2", "-WX", *(f"-D{name}={value}"
                                                   for name, value in values.items()),
                        ROOT / "packaging/windows/norvo-playlists.nsi"], check=True)


if __name__ == "__main__":
    main()
