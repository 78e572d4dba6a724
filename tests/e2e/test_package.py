"""The package for vendors: the same bytes every time, and everything in it that a vendor needs."""

import os
import pathlib
import re
import subprocess
import sys
import zipfile

import pytest

import configurator
import launcher

ROOT = pathlib.Path(__file__).parents[2]
PACK = ROOT / "scripts" / "lib" / "package.py"
PROGRAMS = ("tarvex.exe", "tarvexcf.com", "tarvexcf.exe")
TEXTS = (".txt", ".ini", ".pc", ".reg", ".html")


def pack(folder, zone):
    folder.mkdir()
    result = subprocess.run(
        [sys.executable, PACK, os.environ["TARVEX_WIN32_DIST"], folder],
        env={**os.environ, "TZ": zone},
        capture_output=True,
        text=True,
        check=False,
    )
    assert (result.returncode, result.stderr) == (0, "")
    (package,) = folder.iterdir()
    assert result.stdout == f"{package}\n"
    return package


@pytest.fixture(scope="module")
def package(tmp_path_factory):
    return pack(tmp_path_factory.mktemp("package") / "dist", "UTC")


@pytest.fixture
def unpacked(package, tmp_path):
    with zipfile.ZipFile(package) as archive:
        archive.extractall(tmp_path)
    return tmp_path


def files(folder):
    return {
        file.relative_to(folder).as_posix(): file.read_bytes()
        for file in folder.rglob("*")
        if file.is_file()
    }


def test_package_is_the_same_every_time(package, tmp_path):
    again = pack(tmp_path / "dist", "America/New_York")
    assert again.name == package.name
    assert again.read_bytes() == package.read_bytes()


def test_name_has_the_version_of_the_programs(package):
    text = (ROOT / "resources" / "Version.h").read_text("utf-8")
    version = re.search(r'TARVEX_VERSION_TEXT "(.+)"', text)[1]
    assert package.name == f"tarvex-{version}-win32.zip"


def test_programs_are_those_that_were_built(unpacked):
    for name in PROGRAMS:
        built = pathlib.Path(os.environ["TARVEX_WIN32_DIST"]) / name
        assert (unpacked / name).read_bytes() == built.read_bytes(), name


def test_package_holds_documents_licence_and_every_sample(unpacked):
    names = set(files(unpacked))
    assert {"LIESMICH.txt", "LICENSE.txt", "CHANGELOG.txt", "docs/handbuch.html"} <= names
    samples = {f"samples/{name}" for name in files(ROOT / "samples")}
    assert {name for name in names if name.startswith("samples/")} == samples


def test_documents_show_only_pictures_that_are_there(unpacked):
    pages = list((unpacked / "docs").glob("*.html"))
    shown = [name for page in pages for name in re.findall(r'src="(.+?)"', page.read_text("utf-8"))]
    assert len(shown) > 5
    assert [name for name in shown if not (unpacked / "docs" / name).is_file()] == []


def test_sums_name_every_file_and_are_right(unpacked):
    sums = (unpacked / "SHA256SUMS").read_text("ascii").splitlines()
    named = [line.split("  ", 1)[1] for line in sums]
    assert sorted(named) == sorted(set(files(unpacked)) - {"SHA256SUMS"})
    check = ["sha256sum", "--strict", "--quiet", "--check", "SHA256SUMS"]
    subprocess.run(check, cwd=unpacked, check=True)


def test_old_editors_show_the_texts(unpacked):
    """That of Windows XP knows lines by CR LF only, and umlauts by the mark before them."""
    for name, content in files(unpacked).items():
        if not name.endswith(TEXTS):
            continue
        assert content.count(b"\n") == content.count(b"\r\n") > 0, name
        marked = content.startswith(b"\xef\xbb\xbf")
        assert marked == (not content.isascii() and not name.endswith(".html")), name


def test_programs_alone_can_be_executed(package):
    with zipfile.ZipFile(package) as archive:
        modes = {entry.filename: entry.external_attr >> 16 for entry in archive.infolist()}
    assert {name for name, mode in modes.items() if mode & 0o111} == set(PROGRAMS)


def test_missing_program_is_told(tmp_path):
    result = subprocess.run(
        [sys.executable, PACK, tmp_path, tmp_path], capture_output=True, text=True, check=False
    )
    assert result.returncode == 1
    assert "tarvex.exe" in result.stderr and "Traceback" not in result.stderr
    assert list(tmp_path.iterdir()) == []


@pytest.mark.also_win64
def test_unpacked_package_configures_the_sample(world, package):
    folder = world.unix(world.path(r"\Tarvex für Anbieter"))
    with zipfile.ZipFile(package) as archive:
        archive.extractall(folder)
    tool = configurator.Wine()
    tool.program = folder / "tarvexcf.com"
    settings = "samples/kunden/Kunden.ini"
    target = "samples/kunden/Kunden.exe"

    checked = tool.run(folder, "check", settings)
    assert (checked.code, checked.err) == (0, "")
    branded = tool.run(folder, "brand", "tarvex.exe", target, "--settings", settings)
    assert (branded.code, branded.err) == (0, "")
    simulated = tool.run(folder, "simulate", target, "samples/pcs")
    assert simulated.code == 0, simulated

    place = world.path(r"\Tarvex für Anbieter\samples\kunden")
    for name in ("Kunden.mdb", "System.mdw"):
        world.write(rf"\Tarvex für Anbieter\samples\kunden\Daten\{name}")
    key = r"HKEY_CURRENT_USER\SOFTWARE\Muster"
    world.registry(
        {"AccessPfad": world.path(r"\Office"), "Installationspfad": place}, key + r"\Kunden"
    )
    try:
        world.exe = place + r"\Kunden.exe"
        line = launcher.lines(world.shown("/T"))[2]
    finally:
        world.remove_keys(key)
    assert line == (
        rf'"{world.drive}\Office\msaccess.exe" "{place}\Daten\Kunden.mdb" '
        rf'/wrkgrp "{place}\Daten\System.mdw" /Runtime /user "XXXX" /pwd "YYYY" /cmd "Mandant 1"'
    )
