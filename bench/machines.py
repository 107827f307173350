"""Machine folders to measure on, and what a run has left in them."""

import shutil

from corpus import Plan, make_corpus
from runner import BenchError, Candidate


class Machine:
    """A machine folder that can be put back to its state before a run."""

    def __init__(self, folder):
        self.folder = folder
        self.playlists = folder / "C" / "Playlists"
        self.data_area = folder / "C" / "My Documents" / "Norvo Media" / "KVs"
        self.list_file = self.data_area / "PlayLists.txt"
        self.saved_list = self.list_file.read_bytes()
        self.registry = folder / "registry.reg"
        self.saved_registry = self.registry.read_bytes()

    def reset(self):
        for path in self.generic_files():
            path.unlink()
        (self.data_area / "MediaList.txt").unlink(missing_ok=True)
        shutil.rmtree(self.folder / "floor-out", ignore_errors=True)
        self.registry.write_bytes(self.saved_registry)
        self.list_file.write_bytes(self.saved_list)

    def forget_list(self):
        """As before the first scan."""
        self.reset()
        self.list_file.unlink()

    def generic_files(self):
        return sorted(self.data_area.glob("*.ini"))

    def generic_entries(self):
        return sum(count_sections(path.read_bytes()) for path in self.generic_files())

    def listed(self):
        """The sum of the list file's totals, whatever encoding a scan gave it."""
        if not self.list_file.exists():
            return 0
        lines = decode(self.list_file.read_bytes()).splitlines()
        totals = (line.partition("=") for line in lines if " Total=" in line)
        return sum(int(value) for _, _, value in totals)

    def playlist_count(self):
        return sum(1 for _ in self.playlists.iterdir())

    def expect_generic(self, name, playlists, entries):
        """A check that a run has left so many generic files with so many entries."""

        def check(_):
            files, found = len(self.generic_files()), self.generic_entries()
            if (files, found) != (playlists, entries):
                raise BenchError(f"{name}: {files} generic files with {found} entries, "
                                 f"not {playlists} with {entries}")

        return check


def decode(content):
    if content.startswith(b"\xff\xfe"):
        return content.decode("utf-16")
    return content.decode("cp1252", errors="replace")


def count_sections(content):
    return sum(line.startswith("[Entry ") for line in decode(content).split("\r\n"))


def queue_candidate(name, program, machine, playlists, entries, prepare=None):
    """The queue on a freshly reset machine; a run that leaves work undone is an error."""

    def reset():
        machine.reset()
        if prepare:
            prepare()

    return Candidate(name, [program, machine.folder], reset,
                     machine.expect_generic(name, playlists, entries))


def expect_entries(expected):
    """A check that a program that prints how many entries it went over went over so many."""

    def check(output):
        if output.split() != [str(expected)]:
            raise BenchError(f"{output.strip()} entries were gone over, not {expected}")

    return check


class Workshop:
    """Where measuring is done: the arguments, the built programs, and machines made on demand."""

    def __init__(self, arguments, folder, runner):
        self.arguments = arguments
        self.folder = folder
        self.runner = runner
        self.host = arguments.build / "src" / "cli" / "norvo-playlists"
        self.main_machine = None

    def program(self, name):
        return self.arguments.build / "bench" / name

    def make_machine(self, name, files, playlists, entries, **more):
        folder = self.folder / name
        if folder.exists():
            shutil.rmtree(folder)
        make_corpus(folder, Plan(seed=self.arguments.seed, files=files, playlists=playlists,
                                 entries=entries, writes_list=True, **more))
        return Machine(folder)

    def machine(self):
        """Songs and playlists as the arguments tell; the same for all that ask."""
        if self.main_machine is None:
            options = self.arguments
            self.main_machine = self.make_machine("main", options.files, options.playlists,
                                                  options.entries, kinds=options.kinds)
        return self.main_machine

    def entries(self):
        return self.arguments.playlists * self.arguments.entries

    def in_turn(self, candidates, cold=False):
        return self.runner.run_in_turn(candidates, self.arguments.repeat, cold)

    def collect_candidate(self, machine, playlists, entries):
        """The program's own collecting, which scans first."""
        command = [self.host, "collect", "--machine", machine.folder, "--quiet"]
        return Candidate("collect", command, machine.forget_list,
                         machine.expect_generic("collect", playlists, entries))
