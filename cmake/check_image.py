#!/usr/bin/env python3
"""check_image.py PROGRAM [SIZE_LIMIT]

Proves that a finished, unbranded launcher can be branded and started on every supported Windows.
Runs after every link, on the file as it is shipped. Every line it prints is a reason why that file
must not be shipped. It shares no code and no table with the program, so that a mistake there does
not hide itself.
"""

import struct
import sys

from check_program import WINDOW, Image, check_start
from check_room import check_room

BLOCK = 32768
BOUNDARY = 16
# What it may be linked with. Other DLLs are loaded from the system folder when they are first needed: an
# import would be looked for in the launcher's own folder first, and every start would wait for it.
DLLS = ("advapi32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "user32.dll")
SIZE_LIMIT = 288 * 1024  # bytes, unless the caller gives another one

PREFIX = "@#BRD#@|".encode("utf-16-le")
NOT_BRANDED = "@#BRANDED0#@"
BRANDED = "@#BRANDED1#@"

# Number: (width, name)
FIELDS = {
    1: (50, "AppName"),
    2: (255, "AccPath"),
    13: (255, "DBPath"),
    14: (100, "DBFilename"),
    25: (255, "PicPath"),
    26: (100, "PicFilename"),
    27: (4, "PicDelay"),
    38: (100, "Profile"),
    39: (100, "User"),
    40: (100, "Pwd"),
    41: (1, "Runtime"),
    42: (1, "Exclusive"),
    43: (1, "Log"),
    44: (1, "ReadOnly"),
    45: (1, "Compact"),
    46: (1, "Repair"),
    47: (1, "NoStartup"),
    48: (100, "Cmd"),
    49: (100, "Macro"),
    52: (100, "SysDBFilename"),
    53: (255, "SysDBPath"),
    64: (10, "FileID"),
    65: (50, "EditPwd"),
    66: (5, "HCID"),
    67: (1, "Decompile"),
    68: (500, "ErrBoxText"),
    69: (500, "ErrDebugText"),
}
for first, list_name in ((3, "Acc"), (15, "DB"), (28, "Pic"), (54, "SysDB")):
    for index in range(10):
        FIELDS[first + index] = (500, f"{list_name}RegList{index + 1:02}")


def positions(data, pattern):
    found = data.find(pattern)
    while found >= 0:
        yield found
        found = data.find(pattern, found + 1)


def check_record(data, start, text):
    """The byte count before a text and the zero character after it."""
    size = 2 * len(text)
    if start % BOUNDARY:
        yield f"{text[:30]!r} at {start:#x} is not on a {BOUNDARY}-byte boundary"
    if data[start - 4:start] != struct.pack("<I", size):
        yield f"{text[:30]!r} at {start:#x} has a wrong byte count, {size} is right"
    if data[start:start + size] != text.encode("utf-16-le"):
        yield f"{text[:30]!r} at {start:#x} is not stored as this text"
    if data[start + size:start + size + 2] != b"\0\0":
        yield f"{text[:30]!r} at {start:#x} is not closed by a zero character"


def check_marks(data):
    numbers = []
    for start in positions(data, PREFIX):
        if start % BLOCK > BLOCK - len(PREFIX):
            yield f"the mark at {start:#x} begins across two blocks"
        number = data[start + 16:start + 22].decode("utf-16-le", "replace")
        field = FIELDS.get(int(number)) if number.isdecimal() else None
        if field is None:
            yield f"the text at {start:#x} is the beginning of a mark, but no mark"
            continue
        width, name = field
        text = f"@#BRD#@|{number}|{width:04}|{name}|" + " " * width
        yield from check_record(data, start, text)
        numbers.append(int(number))
    for number in FIELDS:
        if numbers.count(number) != 1:
            yield f"field {number:03} has {numbers.count(number)} marks instead of one"
    if numbers == sorted(numbers):
        yield "the marks stand in the order of their numbers"


def check_markers(data):
    folded = data.lower()
    for marker in (NOT_BRANDED, BRANDED):
        found = list(positions(folded, marker.lower().encode("utf-16-le")))
        if len(found) != 1:
            yield f"the program holds {len(found)} texts {marker} instead of one"
        for start in found:
            yield from check_record(data, start, marker)


def check_size(data, limit):
    if len(data) % BLOCK:
        yield f"its {len(data)} bytes are not a multiple of {BLOCK}"
    if len(data) > limit:
        yield f"its {len(data)} bytes are more than {limit}"


def check_program(data):
    try:
        image = Image(data)
        yield from check_start(image, WINDOW, DLLS)
        if image.signature_size:
            yield "it is signed; branding would break the signature"
        yield from check_room(image)
    except (ValueError, struct.error) as error:
        yield str(error)


def main(arguments):
    if len(arguments) not in (1, 2):
        print("usage: " + __doc__.splitlines()[0], file=sys.stderr)
        return 2
    with open(arguments[0], "rb") as file:
        data = file.read()
    limit = int(arguments[1]) if len(arguments) == 2 else SIZE_LIMIT
    problems = [
        *check_program(data),
        *check_size(data, limit),
        *check_marks(data),
        *check_markers(data),
    ]
    for problem in problems:
        print(f"{arguments[0]}: {problem}", file=sys.stderr)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
