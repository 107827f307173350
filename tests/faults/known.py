"""What does not hold yet, by the call that fails. Each is a fault of the program: it is counted and
told with its reason, and goes from here when it is mended."""

import re

KNOWN = {
    r'statx\(.*"Program Files.*EACCES':
        "a player whose program may not be looked up counts as not there, untold",
    r'statx\(.*Norvo Media/Music(/Zo|").*EACCES':
        "a place is chosen that a foreign song has, which may not be looked up; new lists lead there",
}


def reason_of(verdict):
    """Why what was found is known; None for what is not."""
    return next((reason for pattern, reason in KNOWN.items() if re.search(pattern, verdict.hit)),
                None)
