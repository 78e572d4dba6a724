#!/usr/bin/env python3
"""fill_room.py PROGRAM DEFAULTS.res

Finishes a linked launcher: writes its default icon and version texts into the room that it keeps for
those of a vendor, and appends blanks until its length is a multiple of 32768 bytes, so that no part of
it lies in a last partial block: the configuration program locates marks wrongly there.

The room is made of raw resources (resources/room.rc). The first icon image is the pool that all images
lie in, at multiples of 8 bytes. Each of the 12 image entries says where its image lies and how long it
is; entries that are not needed lead to the first image. The sizes of the list of images and of the
version are those of their contents. What is left is zero. The room table, a resource of its own, says
where all of this is, so that a vendor's icon and texts can be put there later:

    "TVXROOM1"                              8 bytes
    its own size                            4 bytes, as all that follow
    what is the vendor's                    bit 0 the icon, bits 1 to 10 the texts; 0 here
    pool: place in the file, size
    list of images: place in the file, size
    version: place in the file, size
    number of image entries
"""

import struct
import sys

BLOCK = 32768
ICON, RCDATA, ICON_LIST, VERSION = 3, 10, 14, 16
IMAGE_ENTRIES = 12
ROOM_TABLE = 3


def aligned(number, unit):
    return (number + unit - 1) // unit * unit


def compiled_resources(data):
    """(type, number) and content of everything in a compiled resource file."""
    found = {}
    place = 0
    while place < len(data):
        size, header, kind, number = struct.unpack_from("<IIII", data, place)
        if kind & 0xFFFF == number & 0xFFFF == 0xFFFF:
            found[kind >> 16, number >> 16] = data[place + header:place + header + size]
        place = aligned(place + header + size, 4)
    return found


class Program:
    """A linked program and the entries of its resources."""

    def __init__(self, data):
        self.data = bytearray(data)
        header, = struct.unpack_from("<I", data, 0x3C)
        section_count, = struct.unpack_from("<H", data, header + 6)
        optional_size, = struct.unpack_from("<H", data, header + 20)
        self.checksum = header + 24 + 64
        resources, = struct.unpack_from("<I", data, header + 24 + 112)
        for index in range(section_count):
            section = header + 24 + optional_size + 40 * index
            _, self.address, _, self.raw = struct.unpack_from("<IIII", data, section + 8)
            if self.address == resources:
                break
        else:
            raise ValueError("it has no resources")
        self.entries = {}
        for kind, kinds in self._children(self.raw):
            for number, numbers in self._children(kinds):
                (_, entry), = self._children(numbers)
                self.entries[kind, number] = entry

    def _children(self, directory):
        named, numbered = struct.unpack_from("<HH", self.data, directory + 12)
        for index in range(named + numbered):
            number, place = struct.unpack_from("<II", self.data, directory + 16 + 8 * index)
            yield number, self.raw + (place & 0x7FFFFFFF)

    def content(self, kind, number):
        """Place in the file and size of a resource."""
        address, size = struct.unpack_from("<II", self.data, self.entries[kind, number])
        return address - self.address + self.raw, size

    def set_content(self, kind, number, place, size):
        address = place - self.raw + self.address
        struct.pack_into("<II", self.data, self.entries[kind, number], address, size)

    def put(self, place, room, content):
        if len(content) > room:
            raise ValueError(f"{len(content)} bytes do not fit into the room of {room}")
        self.data[place:place + room] = content.ljust(room, b"\0")


def fill(program, defaults):
    pool, pool_size = program.content(ICON, 1)
    icons, icons_size = program.content(ICON_LIST, 1)
    version, version_size = program.content(VERSION, 1)
    table, table_size = program.content(RCDATA, ROOM_TABLE)

    images = b""
    places = []
    listed = defaults[ICON_LIST, 1]
    for index in range((len(listed) - 6) // 14):
        number, = struct.unpack_from("<H", listed, 6 + 14 * index + 12)
        image = defaults[ICON, number]
        images = images.ljust(aligned(len(images), 8), b"\0")
        places.append((pool + len(images), len(image)))
        images += image
    for index in range(IMAGE_ENTRIES):
        place = places[index] if index < len(places) else places[0]
        program.set_content(ICON, index + 1, *place)
    program.put(pool, pool_size, images)
    program.put(icons, icons_size, listed)
    program.set_content(ICON_LIST, 1, icons, len(listed))
    program.put(version, version_size, defaults[VERSION, 1])
    program.set_content(VERSION, 1, version, len(defaults[VERSION, 1]))
    program.put(table, table_size, b"TVXROOM1" + struct.pack(
        "<9I", table_size, 0, pool, pool_size, icons, icons_size, version, version_size, IMAGE_ENTRIES))


def main(arguments):
    if len(arguments) != 2:
        print("usage: " + __doc__.splitlines()[0], file=sys.stderr)
        return 2
    with open(arguments[1], "rb") as file:
        defaults = compiled_resources(file.read())
    with open(arguments[0], "r+b") as file:
        program = Program(file.read())
        fill(program, defaults)
        # None instead of one that the padding, and a vendor's settings later, would make wrong.
        struct.pack_into("<I", program.data, program.checksum, 0)
        file.seek(0)
        file.write(program.data.ljust(aligned(len(program.data), BLOCK), b" "))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
