"""The blocks of the manual's pages that show a run. Each stands behind a mark that names the run:

    <!-- run: trial -->
    ```text
    $ norvo-playlists ...
    ```
"""

import re

BLOCK = re.compile(r"(<!-- run: (\S+) -->\n```text\n)(.*?)(^```$)", re.M | re.S)


def shown_runs(text):
    """The names of the runs that a page shows."""
    return [name for _, name, _, _ in BLOCK.findall(text)]


def block_text(screen):
    return "\n".join([screen.command, *screen.texts()]) + "\n"


def with_runs(text, screens):
    """The page with what these runs have shown; other blocks stay as they are."""
    def fresh(match):
        start, name, old, end = match.groups()
        return start + (block_text(screens[name]) if name in screens else old) + end

    return BLOCK.sub(fresh, text)
