"""Launchers in all kinds of folders, on all kinds of drives, under all kinds of names."""

import os
import shutil
import stat
import subprocess

import pytest


@pytest.mark.parametrize(
    "folder",
    [
        r"\Mein Programm",
        r"\Büro Größe Äß",
        "\\日本語 データ",
        r"\Программы и файлы",
        r"\a'b & (c) %TEMP% ^ ! #",
        "\\" + "\\".join(["lang" * 12] * 4),
    ],
)
def test_any_folder_will_do(world, folder):
    world.use(folder + r"\Start.exe")
    world.write(folder + r"\Start.mdb")
    world.brand_with_access(Log="1")
    assert world.started()["line"] == (
        f'"{world.drive}\\Office\\msaccess.exe" "{world.drive}{folder}\\Start.mdb"'
    )
    assert world.exists(folder + r"\Start.log")
    assert world.shown("/T").startswith("Das Startprogramm würde die folgende Befehlszeile")


@pytest.mark.parametrize("name", ["Kunden", "Kunden ü", "数据", "Kunden.v2", "T", "D x"])
def test_any_name_will_do(world, name):
    world.use(f"\\Prog\\{name}.exe")
    world.write(f"\\Prog\\{name}.mde")
    world.brand_with_access(Log="1")
    assert world.started()["line"].endswith(f'"{world.drive}\\Prog\\{name}.mde"')
    assert world.exists(f"\\Prog\\{name}.log")


def test_drives_root_has_one_backslash(world):
    world.use(r"\Start.exe")
    world.write(r"\Start.mdb")
    world.write(r"\Daten\System.mdw")
    world.brand_with_access(Log="1", SysDBPath="Daten", SysDBFilename="System.mdw")
    assert world.started()["line"] == (
        f'"{world.drive}\\Office\\msaccess.exe" "{world.drive}\\Start.mdb"'
        f' /wrkgrp "{world.drive}\\Daten\\System.mdw"'
    )
    assert world.exists(r"\Start.log")
    sections = world.sections()
    assert sections["Datenbank-Pfad"][-2:] == [f" - OK: {world.drive}\\Start.mdb", "Datenbank: OK"]
    assert sections["SysDB-Pfad"][0] == f"Absoluter Pfad: {world.drive}\\Daten\\"


def test_copy_under_another_name_follows_its_own_name(world):
    world.write(r"\Prog\Start.mdb")
    world.write(r"\Woanders\Lager.mdb")
    world.brand_with_access(Log="1")
    original = world.unix(world.exe)
    world.use(r"\Woanders\Lager.exe")
    shutil.copyfile(original, world.unix(world.exe))
    assert world.started()["line"].endswith(f'"{world.drive}\\Woanders\\Lager.mdb"')
    assert world.exists(r"\Woanders\Lager.log")
    assert not world.exists(r"\Prog\Start.log")


def test_read_only_program_in_a_read_only_folder(world):
    world.write(r"\Prog\Start.mdb")
    world.brand_with_access(Log="1")
    program = world.unix(world.exe)
    program.chmod(stat.S_IRUSR | stat.S_IXUSR)
    mounted = False
    if os.geteuid() == 0:
        # Root writes wherever it likes unless the file system itself is read-only.
        mount = ["mount", "--bind", "-o", "ro", program.parent, program.parent]
        mounted = subprocess.run(mount, stderr=subprocess.DEVNULL, check=False).returncode == 0
        if not mounted:
            pytest.skip("this machine lets root neither mount nor be kept from writing")
    else:
        program.parent.chmod(stat.S_IRUSR | stat.S_IXUSR)
    try:
        assert world.started()["line"].endswith('Start.mdb"')
        assert world.shown("/T").startswith("Das Startprogramm würde")
    finally:
        if mounted:
            # Wine may still have the program open for a moment after its end.
            subprocess.run(["umount", "--lazy", program.parent], check=True)
        else:
            program.parent.chmod(stat.S_IRWXU)
    assert not world.exists(r"\Prog\Start.log")


def test_current_folder_does_not_matter(world):
    world.write(r"\Prog\Start.mdb")
    world.write(r"\Office\Start.mdb")
    world.brand_with_access(SysDBFilename="System.mdw")
    world.write(r"\Prog\System.mdw")
    here = world.shown("/T", folder=world.path(r"\Office"))
    assert here == world.shown("/T", folder=world.path("\\"))
    assert f'"{world.drive}\\Prog\\Start.mdb"' in here
