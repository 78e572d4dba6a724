"""Prints "tests failures skipped" of a JUnit file; a missing file counts as one failed test."""

import sys
import xml.etree.ElementTree as ElementTree


def counts(path):
    try:
        root = ElementTree.parse(path).getroot()
    except (OSError, ElementTree.ParseError):
        return 1, 1, 0
    tests = fails = skips = 0
    for case in root.iter("testcase"):
        tests += 1
        if case.find("failure") is not None or case.find("error") is not None:
            fails += 1
        elif case.find("skipped") is not None or case.get("result") == "skipped":
            skips += 1
    return tests, fails, skips


print(*counts(sys.argv[1]))
