"""Runs the configurator: the native program, and the Windows one under Wine."""

import os
import pathlib
import re
import subprocess

SECONDS_FOR_A_RUN = 60
# Such a line ends in the identifier of its kind.
FINDING = re.compile(r"\[[a-z-]+\]\n?$")


class Result:
    def __init__(self, code, out, err):
        self.code = code
        self.out = out
        self.err = err

    @property
    def refusals(self):
        """The error output without findings, which do not keep a setting from being stored."""
        lines = self.err.splitlines(keepends=True)
        return "".join(line for line in lines if not FINDING.search(line))

    def __repr__(self):
        return f"code {self.code}\nout: {self.out}\nerr: {self.err}"


class Native:
    """dist/linux/tarvexcf"""

    name = "linux"

    def __init__(self):
        self.program = pathlib.Path(os.environ["TARVEX_LINUX_DIST"]) / "tarvexcf"

    def command(self):
        return [str(self.program)]

    def run(self, folder, *arguments, stdin=b""):
        """Runs it in a folder. Its output goes to files: Wine's background processes inherit it."""
        out = folder / "stdout"
        err = folder / "stderr"
        try:
            with open(out, "wb") as out_file, open(err, "wb") as err_file:
                done = subprocess.run(
                    self.command() + [str(argument) for argument in arguments],
                    cwd=folder,
                    input=stdin,
                    stdout=out_file,
                    stderr=err_file,
                    timeout=SECONDS_FOR_A_RUN,
                    check=False,
                )
            return Result(done.returncode, out.read_text("utf-8"), err.read_text("utf-8"))
        finally:
            out.unlink(missing_ok=True)
            err.unlink(missing_ok=True)


class Wine(Native):
    """dist/win32/tarvexcf.com"""

    name = "win32"

    def __init__(self):
        self.program = pathlib.Path(os.environ["TARVEX_WIN32_DIST"]) / "tarvexcf.com"

    def command(self):
        return ["wine", str(self.program)]


class Prompt(Wine):
    """What Windows finds at a prompt for "tarvexcf" in the folder of the shipped programs."""

    name = "prompt"

    def command(self):
        return ["wine", "cmd", "/c", "cd", "/d", f"Z:{self.program.parent}", "&&", "tarvexcf"]
