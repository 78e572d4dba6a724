#!/usr/bin/env python3
"""check_floors.py ROOT FOLDER:FLOOR...

The folders of the project are floors of one house: a file includes only files of its own folder and
of folders on lower floors, so that every part can be read and tested with nothing but what stands
below it. Windows is known only to platform/win32/ and to files named *_win32.*, and the other
system only to platform/posix/ and *_posix.*. Every line it prints is an include that breaks this.
"""

import pathlib
import re
import sys

INCLUDE = re.compile(r'^\s*#\s*include\s+(?:"([^"]+)"|<(windows\.h)>)', re.MULTILINE)
SYSTEMS = ("win32", "posix")


def system_of(path):
    """The system that a file is written for, empty for a file of every system."""
    for system in SYSTEMS:
        if f"platform/{system}/" in path or re.search(rf"_{system}\.\w+$", path):
            return system
    return ""


def problems(path, text, floors):
    """What is wrong with the includes of one file; `path` is relative to the root."""
    folder = path.split("/", 1)[0]
    for quoted, windows in INCLUDE.findall(text):
        if windows:
            if path != "platform/win32/WindowsApi.h":
                yield f"{path}: <{windows}> is included by platform/win32/WindowsApi.h alone"
            continue
        target = quoted.split("/", 1)[0]
        if target not in floors:
            yield f"{path}: {quoted} is in no folder of the house"
        elif target != folder and floors[target] >= floors[folder]:
            yield (f"{path}: {folder}/ (floor {floors[folder]}) must not know {quoted} "
                   f"(floor {floors[target]})")
        system = system_of(quoted)
        if system and system != system_of(path):
            yield f"{path}: {quoted} belongs to one system, this file to every one"


def main(arguments):
    root = pathlib.Path(arguments[0])
    floors = {name: int(floor) for name, floor in (pair.split(":") for pair in arguments[1:])}
    found = []
    for folder in floors:
        for file in sorted((root / folder).rglob("*")):
            if file.suffix in (".h", ".cpp"):
                path = file.relative_to(root).as_posix()
                found += problems(path, file.read_text(encoding="utf-8"), floors)
    for problem in found:
        print(problem, file=sys.stderr)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
