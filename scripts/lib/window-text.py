"""Prints the text of the log window that a window driver's report (JSON) shows last."""

import json
import sys

LOG_WINDOW = "Tarvex - Debug"


def log_texts(report):
    for step in report["steps"]:
        for window in [step.get("window"), *step.get("windows", [])]:
            if window and window.get("title") == LOG_WINDOW:
                yield from (
                    control["text"]
                    for control in window.get("controls", [])
                    if control.get("class", "").lower() == "edit"
                )


with open(sys.argv[1], encoding="utf-8") as file:
    texts = list(log_texts(json.load(file)))
print("\n".join("    " + line for line in texts[-1].split("\r\n")) if texts else "")
