"""What is different on a 64-bit Windows: programs of 64 bits leave their registry values where a
32-bit program does not look at first, and Access may be one of them."""

import pytest

import launcher

pytestmark = pytest.mark.win64

OFFICE_KEY = r"SOFTWARE\Microsoft\Office\8.0\Common\InstallRoot"


class Views:
    """Values below HKEY_LOCAL_MACHINE in one of its two views; its keys are removed at the end."""

    def __init__(self):
        self._keys = set()

    def set(self, bits, key, name, value):
        key = "HKLM\\" + key
        self._keys.add((key, bits))
        what = ("/v", name, "/t", "REG_SZ", "/d", value, "/f", f"/reg:{bits}")
        launcher.wine("reg", "add", key, *what)

    def close(self):
        for key, bits in self._keys:
            launcher.wine("reg", "delete", key, "/f", f"/reg:{bits}")


@pytest.fixture
def views():
    result = Views()
    yield result
    result.close()


class TestKeyList:
    """The value of each view names a folder of its own, so that the log tells which was read."""

    FOLDERS = {32: r"\Access 32", 64: r"\Access 64"}

    @pytest.fixture
    def resolve(self, world, views):
        """A function that sets the value in the views given and shows the test mode."""

        def run(*bits):
            for view in bits:
                folder = self.FOLDERS[view]
                world.add_access(folder)
                views.set(view, rf"SOFTWARE\{world.key}\Büro", "Größe", world.path(folder))
            world.brand(AccRegList01=rf"HKLM\SOFTWARE\{world.key}\Büro\Größe")
            return world.sections()

        return run

    def log(self, world, view):
        folder = self.FOLDERS[view]
        return [
            "Schlüsselliste wird aufgelöst",
            rf"Gespeicherter Wert: HKLM\SOFTWARE\{world.key}\Büro\Größe",
            " - HKey: HKLM",
            rf" - Schlüssel: SOFTWARE\{world.key}\Büro",
            " - Wertname: Größe",
            " - Unterordner: -",
            " - Dateiname: -",
            f"Schlüsselinhalt: {world.drive}{folder}",
            rf"Access-EXE: {world.drive}{folder}\msaccess.exe",
            "Access-EXE: OK",
        ]

    def test_value_of_the_32_bit_view_is_read(self, world, resolve):
        sections = resolve(32)
        assert sections["Access-Pfad"] == self.log(world, 32)
        assert sections[""] == rf'"{world.drive}\Access 32\msaccess.exe"'

    def test_value_of_the_64_bit_view_alone_is_read_and_told_alike(self, world, resolve):
        sections = resolve(64)
        assert sections["Access-Pfad"] == self.log(world, 64)
        assert sections[""] == rf'"{world.drive}\Access 64\msaccess.exe"'

    def test_value_of_the_32_bit_view_wins(self, world, resolve):
        assert resolve(32, 64)["Access-Pfad"] == self.log(world, 32)

    def test_empty_value_of_the_32_bit_view_does_not_win(self, world, views, resolve):
        views.set(32, rf"SOFTWARE\{world.key}\Büro", "Größe", "")
        assert resolve(64)["Access-Pfad"] == self.log(world, 64)

    def test_value_of_neither_view_is_told_as_on_a_32_bit_windows(self, world):
        world.brand(AccRegList01=rf"HKLM\SOFTWARE\{world.key}\Büro\Größe")
        text = world.shown("/T")
        assert text.count("Schlüsselinhalt") == 1
        assert text.endswith(
            "\r\nSchlüsselinhalt: <nicht vorhanden oder kein Inhalt>\r\n"
            "Pfad konnte nicht ermittelt werden"
        )


def test_key_of_a_64_bit_office_leads_to_access(world, views):
    views.set(64, OFFICE_KEY, "OfficeBin", world.path(r"\Office"))
    world.brand()
    assert world.sections()["Access-Pfad"] == [
        "Office-Schlüssel wird verwendet",
        f"Schlüssel: {OFFICE_KEY}",
        rf"Schlüsselinhalt: {world.drive}\Office",
        rf"Verwendeter Pfad: {world.drive}\Office\msaccess.exe",
        "Access-EXE: OK",
    ]


def test_picture_is_found_through_the_64_bit_view(world, views):
    views.set(64, rf"SOFTWARE\{world.key}", "Bild", world.write(r"\Bild.bmp"))
    world.brand_with_access(PicRegList01=rf"HKLM\SOFTWARE\{world.key}\Bild", PicDelay="500")
    assert f"\r\nSchlüsselinhalt: {world.drive}\\Bild.bmp\r\n" in world.shown("/T")


def test_64_bit_access_gets_its_line_and_is_maximised(world):
    world.write(r"\Prog\Büro.mdb")
    world.brand_with_access(DBFilename="Büro.mdb", Cmd="äöü ß €")
    record = world.started()
    assert record["bits"] == "64"
    assert record["line"] == (
        rf'"{world.drive}\Office\msaccess.exe" "{world.drive}\Prog\Büro.mdb" /cmd "äöü ß €"'
    )
    assert (record["show"], record["nCmdShow"]) == ("3", "3")
