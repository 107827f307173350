"""Pages of Ogg streams."""

import struct

POLYNOMIAL = 0x04C11DB7


def checksum(data):
    rest = 0
    for byte in data:
        rest ^= byte << 24
        for _ in range(8):
            rest = (rest << 1 ^ (POLYNOMIAL if rest & 0x80000000 else 0)) & 0xFFFFFFFF
    return rest


def ogg_page(packets, number, kind=0, position=0, stream=1):
    """A page of whole packets; `kind` is 2 for the first page of a stream, 4 for its last."""
    table = b"".join(b"\xff" * (len(packet) // 255) + bytes([len(packet) % 255])
                     for packet in packets)
    head = b"OggS" + struct.pack("<BBqII", 0, kind, position, stream, number)
    tail = bytes([len(table)]) + table + b"".join(packets)
    return head + struct.pack("<I", checksum(head + bytes(4) + tail)) + tail
