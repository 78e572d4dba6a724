"""The vendor's own icon and version texts on the shipped launcher, and a signature over all of it, as
programs of others read them."""

import json
import os
import pathlib
import shutil
import struct
import subprocess

import pefile
import pytest

import brandfile
import configurator
import launcher
import versionblock

TOOLS = pathlib.Path(os.environ.get("TARVEX_E2E_BIN", "."))
ICON = pathlib.Path(__file__).parents[2] / "resources" / "tarvex.ico"

SETTINGS = """[Anwendung]
AppName = Kunden
[Access]
AccPath = .\\Office
"""
PROGRAM = """[Programmdatei]
IconFile = bild.ico
FileDescription = Kundenverwaltung „Größe“
CompanyName = Müller & Söhne – Žižkov
FileVersion = 2026.11.0.65535
ProductVersion = 7.2 Beta
LegalTrademarks =
Comments = x
"""
TEXTS = {
    "CompanyName": "Müller & Söhne – Žižkov",
    "FileDescription": "Kundenverwaltung „Größe“",
    "FileVersion": "2026.11.0.65535",
    "InternalName": "tarvex",
    "LegalCopyright": "© 2026 Tarvex. Alle Rechte vorbehalten.",
    "LegalTrademarks": "",
    "OriginalFilename": "tarvex.exe",
    "ProductName": "Tarvex",
    "ProductVersion": "7.2 Beta",
    "Comments": "x",
}


def ico(images):
    """An .ico file whose directory says nothing of the images but where they are."""
    data = struct.pack("<3H", 0, 1, len(images))
    place = 6 + 16 * len(images)
    for image in images:
        data += struct.pack("<8xII", len(image), place)
        place += len(image)
    return data + b"".join(images)


