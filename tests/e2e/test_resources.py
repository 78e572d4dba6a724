"""What the launcher's file shows in a file manager and tells the system before it starts."""

import re
import struct
import xml.etree.ElementTree as ElementTree

import pefile
import pytest

import launcher

ICON, ICON_GROUP, VERSION, MANIFEST = 3, 14, 16, 24
V1, V3 = "{urn:schemas-microsoft-com:asm.v1}", "{urn:schemas-microsoft-com:asm.v3}"
COMPATIBILITY = "{urn:schemas-microsoft-com:compatibility.v1}"
SETTINGS = "{http://schemas.microsoft.com/SMI/%d/WindowsSettings}"


@pytest.fixture(scope="module")
def image(programs):
    return pefile.PE(programs.launcher)


def resources(image, kind):
    """The resources of a type, by their numbers; each is there in one language only."""
    result = {}
    for directory in image.DIRECTORY_ENTRY_RESOURCE.entries:
        if directory.id == kind:
            for entry in directory.directory.entries:
                (language,) = entry.directory.entries
                place = language.data.struct
                result[entry.id] = (language.id, image.get_data(place.OffsetToData, place.Size))
    return result


class TestIcon:
    def entries(self, image):
        """Width, height, planes, bits per pixel and data of every picture."""
        ((_, group),) = resources(image, ICON_GROUP).values()
        pictures = resources(image, ICON)
        reserved, kind, count = struct.unpack_from("<3H", group)
        assert (reserved, kind) == (0, 1)
        assert len(group) == 6 + 14 * count
        for index in range(count):
            row = struct.unpack_from("<4B2HIH", group, 6 + 14 * index)
            width, height, _, _, planes, bits, size, number = row
            data = pictures.pop(number)[1]
            assert len(data) == size
            yield width or 256, height or 256, planes, bits, data
        # Kept for a vendor's icon; what nobody needs leads to the first picture.
        assert sorted(pictures) == list(range(5, 13))
        assert {data for _, data in pictures.values()} == {resources(image, ICON)[1][1]}

    def test_every_size_that_the_system_shows_is_there(self, image):
        sizes = [entry[:2] for entry in self.entries(image)]
        assert sizes == [(16, 16), (32, 32), (48, 48), (256, 256)]

    def test_every_picture_has_32_bits_per_pixel(self, image):
        assert {entry[3] for entry in self.entries(image)} == {32}
        *_, (*_, largest) = self.entries(image)
        assert largest[24:26] == b"\x08\x06"  # 8 bits each of red, green, blue and transparency

    def test_pictures_are_those_of_the_project(self, image):
        icon = (launcher.GOLDEN.parents[1] / "resources" / "tarvex.ico").read_bytes()
        (count,) = struct.unpack_from("<H", icon, 4)
        places = [struct.unpack_from("<II", icon, 6 + 16 * index + 8) for index in range(count)]
        expected = [icon[place : place + size] for size, place in places]
        assert [entry[4] for entry in self.entries(image)] == expected

    def test_pictures_are_what_the_group_says(self, image):
        for width, height, _, bits, data in self.entries(image):
            if data.startswith(b"\x89PNG"):
                # Smaller ones in this form stay empty on Windows XP.
                assert width == 256
                assert struct.unpack_from(">II", data, 16) == (width, height)
            else:
                header = struct.unpack_from("<IiiHH", data)
                # The mask lies below the picture.
                assert header == (40, width, 2 * height, 1, bits)


