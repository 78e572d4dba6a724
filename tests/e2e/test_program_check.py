"""The check that runs after every link refuses a configurator that would not start everywhere."""

import os
import pathlib
import struct
import subprocess
import sys

import pefile
import pytest

CHECK = pathlib.Path(__file__).parents[2] / "cmake" / "check_program.py"
KINDS = {"tarvexcf.exe": "window", "tarvexcf.com": "console"}


@pytest.fixture(scope="module", params=KINDS)
def name(request):
    return request.param


@pytest.fixture(scope="module")
def image(name):
    return (pathlib.Path(os.environ["TARVEX_WIN32_DIST"]) / name).read_bytes()


@pytest.fixture
def problems(tmp_path, name):
    def run(data, kind=KINDS[name]):
        program = tmp_path / name
        program.write_bytes(data)
        command = [sys.executable, CHECK, program, kind]
        result = subprocess.run(command, capture_output=True, text=True, check=False, timeout=60)
        assert (result.returncode != 0) == bool(result.stderr)
        return result.stderr

    return run


def with_header(data, field, value):
    program = pefile.PE(data=data, fast_load=True)
    setattr(program.OPTIONAL_HEADER, field, value)
    program.OPTIONAL_HEADER.CheckSum = 0
    return bytes(program.write())


def without_checksum(data):
    return with_header(data, "CheckSum", 0)


def test_shipped_program_passes(problems, image):
    assert problems(image) == ""


def test_function_that_windows_xp_lacks_is_named(problems, image):
    newer = without_checksum(image.replace(b"GetProcAddress\0", b"GetTickCount64\0"))
    assert problems(newer).endswith(
        ": it imports GetTickCount64 from KERNEL32.dll, which Windows XP is not known to have\n"
    )


def test_dll_beside_the_program_is_named(problems, image):
    other = problems(without_checksum(image.replace(b"KERNEL32.dll\0", b"NEARBY32.dll\0")))
    assert ": it imports CloseHandle from NEARBY32.dll, which is not a known system DLL\n" in other


def test_program_of_the_other_kind_is_named(problems, image, name):
    other = "window" if KINDS[name] == "console" else "console"
    numbers = "3, not 2" if other == "window" else "2, not 3"
    assert f": its subsystem is {numbers}\n" in problems(image, other)


def test_program_for_newer_windows_is_named(problems, image):
    newer = with_header(image, "MajorSubsystemVersion", 6)
    assert problems(newer).endswith(": it needs Windows 6.1\n")


def test_delayed_imports_are_named(problems, image):
    place = pefile.PE(data=image, fast_load=True).OPTIONAL_HEADER.DATA_DIRECTORY[13]
    offset = place.get_field_absolute_offset("VirtualAddress")
    delayed = without_checksum(image[:offset] + struct.pack("<I", 4096) + image[offset + 4:])
    assert problems(delayed).endswith(
        ": it has delayed imports, which are looked for in its own folder\n"
    )


def test_wrong_checksum_is_named(problems, image):
    wrong = image[:-1] + bytes([image[-1] ^ 1])
    assert problems(wrong).endswith(": its checksum is neither right nor zero\n")


@pytest.mark.parametrize("name", ["tarvexcf.exe"], indirect=True)
def test_window_with_old_controls_is_named(problems, image):
    old = without_checksum(image.replace(b'version="6.0.0.0"', b'version="5.0.0.0"'))
    assert problems(old).endswith(": its manifest does not ask for common controls 6\n")


def test_64_bit_program_is_refused(problems):
    other = pathlib.Path(os.environ["TARVEX_E2E_BIN"]) / "win64" / "msaccess.exe"
    assert problems(other.read_bytes()).endswith(": it is not a 32-bit program\n")


@pytest.mark.parametrize("length", [0, 100, 32768])
def test_cut_file_is_refused_without_a_crash(problems, image, length):
    output = problems(image[:length])
    assert output != ""
    assert "Traceback" not in output
