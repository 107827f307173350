"""Makes the tests of whole programs known here: their machines, readers and stages are used, not
written again."""

import sys
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parents[1] / "end_to_end"))
