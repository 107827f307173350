"""What does not hold yet, by the call that fails. Each is a fault of the program: it is counted and
told with its reason, and goes from here when it is mended."""

import re

KNOWN = {
    r'statx\(.*"Program Files':
        "a player whose program cannot be looked up counts as not there, untold",
    r'statx\(.*Norvo Media/Music(/Zo|")':
        "a place is chosen that a foreign song has, whose look-up failed; new lists lead to that one",
}


def reason_of(verdict):
    """Why what was found is known; None for what is not."""
    return next((reason for pattern, reason in KNOWN.items() if re.search(pattern, verdict.hit)),
                None)
