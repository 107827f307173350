#!/usr/bin/env python3
"""Looks at the built DLL from outside: what it needs, what it offers, and what it is made for; and
whether the program needs nothing that the oldest Windows lacks."""

import re
import struct
import subprocess
import sys
import unittest
from pathlib import Path

OBJDUMP, ARCHITECTURE = "", ""
DLL, MANIFEST, IDL = Path(), Path(), Path()
PROGRAM = None

SYSTEM_LIBRARIES = {
    "advapi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll", "oleaut32.dll", "shell32.dll",
    "user32.dll", "version.dll",
}
PROGRAM_LIBRARIES = SYSTEM_LIBRARIES | {"ntdll.dll"}
# Windows 7 starts no program that names one of these; newer ones have them in the same libraries.
NEWER_THAN_WINDOWS_7 = {
    "CopyFile2", "CreateFile2", "GetCurrentThreadStackLimits", "GetOverlappedResultEx",
    "GetSystemTimePreciseAsFileTime", "GetTempPath2W", "IsWow64Process2", "MapViewOfFile3",
    "PrefetchVirtualMemory", "QueryInterruptTime", "QueryUnbiasedInterruptTimePrecise",
    "SetProcessMitigationPolicy", "SetThreadDescription", "VirtualAlloc2", "WaitOnAddress",
}
EXPORTS = {
    "DllCanUnloadNow", "DllGetClassObject", "DllInstall", "DllRegisterServer",
    "DllUnregisterServer", "NorvoCountObjects",
}
MACHINES = {"amd64": 0x8664, "x86": 0x014C}
# What a type library says of the system that it is made for.
SYSTEM_KINDS = {"amd64": 3, "x86": 1}
VERSION_RESOURCE = 16
MANIFEST_RESOURCE = 24


class Image:
    """The parts of a Windows program file that the test asks for."""

    def __init__(self, path):
        self.data = path.read_bytes()
        header = self.number("I", 0x3C)
        assert self.data[header:header + 4] == b"PE\0\0", "no Windows program"
        self.machine, sections = struct.unpack_from("<HH", self.data, header + 4)
        optional = header + 24
        optional_size = self.number("H", header + 20)
        wide = self.number("H", optional) == 0x20B
        directories = optional + (112 if wide else 96)
        self.resources = self.number("I", directories + 2 * 8)
        self.sections = [
            struct.unpack_from("<IIII", self.data, optional + optional_size + 40 * i + 8)
            for i in range(sections)
        ]

    def number(self, kind, place):
        return struct.unpack_from("<" + kind, self.data, place)[0]

    def place_of(self, address):
        """Where in the file the byte stands that is loaded to an address."""
        for size, start, _, place in self.sections:
            if start <= address < start + size:
                return address - start + place
        raise ValueError(f"address {address:#x} is in no section")

    def entries(self, place):
        """A level of the resource tree: names or numbers, and where they lead."""
        named, numbered = struct.unpack_from("<HH", self.data, place + 12)
        for i in range(named + numbered):
            yield struct.unpack_from("<II", self.data, place + 16 + 8 * i)

    def name(self, root, value):
        if not value & 0x80000000:
            return value
        start = root + (value & 0x7FFFFFFF)
        length = self.number("H", start)
        return self.data[start + 2:start + 2 + 2 * length].decode("utf-16-le")

    def resource(self, kind):
        """The content of the first resource of a kind; nothing without one."""
        root = self.place_of(self.resources)
        for value, target in self.entries(root):
            if self.name(root, value) != kind:
                continue
            while target & 0x80000000:
                target = next(self.entries(root + (target & 0x7FFFFFFF)))[1]
            address, size = struct.unpack_from("<II", self.data, root + target)
            start = self.place_of(address)
            return self.data[start:start + size]
        return None


def listing_of(path):
    return subprocess.run([OBJDUMP, "-p", path], check=True, capture_output=True, text=True).stdout


