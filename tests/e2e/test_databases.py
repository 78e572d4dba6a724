"""How the database, the workgroup database and the profile are found."""

import pytest

NEEDS_DATABASE = (
    "Datenbank nicht angegeben, aber eine der Optionen /Runtime, /ReadOnly, /Compact, "
    "/Repair /Decompile/Macro/Cmd"
)


class TestDatabase:
    def test_folder_and_name(self, world):
        world.write(r"\Daten\Kunden.mdb")
        world.brand_with_access(DBPath=world.path(r"\Daten"), DBFilename="Kunden.mdb")
        assert world.sections()["Datenbank-Pfad"] == [
            f"Berechneter Pfad: {world.drive}\\Daten\\",
            f"Datenbank: : {world.drive}\\Daten\\Kunden.mdb",
            "Datenbank: OK",
        ]

    def test_folder_above_the_launchers(self, world):
        world.write(r"\Daten\Kunden.mdb")
        world.brand_with_access(DBPath=r"..\Daten", DBFilename="Kunden.mdb")
        assert world.sections()["Datenbank-Pfad"] == [
            r"Relativer Pfad: ..\Daten",
            f"Absoluter Pfad: {world.drive}\\Daten\\",
            f"Berechneter Pfad: {world.drive}\\Daten\\",
            f"Datenbank: : {world.drive}\\Daten\\Kunden.mdb",
            "Datenbank: OK",
        ]

    def test_folder_without_name_gives_no_database(self, world):
        world.write(r"\Prog\Start.mdb")
        world.brand_with_access(DBPath=world.path(r"\Prog"), Exclusive="1")
        sections = world.sections()
        assert sections["Datenbank-Pfad"] == [
            "Kein Dateiname angegeben, Pfad kann nicht ermittelt werden"
        ]
        assert sections[""] == f'"{world.drive}\\Office\\msaccess.exe" /Excl'

    def test_name_alone_is_looked_for_beside_the_launcher(self, world):
        world.write(r"\Prog\Kunden.mdb")
        world.brand_with_access(DBFilename="Kunden.mdb")
        assert world.sections(folder=world.path(r"\Office"))["Datenbank-Pfad"] == [
            "Kein Pfad angegeben, im aktuellen Verzeichnis suchen",
            f"Datenbank: {world.drive}\\Prog\\Kunden.mdb",
            "Datenbank: OK",
        ]

    @pytest.mark.parametrize("there", ["mdb", "mde", "mda"])
    def test_file_named_like_the_launcher_is_taken_in_order(self, world, there):
        extensions = ["mdb", "mde", "mda"]
        misses = extensions[: extensions.index(there)]
        for extension in extensions[extensions.index(there) :]:
            world.write(r"\Prog\Start." + extension)
        world.brand_with_access()
        expected = [
            "Kein Pfad angegeben, im aktuellen Verzeichnis suchen",
            "Kein Dateiname angegeben, im aktuellen Verzeichnis suchen",
        ]
        base = f"{world.drive}\\Prog\\Start."
        for extension in misses:
            expected += [f"Suche nach: {base}{extension}", " - nicht vorhanden"]
        expected += [f"Suche nach: {base}{there}", f" - OK: {base}{there}", "Datenbank: OK"]
        # Not the current folder counts but the launcher's.
        assert world.sections(folder=world.path(r"\Office"))["Datenbank-Pfad"] == expected

    def test_no_file_at_all_starts_access_alone(self, world):
        world.brand_with_access(Exclusive="1", NoStartup="1", Profile="P", User="Meier")
        sections = world.sections()
        assert sections["Datenbank-Pfad"][-1] == "Keine Datenbank gefunden"
        assert sections[""] == (
            f'"{world.drive}\\Office\\msaccess.exe" /Excl /nostartup /Profile "P" /user "XXXX"'
        )

    @pytest.mark.parametrize("field", ["Macro", "Runtime"])
    def test_options_that_need_a_database_are_refused_without(self, world, field):
        world.brand_with_access(**{field: "1"})
        log = world.sections()["Datenbank-Pfad"]
        assert log[-2:] == ["Keine Datenbank gefunden", NEEDS_DATABASE]
        assert "Nummer       : -2147220474\r\n" in world.details()

    @pytest.mark.parametrize("tail", ["/Compact", "/Repair"])
    def test_switches_need_a_database_as_well(self, world, tail):
        world.brand_with_access()
        assert "Nummer       : -2147220474\r\n" in world.details(tail)

    def test_message_names_the_launchers_file(self, world):
        world.use(r"\Prog\Lager.v2.exe")
        world.brand_with_access(Runtime="1")
        assert "namens\r\n               'Lager.v2.mdb/mde/mda' im Programmpfad" in world.details()

    def test_failed_list_leaves_the_options_alone_in_test_mode(self, world):
        world.brand_with_access(DBRegList01=rf"HKCU\Software\{world.key}\Nichts", Runtime="1")
        sections = world.sections()
        assert sections["Datenbank-Pfad"][-1] == "Pfad konnte nicht ermittelt werden"
        assert sections["SysDB-Pfad"] == ["Keine SysDB"]
        assert sections[""] == f'"{world.drive}\\Office\\msaccess.exe" /Runtime'

    def test_list_excludes_folder_and_search(self, world):
        world.write(r"\Prog\Start.mdb")
        world.brand_with_access(
            DBRegList01=rf"HKCU\Software\{world.key}\Nichts",
            DBPath=world.path(r"\Prog"),
            DBFilename="Start.mdb",
        )
        assert "Nummer       : -2147220467\r\n" in world.details()


