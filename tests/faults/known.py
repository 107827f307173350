"""What does not hold yet, by the call that fails. Each is a fault of the program: it is counted and
told with its reason, and goes from here when it is mended."""

import re

KNOWN = {}


def reason_of(verdict):
    """Why what was found is known; None for what is not."""
    return next((reason for pattern, reason in KNOWN.items() if re.search(pattern, verdict.hit)),
                None)
