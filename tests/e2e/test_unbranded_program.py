"""The shipped program before it is configured, as the configurator reads it."""

import json
import shutil

import pytest

import brandfile
import configurator


@pytest.fixture
def program():
    return configurator.Native()


def test_all_fields_are_there_and_empty(program, programs, tmp_path):
    shutil.copyfile(programs.launcher, tmp_path / "T.exe")
    result = program.run(tmp_path, "show", "T.exe", "--all", "--json")
    assert (result.code, result.err) == (0, "")
    shown = json.loads(result.out)
    assert shown["branded"] is False
    names = [mark.name for mark in brandfile.BrandFile.read(programs.launcher).marks]
    assert len(names) == 67
    assert shown["values"] == {name: "" for name in names}


def test_branding_without_settings_changes_the_marker_alone(program, programs, tmp_path):
    before = programs.launcher.read_bytes()
    (tmp_path / "T.exe").write_bytes(before)
    (tmp_path / "leer.ini").write_text("; nichts\n", encoding="utf-8")
    result = program.run(tmp_path, "brand", "T.exe", "K.exe", "--settings", "leer.ini")
    assert (result.code, result.refusals) == (0, "")
    after = (tmp_path / "K.exe").read_bytes()
    assert after == before.replace(brandfile.UNBRANDED, brandfile.BRANDED)
    assert after != before
