"""How Access itself is found."""

import pytest

OFFICE_KEY = r"SOFTWARE\Microsoft\Office\8.0\Common\InstallRoot"
NO_LIST = "Schlüsselinhalt: <nicht vorhanden oder kein Inhalt>"


def access_log(world, **options):
    return world.sections(**options)["Access-Pfad"]


@pytest.mark.parametrize(
    "stored", [r"\Office", "\\Office\\", r"\Office\msaccess.exe", r"\Office\MSACCESS.EXE"]
)
def test_folder_and_program_name_mean_the_same(world, stored):
    world.brand(AccPath=world.path(stored))
    sections = world.sections()
    assert sections[""] == f'"{world.drive}\\Office\\msaccess.exe"'
    assert sections["Access-Pfad"] == [
        f"Absoluter Pfad wird verwendet: {world.drive}\\Office\\msaccess.exe",
        "Access-EXE: OK",
    ]


def test_relative_folder_starts_at_the_launchers(world):
    world.add_access(r"\Prog\Bin")
    world.brand(AccPath="Bin")
    assert access_log(world) == [
        f"Absoluter Pfad: {world.drive}\\Prog\\Bin\\",
        f"Absoluter Pfad wird verwendet: {world.drive}\\Prog\\Bin\\msaccess.exe",
        "Access-EXE: OK",
    ]


def test_parent_folders_are_walked(world):
    world.brand(AccPath=r"..\Office")
    assert access_log(world) == [
        r"Relativer Pfad: ..\Office",
        f"Absoluter Pfad: {world.drive}\\Office\\",
        f"Absoluter Pfad wird verwendet: {world.drive}\\Office\\msaccess.exe",
        "Access-EXE: OK",
    ]


def test_folder_named_like_the_program_does_not_count(world):
    world.unix(world.path(r"\Ordner\msaccess.exe")).mkdir(parents=True)
    world.brand(AccPath=world.path(r"\Ordner"))
    assert access_log(world)[-1] == f"Datei existiert nicht: {world.drive}\\Ordner\\msaccess.exe"


@pytest.fixture
def office_key(world):
    key = "HKEY_LOCAL_MACHINE\\" + OFFICE_KEY
    world.remove_keys(key)
    yield key
    world.remove_keys(key)


# The key is the same for all worlds.
@pytest.mark.xdist_group("office")
class TestOfficeKey:
    def test_key_leads_to_access(self, world, office_key):
        world.registry({"OfficeBin": world.path(r"\Office")}, key=office_key)
        world.brand()
        assert access_log(world) == [
            "Office-Schlüssel wird verwendet",
            f"Schlüssel: {OFFICE_KEY}",
            f"Schlüsselinhalt: {world.drive}\\Office",
            f"Verwendeter Pfad: {world.drive}\\Office\\msaccess.exe",
            "Access-EXE: OK",
        ]

    def test_missing_key_ends_the_test_mode_too(self, world, office_key):
        world.brand()
        text = world.shown("/T")
        assert "Nummer       : -2147220478\r\n" in text
        assert text.endswith(
            "\r\n[Access-Pfad]\r\nOffice-Schlüssel wird verwendet\r\n"
            f"Schlüssel: {OFFICE_KEY}\r\nSchlüsselinhalt: \r\nPfad konnte nicht ermittelt werden"
        )

    @pytest.mark.parametrize("value", ["", "dword:00000001", "hex(2):52,00,3a,00,5c,00,00,00"])
    def test_only_text_that_is_not_empty_counts(self, world, office_key, value):
        world.registry({"OfficeBin": value}, key=office_key)
        world.brand()
        assert "Nummer       : -2147220478\r\n" in world.shown("/T")


