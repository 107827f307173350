"""One playlist held open, one generic file read and written, and the start of the program."""

import re
import shutil

from machines import expect_entries
from results import Part, Row
from runner import BenchError, Candidate, ratio, summary_of

OPENED = (2000, 30000)
GENERIC = (8191, 16383, 32767)
STARTS_PER_REPEAT = 10


def opened(workshop):
    """Two lengths of one PLS: the difference in memory is what the entries take."""
    most = OPENED[-1]
    machine = workshop.make_machine("opened", min(workshop.arguments.files, most), 1, most, kinds="pls")
    (playlist,) = machine.playlists.iterdir()
    lines = playlist.read_text("cp1252").splitlines()

    def candidate(size):
        kept = [line for line in lines if number_of(line) <= size]
        text = "\r\n".join(kept).replace(f"NumberOfEntries={most}", f"NumberOfEntries={size}")

        def prepare():
            machine.reset()
            playlist.write_bytes(text.encode("cp1252"))

        command = [workshop.program("open_program"), machine.folder,
                   f"C:\\Playlists\\{playlist.name}"]
        return Candidate(f"{size} entries", command, prepare, expect_entries(size))

    runs = workshop.in_turn([candidate(size) for size in OPENED])
    few, many = (runs[f"{size} entries"]["rss_kib"]["median"] * 1024 for size in OPENED)
    row = Row("memory an entry while a playlist is open", (many - few) / (OPENED[1] - OPENED[0]), "bytes")
    return [Part("open", runs, [row])]


def number_of(line):
    """Of a PLS's item; 0 of other lines."""
    found = re.match(r"(?:File|Title|Length)(\d+)=", line)
    return int(found[1]) if found else 0


def generic(workshop):
    """A generic file of each length, read and written in all native syntaxes."""
    most = GENERIC[-1]
    # Bare references are the one kind that is read in such a length.
    machine = workshop.make_machine("generic", min(workshop.arguments.files, most), 1, most, kinds="mmjb")
    workshop.runner.run(Candidate("queue", [workshop.program("queue_program"), machine.folder]))
    (file,) = machine.generic_files()
    content = file.read_bytes()
    seconds = {size: [] for size in GENERIC}
    candidates = [generic_candidate(workshop, machine, file, cut_generic(content, size), size,
                                    seconds[size]) for size in GENERIC]
    runs = workshop.in_turn(candidates)
    rows = []
    for at, what in enumerate(("read", "written natively, all kinds")):
        # The first run of each was not to be measured.
        rows += [Row(f"generic file of {size} entries, {what}: an entry",
                     summary_of([each[at] for each in seconds[size][1:]])["median"] / size * 1e6, "us")
                 for size in GENERIC]
    return [Part("generic file", runs, rows)]


def cut_generic(content, size):
    head, *sections = content.split(b"\r\n\r\n[Entry ")
    head = re.sub(rb"TotalSongs=\d+", b"TotalSongs=%d" % size, head)
    return b"\r\n\r\n[Entry ".join([head, *sections[:size]])


def generic_candidate(workshop, machine, file, content, size, seconds):
    def prepare():
        shutil.rmtree(machine.data_area.parent / "PlayLists", ignore_errors=True)
        file.write_bytes(content)

    def check(output):
        entries, *times = output.split()
        written = list((machine.data_area.parent / "PlayLists").rglob("*.*"))
        if int(entries) != size or not written:
            raise BenchError(f"generic file: {entries} entries read, not {size}, "
                             f"and {len(written)} native playlists")
        seconds.append([float(time) for time in times])

    path = f"C:\\My Documents\\Norvo Media\\KVs\\{file.name}"
    return Candidate(f"{size} entries", [workshop.program("generic_program"), machine.folder, path],
                     prepare, check)


def start(workshop):
    candidates = [Candidate("true", [shutil.which("true")]),
                  Candidate("--version", [workshop.host, "--version"])]
    runs = workshop.runner.run_in_turn(candidates, STARTS_PER_REPEAT * workshop.arguments.repeat)
    return [Part("start", runs, [Row("start: norvo-playlists --version, wall, to true",
                                     ratio(runs, "--version", "true"))])]
