"""The version resource of a file, read without Windows: wrestool takes it out of the file, and what
it holds is read here. Both the blocks of 32-bit files (UTF-16) and of 16-bit files (code page) are
understood."""

import re
import struct
import subprocess

TEXTS = (
    "CompanyName",
    "FileDescription",
    "FileVersion",
    "InternalName",
    "LegalCopyright",
    "LegalTrademarks",
    "OriginalFilename",
    "ProductName",
    "ProductVersion",
    "Comments",
)
FLAGS = ("Debug ", "PreRel ", "Patched ", "Private ", "Info ", "Special ")
SYSTEMS = {
    0x10001: "DOS-Win16",
    0x10004: "DOS-Win32",
    0x20002: "OS/2-16 PM-16",
    0x30003: "OS/2-16 PM-32",
    0x40004: "NT-Win32",
}
TYPES = {1: "Application", 2: "DLL", 3: "Driver", 4: "Font", 5: "VxD", 7: "Lib"}
DRIVERS = (
    "Unknown",
    "Printer drv",
    "Keyboard drv",
    "Language drv",
    "Display drv",
    "Mouse drv",
    "Network drv",
    "System drv",
    "Installable",
    "Sound drv",
    "Comm drv",
)
FONTS = ("", "Raster Font", "Vector Font", "TrueType Font")
# As Wine names them, in English for every user.
LANGUAGES = {0x0407: "German", 0x0409: "English"}


def wrestool(*arguments):
    """What wrestool prints. Its exit code says nothing, and it warns about files without any
    resource."""
    result = subprocess.run(
        ["wrestool", *map(str, arguments)],
        stdout=subprocess.PIPE,
        stderr=subprocess.DEVNULL,
        timeout=60,
        check=False,
    )
    return result.stdout


def languages(file):
    """The languages of the file's version resources; 16-bit files name none, which gives ""."""
    rows = wrestool("-l", "--type=16", file).decode()
    return re.findall(r"--type=16 --name=1(?: --language=(\d+))? ", rows)


def is_wide(block):
    """Whether the block is in UTF-16. The key VS_VERSION_INFO begins after two numbers in blocks
    of 16-bit files, else after three."""
    return block[4:6] != b"VS"


def resource(file):
    """The bytes of the version resource, None without one."""
    found = languages(file)
    if not found:
        return None
    # Of several languages the loader prefers the user's, then the neutral one, then the first.
    wanted = next((n for n in ("1031", "7", "0") if n in found), found[0])
    language = [f"--language={wanted}"] if wanted else []
    return wrestool("-x", "--raw", "--type=16", "--name=1", *language, file)


class Node:
    """One record of the block: its key, its value as bytes, and the records inside it."""

    def __init__(self, data, start, wide):
        length, self.size = struct.unpack_from("<HH", data, start)
        place = start + 4
        if wide:
            (self.is_text,) = struct.unpack_from("<H", data, place)
            place += 2
        zero = b"\0\0" if wide else b"\0"
        end = place
        while data[end : end + len(zero)] != zero:
            end += len(zero)
        self.key = data[place:end].decode("utf-16-le" if wide else "cp1252")
        place = self._aligned(end + len(zero))
        # The length of a text is told in characters, everything else in bytes.
        count = self.size * 2 if wide and self.is_text else self.size
        self.end = start + length
        self.value = data[place : min(place + count, self.end)]
        place = self._aligned(place + len(self.value))
        self.children = []
        while place < self.end:
            self.children.append(Node(data, place, wide))
            place = self._aligned(self.children[-1].end)

    @staticmethod
    def _aligned(place):
        return (place + 3) // 4 * 4

    def child(self, key):
        return next((c for c in self.children if c.key.lower() == key.lower()), None)


def version_text(high, low):
    return f"{high >> 16}.{high & 0xFFFF:02}.{low >> 16:02}.{low & 0xFFFF:04}"


def subtype(kind, number):
    names = {3: DRIVERS, 4: FONTS}.get(kind, ())
    return names[number] if number < len(names) else ""


def properties(file):
    """The properties that the launcher's reader must give for the file, without its path."""
    result = {name: "" for name in TEXTS}
    result |= {"Available": False, "Language": "", "FileVersionMajor": 0, "FileVersionMinor": 0}
    result |= {"FileFlags": "", "FileOS": "", "FileType": "", "FileSubType": ""}
    block = resource(file)
    if block is None:
        return result
    wide = is_wide(block)
    root = Node(block, 0, wide)
    assert root.key == "VS_VERSION_INFO"
    fixed = struct.unpack("<13I", root.value)
    assert fixed[0] == 0xFEEF04BD
    high, low, product_high, product_low, _, flags, system, kind, sub_kind = fixed[2:11]
    result |= {
        "Available": True,
        "FileVersionMajor": high >> 16,
        "FileVersionMinor": high & 0xFFFF,
        "FileVersion": version_text(high, low),
        "ProductVersion": version_text(product_high, product_low),
        "FileFlags": "".join(name for bit, name in enumerate(FLAGS) if flags >> bit & 1),
        "FileOS": SYSTEMS.get(system, "Unknown"),
        "FileType": TYPES.get(kind, "Unknown"),
        "FileSubType": subtype(kind, sub_kind),
    }
    names = root.child("VarFileInfo")
    translation = names and names.child("Translation")
    if not translation:
        return result
    language, code_page = struct.unpack_from("<HH", translation.value)
    result["Language"] = LANGUAGES[language]
    table = root.child("StringFileInfo").child(f"{language:04X}{code_page:04X}")
    for name in TEXTS:
        text = table and table.child(name)
        if not text:
            continue
        value = text.value.decode("utf-16-le" if wide else "cp1252").split("\0")[0]
        if name not in ("FileVersion", "ProductVersion") or value.strip(" "):
            result[name] = value
    return result
