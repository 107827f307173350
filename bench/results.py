"""What a measurement gives, and how it is shown."""

from dataclasses import asdict, dataclass, field

MIB = 1024  # in the unit that the system tells memory in
FORMATS = {"": "{:.2f}", "count": "{:,.0f}", "MiB": "{:.1f} MiB", "bytes": "{:,.0f} bytes",
           "ms": "{:.1f} ms", "us": "{:.2f} us"}


@dataclass
class Row:
    """One figure that the performance is told by. Without a unit it is a ratio."""
    what: str
    value: float
    unit: str = ""

    def shown(self):
        return FORMATS[self.unit].format(self.value)


@dataclass
class Part:
    """What was measured together."""
    title: str
    runs: dict = field(default_factory=dict)  # of each candidate, its summary
    rows: list = field(default_factory=list)
    skipped: str = ""  # why nothing was measured


def memory_row(what, summary):
    return Row(what, summary["rss_kib"]["median"] / MIB, "MiB")


def shown_run(name, summary):
    text = f"  {name:<18}"
    for key, word in (("wall", "wall"), ("cpu", "cpu")):
        figures = summary[key]
        text += (f" {word} {figures['median'] * 1e3:8.1f} ms"
                 f" ({figures['min'] * 1e3:.1f}..{figures['max'] * 1e3:.1f})")
    return text + f" max rss {summary['rss_kib']['median'] / MIB:.1f} MiB"


def print_part(part):
    print(f"{part.title}:")
    if part.skipped:
        print(f"  skipped: {part.skipped}")
    for name, summary in part.runs.items():
        print(shown_run(name, summary))
    print_rows(part.rows)


def print_rows(rows):
    for row in rows:
        print(f"  {row.what:<72} {row.shown():>14}")


def as_json(parts):
    return [asdict(part) for part in parts]