def bitmap(size, bits=32, colour=b"\x20\x40\xc0\xff"):
    header = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, bits, 0, 0, 0, 0, 0, 0)
    palette = bytes(4 << bits) if bits <= 8 else b""
    pixels = colour * size * size if bits == 32 else bytes((size * bits + 31) // 32 * 4 * size)
    return header + palette + pixels + bytes((size + 31) // 32 * 4 * size)


def project_images():
    data = ICON.read_bytes()
    places = [struct.unpack_from("<II", data, 6 + 16 * index + 8) for index in range(4)]
    return [data[place : place + size] for size, place in places]


@pytest.fixture(scope="module", params=[configurator.Native, configurator.Wine], ids=lambda c: c.name)
def program(request):
    return request.param()


@pytest.fixture
def native():
    return configurator.Native()


@pytest.fixture
def folder(tmp_path, programs):
    shutil.copyfile(programs.launcher, tmp_path / "T.exe")
    (tmp_path / "bild.ico").write_bytes(
        ico([bitmap(16), bitmap(32), bitmap(48), project_images()[3], bitmap(32, 8)])
    )
    (tmp_path / "all.ini").write_text(SETTINGS + PROGRAM, encoding="utf-8")
    (tmp_path / "own.ini").write_text(SETTINGS, encoding="utf-8")
    (tmp_path / "program.ini").write_text(PROGRAM, encoding="utf-8")
    return tmp_path


def brand(program, folder, settings, output):
    result = program.run(folder, "brand", "T.exe", output, "--settings", settings)
    assert result.code == 0, result
    return (folder / output).read_bytes()


def room(data):
    """Ranges of the file that icon and version texts may change."""
    image = pefile.PE(data=data)
    place = data.index(b"TVXROOM1")
    numbers = struct.unpack_from("<9I", data, place + 8)
    ranges = [numbers[2:4], numbers[4:6], numbers[6:8], (place + 12, 4)]
    for kind in image.DIRECTORY_ENTRY_RESOURCE.entries:
        for entry in kind.directory.entries:
            if kind.id in (3, 14, 16):
                ranges.append((entry.directory.entries[0].data.struct.get_file_offset(), 8))
    return ranges


def test_only_the_reserved_room_and_the_values_change(program, folder):
    before = (folder / "T.exe").read_bytes()
    after = brand(program, folder, "all.ini", "K.exe")
    assert len(after) == len(before)
    allowed = set()
    for start, size in room(before):
        allowed.update(range(start, start + size))
    image = brandfile.BrandFile(before)
    for mark in image.marks:
        allowed.update(range(mark.value_start, mark.end))
    allowed.add(before.find(brandfile.UNBRANDED) + 18)
    assert {i for i, (a, b) in enumerate(zip(before, after)) if a != b} <= allowed


def test_order_and_system_do_not_change_a_byte(program, native, folder):
    expected = brand(native, folder, "all.ini", "K.exe")
    assert brand(program, folder, "all.ini", "W.exe") == expected
    brand(program, folder, "own.ini", "A.exe")
    words = [line.replace(" = ", "=").replace(" =", "=") for line in PROGRAM.splitlines()[1:]]
    assert program.run(folder, "set", "A.exe", *words).code == 0
    assert (folder / "A.exe").read_bytes() == expected
    brand(program, folder, "program.ini", "B.exe")
    words = [line.replace(" = ", "=") for line in SETTINGS.splitlines() if "=" in line]
    assert program.run(folder, "set", "B.exe", *words).code == 0
    assert (folder / "B.exe").read_bytes() == expected


def test_readers_of_others_find_icon_and_texts(native, folder):
    brand(native, folder, "all.ini", "K.exe")
    image = pefile.PE(folder / "K.exe")
    assert image.get_warnings() == []
    (block,) = image.FileInfo
    (texts,) = [entry for entry in block if entry.Key == b"StringFileInfo"]
    (table,) = texts.StringTable
    assert {key.decode(): text.decode() for key, text in table.entries.items()} == TEXTS
    (fixed,) = image.VS_FIXEDFILEINFO
    assert (fixed.FileVersionMS, fixed.FileVersionLS) == (2026 << 16 | 11, 65535)
    assert (fixed.ProductVersionMS, fixed.ProductVersionLS) == (7 << 16 | 2, 0)
    (folder / "out").mkdir()
    arguments = ["-x", "--type=14", "-o", folder / "out" / "k.ico", folder / "K.exe"]
    versionblock.wrestool(*arguments)
    rows = subprocess.run(
        ["icotool", "-l", folder / "out" / "k.ico"], capture_output=True, text=True, check=True
    ).stdout
    sizes = [(16, 32), (32, 32), (48, 32), (256, 32)]
    assert [
        f"--width={size} --height={size} --bit-depth={depth}" for size, depth in sizes
    ] == [row.split(" ", 2)[2].rsplit(" ", 1)[0] for row in rows.splitlines()]


def test_windows_reads_the_texts(native, folder):
    brand(native, folder, "all.ini", "K.exe")
    report = folder / "report"
    launcher.wine(
        TOOLS / "versions.exe",
        launcher.windows_path(report),
        launcher.windows_path(folder / "K.exe"),
    )
    (properties,) = json.loads(report.read_text(encoding="utf-8"))
    expected = TEXTS | {"CompanyName": "Müller & Söhne – Žižkov"}
    assert {name: properties[name] for name in expected} == expected
    assert (properties["FileVersionMajor"], properties["FileVersionMinor"]) == (2026, 11)


def test_export_brings_icon_and_texts_into_another_launcher(program, folder):
    expected = brand(program, folder, "all.ini", "K.exe")
    assert program.run(folder, "export", "K.exe", "neu.ini").code == 0
    (folder / "bild.ico").unlink()
    assert brand(program, folder, "neu.ini", "L.exe") == expected
    result = program.run(folder, "diff", "K.exe", "neu.ini")
    assert (result.code, result.out) == (0, "Kein Unterschied.\n"), result


def test_resources_that_another_editor_has_moved_are_refused(native, folder):
    data = bytearray((folder / "T.exe").read_bytes())
    image = pefile.PE(data=bytes(data))
    (versions,) = [e for e in image.DIRECTORY_ENTRY_RESOURCE.entries if e.id == 16]
    entry = versions.directory.entries[0].directory.entries[0].data.struct
    struct.pack_into("<I", data, entry.get_file_offset(), entry.OffsetToData + 8)
    (folder / "T.exe").write_bytes(data)
    result = native.run(folder, "brand", "T.exe", "K.exe", "--settings", "all.ini")
    assert result.code == 1
    assert "ein anderes Programm hat seine Ressourcen verändert" in result.err
    assert not (folder / "K.exe").exists()
    brand(native, folder, "own.ini", "K.exe")


def test_report_of_the_launcher_shows_the_texts(native, folder, world):
    brand(native, folder, "all.ini", "K.exe")
    shutil.copyfile(folder / "K.exe", world.unix(world.exe))
    rows = launcher.lines(world.shown("/D"))
    assert "Kundenverwaltung „Größe“" in "\n".join(rows)


class TestSignature:
    """Signed with a certificate made here."""

    @pytest.fixture(scope="class")
    def certificate(self, tmp_path_factory):
        place = tmp_path_factory.mktemp("certificate")
        subprocess.run(
            "openssl req -x509 -newkey rsa:2048 -nodes -keyout key.pem -out cert.pem -days 30"
            " -subj /CN=Tester -addext extendedKeyUsage=codeSigning",
            shell=True,
            cwd=place,
            check=True,
            capture_output=True,
            timeout=60,
        )
        return place

    def sign_tool(self, folder, *arguments):
        result = subprocess.run(
            ["osslsigncode", *map(str, arguments)],
            cwd=folder,
            capture_output=True,
            text=True,
            check=False,
            timeout=60,
        )
        assert result.returncode == 0, result.stdout + result.stderr
        return result.stdout

    @pytest.fixture
    def signed(self, native, folder, certificate):
        brand(native, folder, "all.ini", "K.exe")
        self.sign_tool(
            folder, "sign", "-h", "sha256", "-certs", certificate / "cert.pem",
            "-key", certificate / "key.pem", "-in", "K.exe", "-out", "S.exe",
        )
        return folder

    def test_signature_is_valid_and_the_program_starts(self, signed, certificate, world):
        output = self.sign_tool(signed, "verify", "-CAfile", certificate / "cert.pem", "S.exe")
        assert "Signature verification: ok" in output
        world.add_access(r"\Prog\Office")
        world.write(r"\Prog\Start.mdb")
        shutil.copyfile(signed / "S.exe", world.unix(world.exe))
        assert "msaccess.exe" in world.started(office=r"\Prog\Office")["line"]

    def test_signed_file_can_be_read(self, program, signed):
        assert program.run(signed, "show", "S.exe").out == program.run(signed, "show", "K.exe").out
        result = program.run(signed, "check", "S.exe")
        assert "Die Datei trägt eine Signatur" in result.err
        assert result.code == program.run(signed, "check", "K.exe").code
        assert program.run(signed, "export", "S.exe", "S.ini").code == 0
        expected = (signed / "K.exe").read_bytes()
        assert brand(program, signed, "S.ini", "L.exe") == expected
        assert program.run(signed, "brand", "T.exe", "N.exe", "--from", "S.exe").code == 0
        assert (signed / "N.exe").read_bytes() == expected

    def test_signed_file_is_not_changed(self, program, signed):
        before = (signed / "S.exe").read_bytes()
        for word in ("AppName=x", "CompanyName=x"):
            result = program.run(signed, "set", "S.exe", word)
            assert result.code == 1
            assert "S.exe: Die Datei trägt eine Signatur" in result.err
        assert (signed / "S.exe").read_bytes() == before

    def test_file_without_its_signature_can_be_changed_again(self, program, signed):
        self.sign_tool(signed, "remove-signature", "-in", "S.exe", "-out", "R.exe")
        result = program.run(signed, "set", "R.exe", "AppName=Neu", "CompanyName=Neu")
        assert result.code == 0, result
        assert program.run(signed, "get", "R.exe", "AppName", "CompanyName").out == "Neu\nNeu\n"
