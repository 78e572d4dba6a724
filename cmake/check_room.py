"""The part of check_image.py about the room for a vendor's icon and version texts: that a finished,
unbranded launcher tells truly where it is, and what it holds before a vendor has put anything there."""

import struct

ICON, RCDATA, ICON_LIST, VERSION = 3, 10, 14, 16
TABLE_NUMBER = 3
TABLE_NAME = b"TVXROOM1"
POOL_SIZE, LIST_SIZE, VERSION_SIZE, IMAGE_ENTRIES = 32768, 6 + 12 * 14, 4096, 12
PREFIX = "@#BRD#@|".lower().encode("utf-16-le")
TEXTS = (
    "CompanyName FileDescription FileVersion InternalName LegalCopyright LegalTrademarks "
    "OriginalFilename ProductName ProductVersion Comments"
).split()


def check_table(data, found):
    places = [
        *found[ICON, 1][:1], POOL_SIZE,
        *found[ICON_LIST, 1][:1], LIST_SIZE,
        *found[VERSION, 1][:1], VERSION_SIZE,
    ]
    expected = TABLE_NAME + struct.pack("<9I", 44, 0, *places, IMAGE_ENTRIES)
    place, size = found[RCDATA, TABLE_NUMBER]
    if data[place:place + size] != expected:
        yield "the room table does not say where the room is"


def image_fields(image):
    """Width, height and depth as the list of images names them, nothing for a kind that is not shown
    everywhere: smaller ones that are compressed stay empty on Windows XP."""
    if image[:8] == b"\x89PNG\r\n\x1a\n" and image[12:16] == b"IHDR":
        width, height, depth, kind = struct.unpack_from(">IIBB", image, 16)
        right = (width, height, depth, kind) == (256, 256, 8, 6) and image[-8:-4] == b"IEND"
    else:
        header, width, height, planes, depth, compression = struct.unpack_from("<IiiHHI", image)
        height //= 2
        right = (header, planes, depth, compression) == (40, 1, 32, 0)
        right = right and len(image) == 40 + height * (4 * width + (width + 31) // 32 * 4)
    return (width & 0xFF, height & 0xFF, 32) if right else None


def check_icon(data, found):
    pool = end = found[ICON, 1][0]
    place, size = found[ICON_LIST, 1]
    reserved, kind, count = struct.unpack_from("<3H", data, place)
    if (reserved, kind) != (0, 1) or not 1 <= count <= IMAGE_ENTRIES or size != 6 + 14 * count:
        yield "the list of icon images is damaged"
        return
    for index in range(count):
        entry = struct.unpack_from("<4B2HIH", data, place + 6 + 14 * index)
        image, image_size = found[ICON, index + 1]
        if image != (end + 7) // 8 * 8:
            yield f"icon image {index + 1} does not stand where the one before it ends"
        end = image + image_size
        fields = image_fields(data[image:end])
        if fields is None:
            yield f"icon image {index + 1} is not 32 bits deep, uncompressed or 256 pixels wide"
        elif entry != (*fields[:2], 0, 0, 1, fields[2], image_size, index + 1):
            yield f"icon image {index + 1} is not what the list says"
    for index in range(count, IMAGE_ENTRIES):
        if found.get((ICON, index + 1)) != found[ICON, 1]:
            yield f"icon entry {index + 1} is not used and does not lead to the first image"
    if end > pool + POOL_SIZE:
        yield "the icon images are larger than their room"
    if data[end:pool + POOL_SIZE].strip(b"\0") or data[place + size:place + LIST_SIZE].strip(b"\0"):
        yield "the room after the icon is not empty"


def version_node(block, start, limit):
    """(key, value, (first child, end)) of a record of the version block."""
    length, size, is_text = struct.unpack_from("<3H", block, start)
    if length < 6 or start + length > limit:
        raise ValueError("a record of the version is damaged")
    key_end = start + 6
    while block[key_end:key_end + 2] != b"\0\0":
        key_end += 2
    value = (key_end + 2 + 3) // 4 * 4
    value_end = value + (2 * size if is_text else size)
    if value_end > start + length:
        raise ValueError("a value of the version is longer than its record")
    key = block[start + 6:key_end].decode("utf-16-le")
    return key, block[value:value_end], ((value_end + 3) // 4 * 4, start + length)


def version_children(block, span):
    place, end = span
    while place < end:
        yield version_node(block, place, end)
        place = (place + struct.unpack_from("<H", block, place)[0] + 3) // 4 * 4


def check_version(data, found):
    place, size = found[VERSION, 1]
    block = data[place:place + size]
    key, fixed, span = version_node(block, 0, size)
    if struct.unpack_from("<H", block)[0] != size or size > VERSION_SIZE:
        yield "the version is not as long as it says"
    if key != "VS_VERSION_INFO" or len(fixed) != 52 or fixed[:4] != b"\xbd\x04\xef\xfe":
        yield "the version has no numbers"
    texts, names = version_children(block, span)
    tables = list(version_children(block, texts[2]))
    (_, translation, _), = version_children(block, names[2])
    if [table[0] for table in tables] != ["040704B0"] or translation != b"\x07\x04\xb0\x04":
        yield "the version texts are not German"
    values = {key: value for key, value, _ in version_children(block, tables[0][2])}
    for name in TEXTS:
        value = values.pop(name, b"")
        if len(value) < 4 or value[-2:] != b"\0\0" or "\0" in value[:-2].decode("utf-16-le"):
            yield f"the version text {name} is missing or damaged"
    if values:
        yield f"nobody knows the version texts {', '.join(values)}"
    if data[place + size:place + VERSION_SIZE].strip(b"\0"):
        yield "the room after the version is not empty"


def check_no_marks(data, found):
    for kind, size in ((ICON, POOL_SIZE), (ICON_LIST, LIST_SIZE), (VERSION, VERSION_SIZE)):
        place = found[kind, 1][0]
        if PREFIX in data[place:place + size].lower():
            yield "icon or version hold the beginning of a mark"


def check_room(image):
    """Every reason why this image's room cannot be used."""
    try:
        found = image.resources()
        for check in (check_table, check_icon, check_version, check_no_marks):
            yield from check(image.data, found)
    except (KeyError, ValueError, struct.error) as error:
        yield f"its room for icon and version is damaged: {error!r}"