class TestKeyList:
    def entry(self, world, rest=""):
        return rf"HKCU\Software\{world.key}\Office" + rest

    @pytest.mark.parametrize("name", ["msaccess.exe", "MSACCESS.EXE"])
    def test_value_that_names_the_program_is_used_unchanged(self, world, name):
        value = world.path("\\Office\\" + name)
        world.registry({"Office": value})
        world.brand(AccRegList01=self.entry(world, "%|SubDir|%Unter"))
        sections = world.sections()
        assert sections[""] == f'"{value}"'
        assert sections["Access-Pfad"][-3:] == [
            f"Schlüsselinhalt: {value}",
            f"Access-EXE: {value}",
            "Access-EXE: OK",
        ]

    def test_file_name_field_is_ignored(self, world):
        world.registry({"Office": world.path(r"\Office")})
        world.brand(AccRegList01=self.entry(world, "%|Filename%|anders.exe"))
        assert access_log(world)[1:] == [
            "Gespeicherter Wert: " + self.entry(world, "%|Filename%|anders.exe"),
            " - HKey: HKCU",
            f" - Schlüssel: Software\\{world.key}",
            " - Wertname: Office",
            " - Unterordner: -",
            " - Dateiname: anders.exe",
            f"Schlüsselinhalt: {world.drive}\\Office",
            f"Access-EXE: {world.drive}\\Office\\msaccess.exe",
            "Access-EXE: OK",
        ]

    def test_missing_program_is_a_failed_entry(self, world):
        world.registry({"Office": world.path(r"\Nirgends"), "Zwei": world.path("\\Office\\")})
        world.brand(
            AccRegList03=self.entry(world),
            AccRegList07=rf"hkey_current_user\Software\{world.key}\Zwei",
        )
        log = access_log(world)
        assert log[8:10] == [
            f"Access-EXE: {world.drive}\\Nirgends\\msaccess.exe",
            "Access-EXE: Nicht vorhanden an dieser Position",
        ]
        assert log[11] == " - HKey: HKCU"
        assert log[-2:] == [f"Access-EXE: {world.drive}\\Office\\msaccess.exe", "Access-EXE: OK"]

    def test_list_excludes_the_configured_path(self, world):
        world.brand(AccRegList01=self.entry(world), AccPath=world.path(r"\Office"))
        text = world.shown("/T")
        assert "Nummer       : -2147220469\r\n" in text
        assert "Absoluter Pfad" not in text

    def test_entries_behind_a_hit_are_neither_read_nor_told(self, world):
        world.registry({"Office": world.path(r"\Office")})
        world.brand(AccRegList01=self.entry(world), AccRegList02="HKCU\\Software\\Danach\\Wert")
        assert not any("Danach" in line for line in access_log(world))

    @pytest.mark.parametrize(
        "entry, reason",
        [
            (
                "OhneTrenner",
                "Der Schlüssellisten-Eintrag 'OhneTrenner' ist fehlerhaft bzw. kann nicht "
                "interpretiert werden.",
            ),
            (
                r"FOO\Schlüssel\Wert",
                r"Der Schlüssellisten-Eintrag 'FOO\Schlüssel\Wert' enthält keinen Verweis auf den "
                "HKey.",
            ),
        ],
    )
    def test_entry_that_cannot_be_read_is_told_and_passed_over(self, world, entry, reason):
        world.registry({"Office": world.path(r"\Office")})
        world.brand(AccRegList01=entry, AccRegList02=self.entry(world))
        log = access_log(world)
        assert log[1:3] == [f"Gespeicherter Wert: {entry}", reason]
        assert log[-1] == "Access-EXE: OK"

    def test_two_entries_in_one_field_are_two_entries(self, world):
        world.registry({"Office": world.path(r"\Office")})
        world.brand(
            AccRegList01=rf"HKCU\Software\{world.key}\Nichts%|%" + self.entry(world),
        )
        log = access_log(world)
        assert [line for line in log if line.startswith("Gespeicherter Wert: ")] == [
            rf"Gespeicherter Wert: HKCU\Software\{world.key}\Nichts",
            "Gespeicherter Wert: " + self.entry(world),
        ]
        assert log[-1] == "Access-EXE: OK"

    @pytest.mark.parametrize(
        "root, long",
        [
            ("HKCU", "HKEY_CURRENT_USER"),
            ("hkcr", "HKEY_CLASSES_ROOT"),
            ("HKLM", "HKEY_LOCAL_MACHINE"),
            ("HKU", "HKEY_USERS"),
        ],
    )
    def test_every_root_can_be_read(self, world, root, long):
        below = {
            "HKEY_CURRENT_USER": f"Software\\{world.key}",
            "HKEY_LOCAL_MACHINE": f"SOFTWARE\\{world.key}",
            "HKEY_CLASSES_ROOT": world.key,
            "HKEY_USERS": f".Default\\Software\\{world.key}",
        }[long]
        short = {"HKEY_CURRENT_USER": "HKCU", "HKEY_LOCAL_MACHINE": "HKLM"} | {
            "HKEY_CLASSES_ROOT": "HKCR",
            "HKEY_USERS": "HKU",
        }
        world.registry({"Ort": world.path(r"\Office")}, key=f"{long}\\{below}")
        world.brand(AccRegList01=f"{root}\\{below}\\Ort")
        try:
            log = access_log(world)
        finally:
            world.remove_keys(f"{long}\\{below}")
        assert log[2] == f" - HKey: {short[long]}"
        assert log[-1] == "Access-EXE: OK"

    def test_blanks_at_the_ends_of_a_value_stay(self, world):
        world.registry({"Office": f" {world.drive}\\Office "})
        world.brand(AccRegList01=self.entry(world))
        assert f"\r\nSchlüsselinhalt:  {world.drive}\\Office \r\n" in world.shown("/T")

    def test_value_with_umlauts_is_read(self, world):
        world.add_access(r"\Büro Größe")
        world.registry({"Bürö": world.path(r"\Büro Größe")})
        world.brand(AccRegList01=rf"HKCU\Software\{world.key}\Bürö")
        assert access_log(world)[-2:] == [
            f"Access-EXE: {world.drive}\\Büro Größe\\msaccess.exe",
            "Access-EXE: OK",
        ]

    @pytest.mark.parametrize("kind", ["dword:00000005", "hex:01,02", "hex(2):52,00,00,00"])
    def test_values_of_other_types_count_as_missing(self, world, kind):
        world.registry({"Office": kind})
        world.brand(AccRegList01=self.entry(world))
        assert "\r\n" + NO_LIST + "\r\n" in world.shown("/T")
