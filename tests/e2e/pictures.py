"""Pictures for the tests, made without any tool."""

import struct


def bitmap(width, height, colour=(200, 60, 20)):
    """A Windows bitmap of 24 bits with one colour (red, green, blue)."""
    red, green, blue = colour
    row = bytes([blue, green, red]) * width
    row += bytes(-len(row) % 4)
    header = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, 0, 2835, 2835, 0, 0)
    size = 14 + len(header) + len(row) * height
    return struct.pack("<2sIHHI", b"BM", size, 0, 0, 14 + len(header)) + header + row * height
