"""A screen as a picture, in SVG: text that stays text, in cells of one width."""

from html import escape

from .terminal import cells

CELL, ROW, SIZE, EDGE, BAR = 8.4, 19, 14, 16, 34
COLOURS = {"plain": "#d8dee9", "heading": "#ffffff", "good": "#a3d977", "problem": "#f2c14e",
           "dim": "#8590a6", "command": "#88c0d0"}
FONTS = "DejaVu Sans Mono, Menlo, Consolas, Liberation Mono, monospace"


def without_middle(screen, first, heading):
    """The first lines of the screen and those from a heading on; between them it is told how many
    there are."""
    last = screen.texts().index(heading)
    return [*screen.lines[:first], [("dim", f"  [... {last - first} more lines ...]")], [],
            *screen.lines[last:]]


def text_piece(column, row, style, text):
    weight = ' font-weight="bold"' if style == "heading" else ""
    return (f'<text x="{EDGE + column * CELL:.1f}" y="{BAR + SIZE + row * ROW}" '
            f'textLength="{cells(text) * CELL:.1f}" fill="{COLOURS[style]}"{weight}>'
            f"{escape(text, quote=False)}</text>")


def line_pieces(row, line):
    """Blanks at the ends of a piece move it, and are not drawn."""
    column, pieces = 0, []
    for style, text in line:
        inner = text.strip()
        if inner:
            before = len(text) - len(text.lstrip())
            pieces.append(text_piece(column + before, row, style, inner))
        column += cells(text)
    return pieces


def svg(title, command, lines):
    """The picture of a terminal on which the command was run."""
    rows = [[("command", command)], *lines]
    width = max(sum(cells(text) for _, text in row) for row in rows) * CELL + 2 * EDGE
    height = BAR + len(rows) * ROW + EDGE
    lamps = [f'<circle cx="{EDGE + 4 + 18 * number}" cy="17" r="5" fill="{colour}"/>'
             for number, colour in enumerate(("#bf616a", "#ebcb8b", "#a3be8c"))]
    pieces = [piece for row, line in enumerate(rows) for piece in line_pieces(row, line)]
    return "\n".join([
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width:.0f}" height="{height}" '
        f'viewBox="0 0 {width:.0f} {height}" role="img" xml:space="preserve">',
        f"<title>{escape(title)}</title>",
        f'<rect width="100%" height="100%" rx="8" fill="#1e222a"/>', *lamps,
        f'<g font-family="{FONTS}" font-size="{SIZE}">', *pieces, "</g>", "</svg>", ""])
