#!/usr/bin/env python3
"""Holds the manual's tables of members (docs/automation.md) against the interface description."""

import re
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
IDL = ROOT / "src/com/dll/NorvoPlayList.idl"
MANUAL = ROOT / "docs/automation.md"

TYPES = {"BSTR": "String", "long": "Long", "short": "Integer", "double": "Double",
         "VARIANT": "Variant", "VARIANT_BOOL": "Boolean", "SAFEARRAY(BSTR)": "array of String",
         "_Entries*": "Entries", "_ArtistItem*": "ArtistItem", "IDispatch*": "Object"}
MEMBER = re.compile(r"\[id\((\d+)\)(?:, (propget|propputref|propput))?.*?\]\s*"
                    r"HRESULT (\w+)\((.*?)\);", re.S)
PARAMETER = re.compile(r"\[([\w, ]+)\] (SAFEARRAY\(BSTR\)|\w+)\s*(\**)\s*(\w+)")
ROW = re.compile(r"^\| (\d+) \| (.*?) \| ?(.*?) ?\|", re.M)


def parameters_of(text):
    """Of one member: its parameters as (name, type, by reference), and its result's type."""
    found, result = [], ""
    for attributes, kind, stars, name in PARAMETER.findall(text):
        by_reference = "out" in attributes
        plain = TYPES[kind + (stars[:-1] if by_reference else stars)]
        if "retval" in attributes:
            result = plain
        else:
            found.append((name, plain, by_reference))
    return found, result


def signature(name, parameters):
    return "%s(%s)" % (name, ", ".join(
        "%s As %s%s" % (each, kind, " ref" if by_reference else "")
        for each, kind, by_reference in parameters))


def property_marks(uses):
    """Such as "RW, let ref"; `uses` tells of each use whether it passes a reference."""
    marks = ("R" if "propget" in uses else "") + ("W" if "propput" in uses else "")
    if uses.get("propput"):
        marks += ", let ref"
    if "propputref" in uses:
        marks += ", Set" + (" too" if "propput" in uses else "")
        marks += " ref" if uses["propputref"] else ""
    return marks


def described_members(body):
    """Of one interface: what the manual must say, by the members' numbers."""
    members, uses = {}, {}
    for number, use, name, text in MEMBER.findall(body):
        parameters, result = parameters_of(text)
        if not use:
            members[int(number)] = (signature(name, parameters), result)
            continue
        seen = uses.setdefault((int(number), name), {})
        seen[use] = parameters[0][2] if parameters else False
        kind = result or parameters[0][1]
        members[int(number)] = (name + " " + property_marks(seen), kind)
    return members


def interfaces():
    text = IDL.read_text(encoding="utf-8").replace("\\\n", "\n")
    shared, text = re.search(r"#define FORMAT_ENTRY_MEMBERS(.*?\n\n)(.*)", text, re.S).groups()
    bodies = re.findall(r"interface _(\w+) : IDispatch\s*\{(.*?)\n    \}", text, re.S)
    return {name: described_members(body.replace("FORMAT_ENTRY_MEMBERS", shared))
            for name, body in bodies}


def told_members(section):
    """What a section of the manual says, in the same form."""
    members = {}
    for number, cell, kind in ROW.findall(section):
        cell = re.sub(r"[`*]", "", cell).replace("ref, set", "ref")
        members[int(number)] = (cell, kind.partition(";")[0])
    return members


def sections():
    text = MANUAL.read_text(encoding="utf-8")
    classes = re.search(r"^## Classes\n(.*?)^## ", text, re.M | re.S).group(1)
    found = {}
    for title, body in re.findall(r"^### (.*?)\n(.*?)(?=^### |\Z)", classes, re.M | re.S):
        for name in title.split(", "):
            found[name] = told_members(body)
    found["AsxEntry"] = {**found["M3UEntry"], **found["AsxEntry"]}  # as the manual says
    return found


class Manual(unittest.TestCase):
    def test_tells_of_every_class_and_member(self):
        described, told = interfaces(), sections()
        self.assertEqual(len(described), 10)
        self.assertEqual(set(told), set(described))
        for name, members in described.items():
            with self.subTest(name):
                self.assertTrue(members)
                self.assertEqual(told[name], members)


if __name__ == "__main__":
    unittest.main()
