"""What one more entry and one more playlist cost the queue, the more of them there are."""

from machines import queue_candidate
from results import Part, Row

STEPS = (1000, 4000, 16000)
ENTRIES_PER_PLAYLIST = 40
TOTAL_NAME = "WINAMP_M3U Total"


def growth(workshop):
    return [growth_of_entries(workshop), growth_of_playlists(workshop)]


def growth_of_entries(workshop):
    """One playlist, cut to each size in turn; the music folder is the same for all."""
    machine = workshop.make_machine("growth-entries", files(workshop), 1, STEPS[-1])
    (playlist,) = machine.playlists.iterdir()
    lines = playlist.read_bytes().splitlines(keepends=True)

    def candidate(size):
        content = b"".join(lines[:1 + 2 * size])  # the header, then two lines an entry
        return queue_candidate(str(size), workshop.program("queue_program"), machine, 1, size,
                               lambda: playlist.write_bytes(content))

    return measured(workshop, "entries of one playlist", map(candidate, STEPS))


def growth_of_playlists(workshop):
    """Short playlists, as many of them listed as make up each size."""
    counts = {size: size // ENTRIES_PER_PLAYLIST for size in STEPS}
    machine = workshop.make_machine("growth-playlists", files(workshop), counts[STEPS[-1]],
                                    ENTRIES_PER_PLAYLIST)

    def candidate(size):
        content = cut_list(machine.saved_list, counts[size])
        return queue_candidate(str(size), workshop.program("queue_program"), machine, counts[size],
                               size, lambda: machine.list_file.write_bytes(content))

    return measured(workshop, f"playlists of {ENTRIES_PER_PLAYLIST}", map(candidate, STEPS))


def files(workshop):
    return max(workshop.arguments.files, STEPS[-1])


def cut_list(content, count):
    """The list file with only its first playlists, all of them of the one kind."""
    kept = []
    for line in content.decode("cp1252").split("\r\n"):
        name = line.partition("=")[0]
        if name == TOTAL_NAME:
            line = f"{TOTAL_NAME}={count}"
        elif name.startswith("File") and int(name[4:]) > count:
            continue
        kept.append(line)
    return "\r\n".join(kept).encode("cp1252")


def measured(workshop, what, candidates):
    runs = workshop.in_turn(list(candidates))
    rows = [row for key in ("wall", "cpu") for row in rows_of(runs, what, key)]
    return Part(f"growth, {what}", runs, rows)


def rows_of(runs, what, key):
    """Cost of one more entry between the sizes; a ratio of 1 is growth in proportion."""
    small, middle, large = STEPS
    at = {size: runs[str(size)][key]["median"] for size in STEPS}
    first = (at[middle] - at[small]) / (middle - small)
    second = (at[large] - at[middle]) / (large - middle)
    yield Row(f"{what}, {key}, one more entry, {small} to {middle}", first * 1e6, "us")
    yield Row(f"{what}, {key}, one more entry, {middle} to {large}", second * 1e6, "us")
    if first > 0:
        yield Row(f"growth: {what}, {key}, the second to the first", second / first)