@pytest.mark.parametrize(
    "field, section, prefix",
    [("DBRegList", "Datenbank-Pfad", "Datenbank"), ("SysDBRegList", "SysDB-Pfad", "SysDB")],
)
class TestKeyLists:
    def log(self, world, field, section, rest, value):
        self.entry = rf"HKCU\Software\{world.key}\Ort" + rest
        if value is not None:
            world.registry({"Ort": value})
        world.brand_with_access(**{field + "01": self.entry})
        log = world.sections()[section]
        assert log[:2] == ["Schlüsselliste wird aufgelöst", f"Gespeicherter Wert: {self.entry}"]
        assert log[2:5] == [
            " - HKey: HKCU",
            rf" - Schlüssel: Software\{world.key}",
            " - Wertname: Ort",
        ]
        return log[5:]

    def test_value_with_folder_and_file(self, world, field, section, prefix):
        path = world.write(r"\Firma\Daten\Kunden.mdb")
        log = self.log(
            world, field, section, "%|SubDir|%Daten%|Filename%|Kunden.mdb", world.path(r"\Firma")
        )
        assert log == [
            " - Unterordner: Daten",
            " - Dateiname: Kunden.mdb",
            f"Schlüsselinhalt: {world.drive}\\Firma",
            f"Schlüsselinhalt um Unterpfad ergänzt: {path}",
            f"{prefix}: {path}",
            f"{prefix}: OK",
        ]

    def test_markers_in_any_case(self, world, field, section, prefix):
        path = world.write(r"\Firma\Daten\Kunden.mdb")
        rest = "%|SUBDIR|%Daten\\%|filename%|Kunden.mdb"
        log = self.log(world, field, section, rest, world.path("\\Firma\\"))
        assert log[-3:] == [
            f"Schlüsselinhalt um Unterpfad ergänzt: {path}",
            f"{prefix}: {path}",
            f"{prefix}: OK",
        ]

    def test_value_with_file_only(self, world, field, section, prefix):
        path = world.write(r"\Firma\Kunden.mdb")
        log = self.log(world, field, section, "%|Filename%|Kunden.mdb", world.path(r"\Firma"))
        assert log == [
            " - Unterordner: -",
            " - Dateiname: Kunden.mdb",
            f"Schlüsselinhalt: {world.drive}\\Firma",
            f"{prefix}: {path}",
            f"{prefix}: OK",
        ]

    def test_value_that_is_the_whole_path(self, world, field, section, prefix):
        path = world.write(r"\Firma\Kunden.mdb")
        log = self.log(world, field, section, "", path)
        assert log[2:] == [f"Schlüsselinhalt: {path}", f"{prefix}: {path}", f"{prefix}: OK"]

    def test_folder_without_file_fails(self, world, field, section, prefix):
        log = self.log(world, field, section, "%|SubDir|%Daten", world.path(r"\Firma"))
        assert log == [
            " - Unterordner: Daten",
            " - Dateiname: -",
            f"Schlüsselinhalt: {world.drive}\\Firma",
            "Unterpfad (Daten) angegeben, aber kein Dateiname. Pfad kann nicht aufgelöst werden.",
            "Pfad konnte nicht ermittelt werden",
        ]

    def test_value_that_ends_as_a_folder_fails(self, world, field, section, prefix):
        log = self.log(world, field, section, "", world.path("\\Firma\\"))
        assert log[-2:] == [
            "Schlüsselinhalt enthält einen Pfad und es ist kein Dateiname angegeben. "
            "Der Datenbankname kann nicht aufgelöst werden.",
            "Pfad konnte nicht ermittelt werden",
        ]

    def test_missing_file_fails_with_two_colons(self, world, field, section, prefix):
        log = self.log(world, field, section, "%|Filename%|fehlt.mdb", world.path(r"\Firma"))
        assert log[-3:] == [
            f"{prefix}: {world.drive}\\Firma\\fehlt.mdb",
            f"{prefix}: : Nicht vorhanden an dieser Position",
            "Pfad konnte nicht ermittelt werden",
        ]

    @pytest.mark.parametrize("value", [None, ""])
    def test_missing_and_empty_values_fail(self, world, field, section, prefix, value):
        log = self.log(world, field, section, "%|Filename%|x.mdb", value)
        assert log[-2:] == [
            "Schlüsselinhalt: <nicht vorhanden oder kein Inhalt>",
            "Pfad konnte nicht ermittelt werden",
        ]

    def test_first_file_that_exists_wins(self, world, field, section, prefix):
        path = world.write(r"\Firma\Zwei.mdb")
        world.write(r"\Firma\Drei.mdb")
        world.registry({"Ort": world.path(r"\Firma")})
        entry = rf"HKCU\Software\{world.key}\Ort%|Filename%|"
        world.brand_with_access(
            **{
                field + "02": entry + "Eins.mdb",
                field + "05": "Unlesbar",
                field + "06": entry + "Zwei.mdb",
                field + "10": entry + "Drei.mdb",
            }
        )
        log = world.sections()[section]
        assert [line for line in log if line.startswith("Gespeicherter Wert: ")] == [
            f"Gespeicherter Wert: {entry}Eins.mdb",
            "Gespeicherter Wert: Unlesbar",
            f"Gespeicherter Wert: {entry}Zwei.mdb",
        ]
        assert log[-2:] == [f"{prefix}: {path}", f"{prefix}: OK"]


