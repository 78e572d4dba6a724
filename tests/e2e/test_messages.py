"""The numbered texts of the shipped program."""

import pathlib
import re

import pefile

from test_image import string_table

SOURCE = pathlib.Path(__file__).parents[2] / "resources" / "Messages.inc"


def test_program_holds_every_message_and_no_other(programs):
    text = SOURCE.read_text(encoding="utf-8")
    messages = dict(re.findall(r'^TARVEX_MESSAGE\((\d+), \w+, "(.*)"\)$', text, re.MULTILINE))
    assert len(messages) == text.count("\nTARVEX_MESSAGE(") + 1
    expected = {int(number): message for number, message in messages.items()}
    assert string_table(pefile.PE(programs.launcher)) == expected
