"""The launcher's own switches, in all spellings, and what they change."""

import pytest

import launcher

INFO_HEADING = "AppName = "


@pytest.fixture
def branded(world):
    world.write(r"\Prog\Start.mdb")
    world.brand_with_access()
    return world


def command_line(text):
    """The composed line in the text of the test mode."""
    return launcher.lines(text)[2]


@pytest.mark.parametrize("tail", ["/T", "x / t/Nothing more"])
def test_test_mode_is_switched_on(branded, tail):
    assert branded.shown(tail).startswith(
        "Das Startprogramm würde die folgende Befehlszeile ausführen:\r\n\r\n"
    )
    assert branded.nothing_started()


@pytest.mark.parametrize("tail", ["", "T -T \\T", '/Test /Compacts // "/"T'])
def test_everything_else_starts_access_unchanged(branded, tail):
    expected = f'"{branded.drive}\\Office\\msaccess.exe" "{branded.drive}\\Prog\\Start.mdb"'
    assert branded.started(tail)["line"] == expected


@pytest.mark.parametrize(
    "tail, switches",
    [
        ("/Compact", " /Compact"),
        ("/rEPAIR", " /Repair"),
        ("/Repair/compact", " /Compact /Repair"),
    ],
)
def test_compact_and_repair_are_added_to_the_line(branded, tail, switches):
    branded.brand_with_access(Compact="0", Repair="")
    assert branded.started(tail)["line"].endswith('Start.mdb"' + switches)
    assert command_line(branded.shown("/T" + tail)).endswith('Start.mdb"' + switches)


def test_switches_never_clear_what_is_configured(branded):
    branded.brand_with_access(Compact="1", Repair="1")
    assert branded.started()["line"].endswith(" /Compact /Repair")
    assert branded.started("/Repair")["line"].endswith(" /Compact /Repair")


@pytest.mark.parametrize(
    "tail", [pytest.param("/D", marks=pytest.mark.also_win64), "/T /d geheim"]
)
def test_info_mode_without_password_shows_the_report(branded, tail):
    branded.brand_with_access(Log="1")
    text = branded.shown(tail)
    assert INFO_HEADING in launcher.lines(text)
    assert not text.startswith("Das Startprogramm")
    assert branded.nothing_started()
    assert not branded.exists(r"\Prog\Start.log")


@pytest.mark.parametrize("tail", ["/D geheim", "/D falsch /T /d  geheim extra"])
def test_right_password_shows_the_report(branded, tail):
    branded.brand_with_access(EditPwd="geheim")
    assert INFO_HEADING in launcher.lines(branded.shown(tail))


@pytest.mark.parametrize("tail", ["/D Geheim", "/D", "/D/geheim"])
def test_wrong_password_is_told_and_nothing_else_happens(branded, tail):
    branded.brand_with_access(EditPwd="geheim", Log="1", AppName="Kunden")
    steps = [("window", "class=#32770"), ("press", "caption", "OK"), ("gone",), ("exit",)]
    (box,) = branded.run(tail, steps).windows()
    assert box.title == "Kunden"
    assert box.box_text == "Das Kennwort für die Diagnoseinformationen ist falsch."
    assert box.buttons == ["OK"]
    assert branded.nothing_started()
    assert not branded.exists(r"\Prog\Start.log")


def test_wrong_password_is_titled_by_the_product_without_an_application_name(branded):
    branded.brand_with_access(EditPwd="geheim")
    steps = [("window", "class=#32770"), ("press", "caption", "OK"), ("gone",), ("exit",)]
    assert branded.run("/D", steps).windows()[0].title == "Tarvex"


def test_password_with_umlauts_is_compared_by_its_characters(branded):
    branded.brand_with_access(EditPwd="Schlüßel")
    assert INFO_HEADING in launcher.lines(branded.shown("/D Schlüßel"))


@pytest.mark.parametrize("name", ["a /T b", "a", "/T/D/Compact"])
def test_program_name_of_the_command_line_makes_no_switches(branded, name):
    line = f'"{name}"'
    assert branded.started(line=line)["line"].endswith('Start.mdb"')


def test_unquoted_program_name_ends_at_the_first_blank(branded):
    assert branded.shown(line="C:/T/D/Start.exe /T").startswith("Das Startprogramm würde")


def test_switches_are_not_read_before_the_marker(world):
    world.copy_unbranded()
    for tail in ("/T", "/D"):
        assert world.error_box(tail).buttons == ["&Beenden", "&Details"]
