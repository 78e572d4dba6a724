"""The check that runs after every link refuses a launcher with a single damaged byte."""

import os
import pathlib
import struct
import subprocess
import sys

import pefile
import pytest

CHECK = pathlib.Path(__file__).parents[2] / "cmake" / "check_image.py"
PREFIX = "@#BRD#@|".encode("utf-16-le")
MARKER = "@#BRANDED0#@".encode("utf-16-le")


@pytest.fixture(scope="module")
def image():
    return (pathlib.Path(os.environ["TARVEX_WIN32_DIST"]) / "tarvex.exe").read_bytes()


def problems(tmp_path, data):
    program = tmp_path / "tarvex.exe"
    program.write_bytes(data)
    result = subprocess.run(
        [sys.executable, CHECK, program], capture_output=True, text=True, check=False, timeout=60
    )
    assert (result.returncode != 0) == bool(result.stderr)
    return result.stderr


def replaced(data, offset, new):
    return data[:offset] + new + data[offset + len(new):]


def test_shipped_launcher_passes(tmp_path, image):
    assert problems(tmp_path, image) == ""


@pytest.mark.parametrize(
    ("distance", "new", "expected"),
    [
        (-4, b"\x01", "wrong byte count"),
        (16, b"9", "but no mark"),
        (24, b"9", "not stored as this text"),
        (34, b"x", "not stored as this text"),
        (60, b"x", "not stored as this text"),
        (0, b"x", "has 0 marks instead of one"),
    ],
)
def test_damaged_mark_is_named(tmp_path, image, distance, new, expected):
    first = image.index(PREFIX)
    assert expected in problems(tmp_path, replaced(image, first + distance, new))


def test_missing_zero_behind_a_mark_is_named(tmp_path, image):
    first = image.index(PREFIX)
    size = int.from_bytes(image[first - 4:first], "little")
    assert "not closed by a zero" in problems(tmp_path, replaced(image, first + size, b"x"))


def test_second_mark_text_is_named(tmp_path, image):
    assert "but no mark" in problems(tmp_path, replaced(image, len(image) - 100, PREFIX))


def test_second_marker_is_named_in_any_case(tmp_path, image):
    stray = replaced(image, len(image) - 100, MARKER.lower())
    assert "holds 2 texts @#BRANDED0#@" in problems(tmp_path, stray)


def test_branded_launcher_is_named(tmp_path, image):
    branded = replaced(image, image.index(MARKER) + 18, b"1")
    assert "holds 2 texts @#BRANDED1#@" in problems(tmp_path, branded)


def test_length_beside_the_blocks_is_named(tmp_path, image):
    assert "not a multiple of 32768" in problems(tmp_path, image + b" ")


def test_shifted_marks_are_named(tmp_path, image):
    assert "16-byte boundary" in problems(tmp_path, image[:0x3FF] + b" " + image[0x3FF:-1])


ROOM = b"TVXROOM1"
VERSION = "VS_VERSION_INFO".encode("utf-16-le")
PNG = b"\x89PNG\r\n\x1a\n"


def room(image, index):
    """A number of the room table: 2 and 3 tell of the pool, 4 and 5 of the list, 6 and 7 of the version."""
    return struct.unpack_from("<9I", image, image.index(ROOM) + 8)[index]


@pytest.mark.parametrize("index", range(9))
def test_wrong_number_in_the_room_table_is_named(tmp_path, image, index):
    place = image.index(ROOM) + 8 + 4 * index
    wrong = replaced(image, place, bytes([image[place] ^ 8]))
    assert "the room table does not say where the room is" in problems(tmp_path, wrong)


@pytest.mark.parametrize(
    ("distance", "expected"),
    [
        (4, "the list of icon images is damaged"),
        (6, "icon image 1 is not what the list says"),
        (12, "icon image 1 is not what the list says"),
        (14, "icon image 1 is not what the list says"),
        (100, "the room after the icon is not empty"),
    ],
)
def test_damaged_list_of_images_is_named(tmp_path, image, distance, expected):
    assert expected in problems(tmp_path, replaced(image, room(image, 4) + distance, b"\x18"))


@pytest.mark.parametrize(
    ("distance", "new"), [(0, b"\x6c"), (14, b"\x08"), (16, b"\x01"), (8, b"\x22")]
)
def test_image_that_windows_xp_does_not_show_is_named(tmp_path, image, distance, new):
    wrong = replaced(image, room(image, 2) + distance, new)
    assert "icon image 1 is not 32 bits deep, uncompressed" in problems(tmp_path, wrong)


def test_compressed_image_with_a_palette_is_named(tmp_path, image):
    wrong = replaced(image, image.index(PNG) + 25, b"\x03")
    assert "icon image 4 is not 32 bits deep" in problems(tmp_path, wrong)


def test_rest_in_the_pool_is_named(tmp_path, image):
    wrong = replaced(image, room(image, 2) + room(image, 3) - 1, b"x")
    assert "the room after the icon is not empty" in problems(tmp_path, wrong)


def test_image_entry_that_leads_elsewhere_is_named(tmp_path, image):
    first = image.index(struct.pack("<I", 1128) + bytes(8))  # size of the first entry
    last = image.rindex(struct.pack("<I", 1128) + bytes(8))
    assert (last - first) % 16 == 0
    used = problems(tmp_path, replaced(image, first + 16 - 4, b"\0"))
    assert "icon image 2 does not stand where the one before it ends" in used
    unused = problems(tmp_path, replaced(image, last, b"\x69"))
    assert "icon entry 12 is not used and does not lead to the first image" in unused


@pytest.mark.parametrize(
    ("distance", "expected"),
    [
        (-6, "the version is not as long as it says"),
        (34, "the version has no numbers"),
        (36 + 52 + 36 + 8, "the version texts are not German"),
        (36 + 52 + 36 + 24 + 6, "the version text CompanyName is missing"),
        (4096 - 7, "the room after the version is not empty"),
    ],
)
def test_damaged_version_is_named(tmp_path, image, distance, expected):
    wrong = replaced(image, image.index(VERSION) + distance, b"\x21")
    assert expected in problems(tmp_path, wrong)


def test_mark_in_the_room_is_named_in_any_case(tmp_path, image):
    wrong = replaced(image, room(image, 2) + 80, PREFIX.lower())
    assert "icon or version hold the beginning of a mark" in problems(tmp_path, wrong)


def test_missing_room_is_named(tmp_path, image):
    wrong = problems(tmp_path, image.replace(ROOM, b"TVXROOM2"))
    assert "the room table does not say where the room is" in wrong


def test_checksum_is_right_or_zero(tmp_path, image):
    program = pefile.PE(data=image)
    place = program.OPTIONAL_HEADER.get_field_absolute_offset("CheckSum")
    assert program.OPTIONAL_HEADER.CheckSum == 0
    right = struct.pack("<I", program.generate_checksum())
    assert problems(tmp_path, replaced(image, place, right)) == ""
    wrong = problems(tmp_path, replaced(image, place, b"\1"))
    assert "its checksum is neither right nor zero" in wrong


def test_unknown_imports_are_named(tmp_path, image):
    newer = image.replace(b"CreateFileW\0", b"CreateFile2\0")
    assert "CreateFile2" in problems(tmp_path, newer)
    other = image.replace(b"USER32.dll\0", b"VERS32.dll\0")
    assert "which is not a known system DLL" in problems(tmp_path, other)


@pytest.mark.parametrize("length", [0, 100, 32768])
def test_cut_file_is_refused_without_a_crash(tmp_path, image, length):
    output = problems(tmp_path, image[:length])
    assert output != ""
    assert "Traceback" not in output