class BinariesTest(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        cls.image = Image(DLL)
        cls.listing = listing_of(DLL)

    def check_needs(self, listing, libraries):
        needed = {name.lower() for name in re.findall(r"DLL Name: (\S+)", listing)}
        self.assertTrue(needed)
        self.assertLessEqual(needed, libraries)
        functions = set(re.findall(r"^\t[0-9a-f]+\t +\d+  (\w+)", listing, re.M))
        self.assertIn("CreateFileW", functions)
        self.assertEqual(functions & NEWER_THAN_WINDOWS_7, set())

    def test_only_what_the_oldest_system_has_is_needed(self):
        self.check_needs(self.listing, SYSTEM_LIBRARIES)

    def test_the_program_needs_only_what_the_oldest_system_has(self):
        if PROGRAM is None:
            self.skipTest("the program is not built")
        self.check_needs(listing_of(PROGRAM), PROGRAM_LIBRARIES)

    def test_exactly_the_entry_points_are_offered_undecorated(self):
        table = self.listing.partition("[Ordinal/Name Pointer] Table")[2]
        offered = re.findall(r"^\s+\[ *\d+\](?: \+base\[ *\d+\])? +(?:[0-9a-f]+ )?(\S+)$", table,
                             re.M)
        self.assertEqual(sorted(offered), sorted(EXPORTS))

    def test_it_is_made_for_the_machine_that_was_asked_for(self):
        self.assertEqual(self.image.machine, MACHINES[ARCHITECTURE])

    def test_it_carries_its_type_library(self):
        library = self.image.resource("TYPELIB")
        self.assertIsNotNone(library)
        self.assertEqual(library[:4], b"MSFT")
        # The flags behind the place of the library's identifier and two language codes.
        self.assertEqual(struct.unpack_from("<I", library, 20)[0] & 0xF,
                         SYSTEM_KINDS[ARCHITECTURE])

    def test_it_tells_its_version(self):
        version = self.image.resource(VERSION_RESOURCE)
        self.assertIsNotNone(version)
        text = version.decode("utf-16-le", errors="replace")
        for expected in ["VS_VERSION_INFO", "Norvo Media Playlist Parser", "NorvoPlayList.dll"]:
            self.assertIn(expected, text)

    def test_it_carries_its_manifest(self):
        self.assertEqual(self.image.resource(MANIFEST_RESOURCE), MANIFEST.read_bytes())

    def test_the_manifest_lists_all_that_the_type_library_has(self):
        idl, manifest = IDL.read_text(), MANIFEST.read_text()
        classes = re.findall(r"\[uuid\(([0-9a-f-]+)\)[^\]]*\]\s*coclass (\w+)", idl)
        interfaces = re.findall(
            r"uuid\(([0-9a-f-]+)\),[^\]]*\]\s*(?:interface|dispinterface) (\w+)", idl)
        self.assertEqual(len(classes), 10)
        self.assertEqual(len(interfaces), len(classes) + 1)
        library = re.search(r"uuid\(([0-9a-f-]+)\),\s*version", idl).group(1)
        self.assertEqual(re.findall(r'<typelib tlbid="\{(\S+)\}" version="1.0"', manifest),
                         [library])
        self.assertEqual(
            re.findall(r'<comClass clsid="\{(\S+)\}" progid="NorvoPlayList\.(\w+)"', manifest),
            classes)
        self.assertEqual(
            [(identifier, name) for name, identifier in re.findall(
                r'<comInterfaceExternalProxyStub name="(\w+)" iid="\{(\S+)\}"', manifest)],
            interfaces)
        self.assertEqual(set(re.findall(r'tlbid="\{(\S+)\}"', manifest)), {library})
        self.assertIn(f'processorArchitecture="{ARCHITECTURE}"', manifest)


if __name__ == "__main__":
    # Given by the build: the tool, the machine, the DLL, its manifest, the IDL file, and the program
    # if that is built.
    OBJDUMP, ARCHITECTURE, *paths = sys.argv[1:]
    DLL, MANIFEST, IDL, *programs = map(Path, paths)
    PROGRAM = programs[0] if programs else None
    unittest.main(argv=sys.argv[:1])
