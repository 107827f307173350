"""Judges what a test script has printed: "1..N" first, then N numbered lines "ok n - what" or
"not ok n - what: got X, wanted Y", and "done" last."""

import re

PLAN = re.compile(r"1\.\.(\d+)$")
CHECK = re.compile(r"(ok|not ok) (\d+) - .")


def faults(output):
    """What is wrong with the output, a line for each fault; empty for a test that passed."""
    lines = output.splitlines()
    plan = PLAN.match(lines[0]) if lines else None
    if not plan:
        return ["no plan in the first line"] + lines[:1]
    found = []
    checks = 0
    for line in lines[1:]:
        check = CHECK.match(line)
        if not check:
            if line != "done":
                found.append("stray line: " + line)
            continue
        checks += 1
        if check[1] == "not ok":
            found.append(line)
        if int(check[2]) != checks:
            found.append(f"check {checks} has the wrong number: {line}")
    if checks != int(plan[1]):
        found.append(f"planned {plan[1]} checks, ran {checks}; the last line: {lines[-1]}")
    if lines[-1] != "done" or lines.count("done") != 1:
        found.append("\"done\" is not the last line")
    return found