class TestWorkgroup:
    def test_nothing_set(self, world):
        world.brand_with_access()
        sections = world.sections()
        assert sections["SysDB-Pfad"] == ["Keine SysDB"]
        assert "/wrkgrp" not in sections[""]

    def test_folder_and_name(self, world):
        path = world.write(r"\Daten\System.mdw")
        world.brand_with_access(SysDBPath=world.path(r"\Daten"), SysDBFilename="System.mdw")
        sections = world.sections()
        assert sections["SysDB-Pfad"] == [
            f"Berechneter Pfad: {world.drive}\\Daten\\",
            f"SysDB: : {path}",
            "SysDB: OK",
        ]
        assert sections[""].endswith(f' /wrkgrp "{path}"')

    def test_folder_without_name(self, world):
        world.brand_with_access(SysDBPath=world.path(r"\Daten"))
        sections = world.sections()
        assert sections["SysDB-Pfad"] == [
            "Kein Dateiname angegeben, Pfad kann nicht ermittelt werden"
        ]
        assert "/wrkgrp" not in sections[""]

    def test_name_alone(self, world):
        path = world.write(r"\Prog\System.mdw")
        world.brand_with_access(SysDBFilename="System.mdw")
        assert world.sections()["SysDB-Pfad"] == [f"SysDB: {path}", "SysDB: OK"]


class TestProfile:
    def test_none(self, world):
        world.brand_with_access()
        assert world.sections()["Profil"] == ["Kein Profil eingestellt"]

    def test_profile_is_passed_on_unchecked(self, world):
        world.brand_with_access(Profile="Büro Nord")
        sections = world.sections()
        assert sections["Profil"] == ["Profil: Büro Nord"]
        assert sections[""].endswith(' /Profile "Büro Nord"')
