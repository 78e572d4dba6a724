"""The check that runs after every link refuses a launcher with a single damaged byte."""

import os
import pathlib
import subprocess
import sys

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
