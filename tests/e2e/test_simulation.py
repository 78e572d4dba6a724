"""`tarvexcf simulate` says of described computers what the real launcher shows on them."""

import difflib
import json
import os
import pathlib
import re

import pytest

import configurator
import launcher
import randomworld

# The ordinary run takes a share of the worlds; scripts/compare-simulation.sh takes all.
FIRST = int(os.environ.get("TARVEX_FIRST_WORLD", "1"))
COUNT = int(os.environ.get("TARVEX_WORLDS", "12"))


@pytest.fixture(scope="module")
def drawings(programs, tmp_path_factory):
    return randomworld.draw(programs.worlds, FIRST, COUNT, tmp_path_factory.mktemp("worlds"))


@pytest.fixture
def make_real(world, drawings):
    made = []

    def make(index):
        made.append(randomworld.RandomWorld(world, drawings[index]))
        return made[-1]

    yield make
    for one in made:
        one.close()


@pytest.mark.also_win64
@pytest.mark.parametrize("index", range(COUNT), ids=lambda index: f"seed {FIRST + index}")
def test_described_world_shows_the_text_of_the_real_one(make_real, index):
    real = make_real(index)
    shown = real.shown()
    assert_same(real.simulate(real.describe())["text"], shown)
    # What the Windows program finds there gives the same text on another system, and leaves no
    # question open.
    collected = real.simulate(real.collect())
    assert_same(collected["text"], shown)
    assert collected["undescribed"] == []


def assert_same(simulated, shown):
    lines = difflib.unified_diff(launcher.lines(simulated), launcher.lines(shown), lineterm="")
    assert simulated == shown, "\n".join(lines)


def test_collected_description_is_replaced_only_with_force(world):
    world.write(r"\Prog\Kunden.mdb")
    world.brand_with_access(DBFilename="Kunden.mdb", User="Meier", Pwd="Geheimnis")
    program = configurator.Wine()
    folder = world.work / "Sammlung"
    folder.mkdir()
    place = launcher.windows_path(folder)
    collect = ("collect", world.exe, place)
    result = program.run(world.work, *collect, "--dry-run")
    assert (result.code, result.err) == (0, "")
    assert "\nStartprogramm = " + world.path(r"\Prog\Start.exe") + "\n" in result.out
    assert result.out.endswith(f"{place}: Die Beschreibung würde geschrieben.\n")
    assert list(folder.iterdir()) == []
    result = program.run(world.work, *collect)
    assert (result.code, result.out, result.err) == (
        0,
        f"{place}: Die Beschreibung ist geschrieben.\n",
        "",
    )
    (file,) = folder.iterdir()
    assert file.name == "Start.pc"
    text = file.read_text(encoding="utf-8")
    assert "\nDatei = " + world.path(r"\Office\msaccess.exe") + "\n" in text
    assert "Meier" not in text and "Geheimnis" not in text
    file.write_text("alt")
    result = program.run(world.work, *collect)
    assert (result.code, result.out, result.err) == (
        1,
        "",
        f"tarvexcf: {place}\\Start.pc: Die Datei ist schon vorhanden; --force ersetzt sie.\n",
    )
    assert file.read_text() == "alt"
    assert program.run(world.work, *collect, "--force").code == 0
    assert file.read_text(encoding="utf-8") == text


def test_launcher_without_settings_is_not_collected_for(world):
    world.copy_unbranded()
    result = configurator.Wine().run(world.work, "collect", world.exe, "C:\\")
    assert (result.code, result.err) == (
        1,
        f"tarvexcf: {world.exe}: Das Startprogramm ist noch nicht konfiguriert.\n",
    )


SAMPLES = pathlib.Path(__file__).parents[2] / "samples"


class Sample:
    """A described PC of the samples on a world's drive, with a registry key of the test's own."""

    def __init__(self, world, name):
        self.world = world
        self._lock = randomworld.hold_office_keys(world, True)
        self.folder = world.work / "sample"
        self.folder.mkdir()
        self._keys = set()
        for file in [*(SAMPLES / "pcs").glob(name + ".*"), SAMPLES / "kunden" / "Kunden.ini"]:
            text = re.sub("(?<![A-Za-z])[CDE]:", world.drive, file.read_text(encoding="utf-8"))
            text = text.replace("\\Muster", "\\" + world.key)
            (self.folder / file.name).write_text(text, encoding="utf-8")
        self.description = self.folder / (name + ".pc")
        lines = self.description.read_text(encoding="utf-8").splitlines()
        self._make_files([line[len("Datei = ") :] for line in lines if line.startswith("Datei = ")])
        for listed in self.folder.glob("*.txt"):
            self._make_files(listed.read_text(encoding="utf-8").splitlines())
        (self.program,) = [line for line in lines if line.startswith("Startprogramm = ")]
        self.program = self.program[len("Startprogramm = ") :]
        world.use(self.program[2:])
        self.run("brand", world.programs.launcher, world.unix(world.exe), "--force",
                 "--settings", "Kunden.ini")  # fmt: skip
        self._make_registry((self.folder / (name + ".reg")).read_text(encoding="utf-8"))

    def run(self, *arguments):
        result = configurator.Native().run(self.folder, *arguments)
        assert result.code == 0, result
        return result

    def _make_files(self, paths):
        for path in paths:
            self.world.write(path[2:])

    def _make_registry(self, text):
        """By single values: only so they can be put into the view that 64-bit programs see."""
        view = ["/reg:64"] if launcher.WIN64 else []
        for line in text.splitlines():
            if line.startswith("["):
                key = line[1:-1]
            elif '"="' in line:  # what the sample deletes is not there
                name, value = line[1:-1].replace("\\\\", "\\").split('"="')
                self._keys.add(key)
                launcher.wine("reg", "add", key, "/v", name, "/d", value, "/f", *view)

    def close(self):
        view = ["/reg:64"] if launcher.WIN64 else []
        for key in self._keys:
            launcher.wine("reg", "delete", key, "/f", *view)
        self._lock.close()


@pytest.mark.parametrize(
    "name",
    [
        pytest.param("Buchhaltung", marks=pytest.mark.win64),
        pytest.param("Lager", marks=pytest.mark.win64),
        "Empfang",
    ],
)
def test_described_sample_shows_the_text_of_the_real_one(world, name):
    sample = Sample(world, name)
    try:
        shown = world.shown("/T", folder=sample.program.rpartition("\\")[0])
    finally:
        sample.close()
    result = sample.run("simulate", world.unix(world.exe), sample.description, "--json")
    (pc,) = json.loads(result.out)["pcs"]
    assert_same(pc["text"], shown)
