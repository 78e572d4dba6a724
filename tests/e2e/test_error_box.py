"""The box that every error of a launch ends in, and what its buttons do."""

import pytest

import launcher
from launcher import BOX, END, LOG


@pytest.fixture
def failing(world):
    """A world whose launcher finds no Access."""
    world.brand(AccPath=world.path(r"\Nirgends"))
    return world


def brand_with_help(world, extension="chm", **fields):
    fields.setdefault("HCID", "1000")
    world.write("\\Prog\\Start." + extension, b"no help file at all")
    world.brand(AccPath=world.path(r"\Nirgends"), **fields)


def help_failed(world):
    return (
        f"Die Hilfedatei '{world.drive}\\Prog\\Start.chm' konnte nicht mit dem Hilfethema 1000 "
        "geöffnet werden."
    )


def test_end_button_ends_the_program(failing):
    box = failing.error_box()
    assert box.class_name == "#32770"
    assert [c["id"] for c in box.of_class("Static") if c["id"] != 65535] == [1088]  # the icon


def test_details_button_ends_after_the_log_window(failing):
    run = failing.run("", [BOX, ("press", "caption", "&Details"), LOG, ("close",), *END])
    window = run.windows()[-1]
    assert window.title == "Tarvex - Debug"
    assert window.edit["text"].startswith("Tarvex - Erweiterte Fehlerinformationen:\r\n\r\nNummer ")


@pytest.mark.parametrize("closing", ["close", "titlebar"])
def test_closing_the_box_ends_the_program(failing, closing):
    failing.run("", [BOX, (closing,), *END])


def test_box_tells_neither_number_nor_reason(failing):
    box = failing.error_box()
    assert "-2147220477" not in box.box_text and "msaccess.exe" not in box.box_text


@pytest.mark.also_win64
def test_vendors_text_stands_below_an_empty_line(world):
    world.brand(AccPath="x", ErrBoxText="Rufen Sie Herrn Müller an: 0911/4711.@@Danke ##!")
    # What the vendor typed is shown as typed.
    assert world.error_box().box_text == (
        launcher.BOX_TEXT + "\r\n\r\nRufen Sie Herrn Müller an: 0911/4711.@@Danke ##!"
    )


def test_vendors_text_may_have_several_lines(world):
    world.brand(AccPath="x", ErrBoxText="eins\r\nzwei")
    assert world.error_box().box_text == launcher.BOX_TEXT + "\r\n\r\neins\r\nzwei"


def test_vendors_details_are_wrapped_above_the_report(world):
    text = "Bitte wenden Sie sich an die Hotline und halten Sie Ihre Kundennummer bereit, " * 3
    world.brand(AccPath=world.path(r"\Nirgends"), ErrDebugText=text.strip())
    heading, wrapped, report, _ = world.details().split("\r\n\r\n", 3)
    assert heading == launcher.DETAILS_HEADING
    assert launcher.lines(wrapped) == [
        "Bitte wenden Sie sich an die Hotline und halten Sie Ihre Kundennummer bereit, Bitte "
        "wenden",
        "Sie sich an die Hotline und halten Sie Ihre Kundennummer bereit, Bitte wenden Sie sich an",
        "die Hotline und halten Sie Ihre Kundennummer bereit,",
    ]
    assert report.startswith("Nummer       : ")


def test_vendors_details_are_left_out_in_test_mode(world):
    world.brand(AccRegList01="HKCU\\Software\\Nichts\\Da", ErrDebugText="Hotline")
    assert "Hotline" not in world.shown("/T")


@pytest.mark.parametrize("extension", ["chm", "hlp"])
def test_help_file_and_topic_give_a_third_button(world, extension):
    brand_with_help(world, extension)
    assert world.error_box().buttons == ["&Beenden", "&Details", "&Hilfe"]


@pytest.mark.parametrize("topic", ["", "12x"])
def test_no_third_button_without_a_topic(world, topic):
    brand_with_help(world, HCID=topic)
    assert world.error_box().buttons == ["&Beenden", "&Details"]


@pytest.mark.parametrize("topic", ["0", " 12 "])
def test_any_number_is_a_topic(world, topic):
    brand_with_help(world, HCID=topic)
    assert world.error_box().buttons == ["&Beenden", "&Details", "&Hilfe"]


def test_no_third_button_without_a_help_file(world):
    world.write(r"\Prog\Anders.chm")
    world.unix(world.path(r"\Prog\Start.chm")).mkdir()
    world.brand(AccPath="x", HCID="1000")
    assert world.error_box().buttons == ["&Beenden", "&Details"]


def test_help_pressed_three_times_shows_the_box_four_times(world):
    brand_with_help(world)
    message = ("window", "class=#32770", "new=")
    steps = []
    for _ in range(3):
        steps += [BOX, ("press", "caption", "&Hilfe"), ("gone",)]
        steps += [message, ("press", "caption", "OK"), ("gone",)]
    steps += [BOX, ("press", "caption", "&Beenden"), *END]
    windows = world.run("", steps).windows()
    boxes, messages = windows[0::2], windows[1::2]
    assert [box.box_text for box in boxes] == 4 * [launcher.BOX_TEXT]
    assert [box.buttons for box in boxes] == 4 * [["&Beenden", "&Details", "&Hilfe"]]
    assert [message.box_text for message in messages] == 3 * [help_failed(world)]


def test_compiled_help_is_preferred(world):
    world.write(r"\Prog\Start.hlp")
    brand_with_help(world)
    steps = [BOX, ("press", "caption", "&Hilfe"), ("gone",), ("window", "new="), ("close",)]
    steps += [("gone",), BOX, ("press", "caption", "&Beenden"), *END]
    assert world.run("", steps).windows()[1].box_text == help_failed(world)


def test_details_after_help(world):
    brand_with_help(world)
    steps = [BOX, ("press", "caption", "&Hilfe"), ("gone",), ("window", "new="), ("close",)]
    steps += [("gone",), BOX, ("press", "caption", "&Details"), ("gone",), LOG, ("close",), *END]
    assert world.run("", steps).windows()[-1].title == "Tarvex - Debug"


def test_captions_fit_their_buttons(failing):
    for button in failing.error_box().of_class("Button"):
        # A character of the box's font is at least five pixels wide.
        assert button["rect"][2] > 5 * len(button["text"])