class TestVersion:
    def project_version(self):
        text = (launcher.GOLDEN.parents[1] / "resources" / "Version.h").read_text("utf-8")
        numbers = re.findall(r"_(?:MAJOR|MINOR|REVISION) (\d+)", text)
        return tuple(map(int, numbers)), re.search(r'_TEXT "(.*)"', text)[1]

    def test_texts_are_german(self, image):
        _, version = self.project_version()
        (block,) = image.FileInfo
        (texts,) = [entry for entry in block if entry.Key == b"StringFileInfo"]
        (names,) = [entry for entry in block if entry.Key == b"VarFileInfo"]
        (table,) = texts.StringTable
        assert table.LangID == b"040704B0"
        assert names.Var[0].entry == {b"Translation": "0x0407 0x04b0"}
        assert {key.decode(): text.decode() for key, text in table.entries.items()} == {
            "CompanyName": "Tarvex",
            "FileDescription": "Startprogramm für Access-Datenbanken",
            "FileVersion": version,
            "InternalName": "tarvex",
            "LegalCopyright": "© 2026 Tarvex. Alle Rechte vorbehalten.",
            "LegalTrademarks": "Access und Windows sind Marken der Microsoft Corporation.",
            "OriginalFilename": "tarvex.exe",
            "ProductName": "Tarvex",
            "ProductVersion": version,
            "Comments": "Öffnet eine Access-Datenbank mit den Einstellungen, die in dieser Datei "
            "hinterlegt sind.",
        }

    def test_resource_is_german_for_the_system(self, image):
        assert {n: language for n, (language, _) in resources(image, VERSION).items()} == {1: 0x407}

    def test_numbers_and_text_are_the_same_version(self, image):
        (major, minor, revision), text = self.project_version()
        assert text == f"{major}.{minor}.{revision:03}"
        (fixed,) = image.VS_FIXEDFILEINFO
        for high, low in (
            (fixed.FileVersionMS, fixed.FileVersionLS),
            (fixed.ProductVersionMS, fixed.ProductVersionLS),
        ):
            assert (high, low) == (major << 16 | minor, revision)

    def test_file_is_a_released_program_for_windows(self, image):
        (fixed,) = image.VS_FIXEDFILEINFO
        assert (fixed.FileOS, fixed.FileType, fixed.FileFlags) == (0x40004, 1, 0)


class TestManifest:
    @pytest.fixture
    def manifest(self, image):
        found = resources(image, MANIFEST)
        assert list(found) == [1]  # the number that the system looks for
        return ElementTree.fromstring(found[1][1])

    def test_common_controls_are_version_six(self, manifest):
        (identity,) = manifest.findall(
            f"{V1}dependency/{V1}dependentAssembly/{V1}assemblyIdentity"
        )
        assert identity.attrib == {
            "type": "win32",
            "name": "Microsoft.Windows.Common-Controls",
            "version": "6.0.0.0",
            "processorArchitecture": "x86",
            "publicKeyToken": "6595b64144ccf1df",
            "language": "*",
        }

    def test_no_elevation_is_wanted(self, manifest):
        (level,) = manifest.iter(V3 + "requestedExecutionLevel")
        assert level.attrib == {"level": "asInvoker", "uiAccess": "false"}

    def test_screens_of_any_resolution_are_known(self, manifest):
        (old,) = manifest.iter(SETTINGS % 2005 + "dpiAware")
        (new,) = manifest.iter(SETTINGS % 2016 + "dpiAwareness")
        assert old.text == "true/pm"
        assert new.text == "PerMonitorV2, PerMonitor, System"

    def test_every_windows_since_vista_is_named(self, manifest):
        assert {entry.get("Id") for entry in manifest.iter(COMPATIBILITY + "supportedOS")} == {
            "{e2011457-1546-43c5-a5fe-008deee3d3f0}",
            "{35138b9a-5d96-4fbd-8e2d-a2440225f93a}",
            "{4a2f28e3-53b9-4441-ba9c-d69d4a4a6e38}",
            "{1f676c76-80e1-4239-95bb-83d0f6d0da78}",
            "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}",
        }

    def test_nothing_else_is_set(self, manifest):
        """A code page of its own, for one, would change how configured values are read."""
        (settings,) = manifest.iter(V3 + "windowsSettings")
        assert [setting.tag.partition("}")[2] for setting in settings] == ["dpiAware", "dpiAwareness"]
