"""Reads and writes the brand marks of a launcher by their bytes.

Written for the tests alone, from the file format: it must share nothing with the programs that it
checks, or a mistake would check itself.
"""

import struct

PREFIX = "@#BRD#@|".encode("utf-16-le")
UNBRANDED = "@#BRANDED0#@".encode("utf-16-le")
BRANDED = "@#BRANDED1#@".encode("utf-16-le")
KEY = bytes([127]) * 13
CREDENTIALS = ("User", "Pwd", "EditPwd")


def _characters():
    """The characters of code page 1252 as Windows has them: codes without one are control codes."""
    return [bytes([code]).decode("cp1252", "ignore") or chr(code) for code in range(256)]


CHARACTERS = _characters()
CODES = {character: code for code, character in enumerate(CHARACTERS)}


def scramble(text, key=KEY):
    """A value as it is stored, or a stored one as it is read: the same does both."""
    swap = {32: 255, 255: 32}
    codes = []
    for index, character in enumerate(text):
        code = CODES[character]
        code = swap.get(code, code) ^ key[index % len(key)]
        codes.append(swap.get(code, code))
    return "".join(CHARACTERS[code] for code in codes if code)


def number_list(text, key=KEY):
    """The list of numbers that stands for a user name or a password."""
    return "#".join(str(CODES[c] ^ key[i % len(key)]) for i, c in enumerate(text))


def plain_credential(numbers, key=KEY):
    """The text that a list of numbers stands for."""
    parts = [int(part) for part in numbers.split("#") if part]
    return "".join(CHARACTERS[code ^ key[i % len(key)]] for i, code in enumerate(parts))


class Mark:
    """One mark: where it stands and what it says of itself. Offsets are in bytes, 0-based."""

    def __init__(self, data, start):
        header = data[start : start + 2 * 40].decode("utf-16-le", "replace")
        _, number, width, name, _ = header.split("|", 4)
        self.start = start
        self.number = int(number)
        self.width = int(width)
        self.name = name
        self.value_start = start + 2 * (18 + len(name))
        self.end = self.value_start + 2 * self.width


class BrandFile:
    """A launcher's bytes. Fields are named as in their marks, in any case."""

    def __init__(self, data):
        self.data = bytearray(data)
        self.marks = []
        start = self.data.find(PREFIX)
        while start >= 0:
            self.marks.append(Mark(self.data, start))
            start = self.data.find(PREFIX, start + 2)
        self._by_name = {mark.name.lower(): mark for mark in self.marks}

    @classmethod
    def read(cls, path):
        with open(path, "rb") as file:
            return cls(file.read())

    def write(self, path):
        with open(path, "wb") as file:
            file.write(self.data)

    def mark(self, name):
        return self._by_name[name.lower()]

    def count_of_mark(self, mark):
        """The byte count in front of a mark's text."""
        return struct.unpack_from("<I", self.data, mark.start - 4)[0]

    def stored(self, name):
        """A value area as it stands in the file, with its blanks."""
        mark = self.mark(name)
        return self.data[mark.value_start : mark.end].decode("utf-16-le", "surrogatepass")

    def set_stored(self, name, text):
        """Writes a value area as it is given; blanks fill it up."""
        mark = self.mark(name)
        if len(text) > mark.width:
            raise ValueError(f"{name} holds {mark.width} characters, not {len(text)}")
        self.data[mark.value_start : mark.end] = text.ljust(mark.width).encode(
            "utf-16-le", "surrogatepass"
        )

    def value(self, name):
        """A value as a person entered it."""
        text = scramble(self.stored(name).strip(" ")).strip(" ")
        return plain_credential(text) if self.mark(name).name in CREDENTIALS else text

    def set_value(self, name, text):
        if self.mark(name).name in CREDENTIALS:
            text = number_list(text)
        stored = scramble(text)
        # A blank that is stored at an end is lost. A plain blank beside it is stored as something
        # else, and readers drop it again.
        if stored.startswith(" "):
            text = " " + text
        if stored.endswith(" "):
            text += " "
        self.set_stored(name, scramble(text))

    def branded(self):
        return UNBRANDED not in self.data

    def set_branded(self):
        """Flips the marker, of which there is one."""
        if self.data.count(UNBRANDED) != 1:
            raise ValueError("the file is branded already, or has no marker")
        position = self.data.find(UNBRANDED)
        self.data[position : position + len(BRANDED)] = BRANDED
