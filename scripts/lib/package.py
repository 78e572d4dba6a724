"""package.py PROGRAMS FOLDER: packs the programs of a folder, documents and samples as a vendor
gets them into FOLDER/tarvex-VERSION-win32.zip, and prints its name.

The same content gives the same bytes, whoever packs it and when: order, times and permissions are
fixed. Vendors read the texts on any Windows from XP on, so line ends are CR LF, and a text that is
not plain ASCII begins with the mark that Notepad knows UTF-8 by. Documents become HTML, which opens
by a double click.
"""

import hashlib
import pathlib
import re
import sys
import zipfile

import markdown

ROOT = pathlib.Path(__file__).resolve().parents[2]
PROGRAMS = ("tarvex.exe", "tarvexcf.com", "tarvexcf.exe")
# Name in the package: file of the project, title
DOCUMENTS = {
    "docs/handbuch.html": ("docs/handbuch.md", "de", "Tarvex: Handbuch für Anbieter"),
    "docs/tarvexcf.html": ("docs/tarvexcf.md", "en", "tarvexcf"),
}
TEXTS = {
    "LIESMICH.txt": "docs/liesmich.txt",
    "LICENSE.txt": "LICENSE",
    "CHANGELOG.txt": "CHANGELOG.md",
}
SAMPLES = ("samples/kunden", "samples/pcs")
SAMPLE_TEXTS = (".ini", ".pc", ".reg", ".txt")
PICTURE = re.compile(r'<img [^>]*src="([^"]+)"')
PAGE = """<!DOCTYPE html>
<html lang="{language}">
<head>
<meta charset="utf-8">
<title>{title}</title>
<style>
body {{ font: 11pt/1.45 "Segoe UI", Tahoma, sans-serif }}
body {{ max-width: 50em; margin: 2em auto; padding: 0 1em }}
h1, h2, h3 {{ line-height: 1.2; margin-top: 1.6em }}
code, pre {{ font-family: Consolas, "Courier New", monospace; font-size: 10pt }}
pre {{ background: #f3f3f3; padding: 0.7em 1em; overflow: auto }}
table {{ border-collapse: collapse }}
th, td {{ border: 1px solid #c8c8c8; padding: 0.25em 0.6em; text-align: left; vertical-align: top }}
img {{ max-width: 100% }}
</style>
</head>
<body>
{body}
</body>
</html>
"""
TIME = (2026, 1, 1, 0, 0, 0)
REGULAR_FILE, PROGRAM_FILE = 0o100644, 0o100755
UNIX = 3  # the system whose permissions the entries have


def version():
    text = (ROOT / "resources" / "Version.h").read_text("utf-8")
    return re.search(r'TARVEX_VERSION_TEXT "([^"]+)"', text)[1]


def windows_lines(text):
    return text.replace("\r\n", "\n").replace("\n", "\r\n")


def windows_text(text):
    return windows_lines(text).encode("ascii" if text.isascii() else "utf-8-sig")


def documents():
    """The pages, and every picture that they show."""
    for name, (file, language, title) in DOCUMENTS.items():
        source = ROOT / file
        body = markdown.markdown(source.read_text("utf-8"), extensions=["tables", "toc"])
        page = PAGE.format(language=language, title=title, body=body)
        yield name, windows_lines(page).encode("utf-8")
        for picture in PICTURE.findall(body):
            yield f"docs/{picture}", (source.parent / picture).read_bytes()


def samples():
    for folder in SAMPLES:
        for file in (ROOT / folder).iterdir():
            content = file.read_bytes()
            if file.suffix in SAMPLE_TEXTS:
                content = windows_text(content.decode("utf-8"))
            yield f"{folder}/{file.name}", content


def contents(programs):
    files = {name: (programs / name).read_bytes() for name in PROGRAMS}
    files |= documents()
    files |= {name: windows_text((ROOT / file).read_text("utf-8")) for name, file in TEXTS.items()}
    files |= samples()
    sums = [f"{hashlib.sha256(files[name]).hexdigest()}  {name}\n" for name in sorted(files)]
    # With LF, as sha256sum itself writes them: older ones take a CR for part of a name.
    files["SHA256SUMS"] = "".join(sums).encode("ascii")
    return files


def pack(files, package):
    with zipfile.ZipFile(package, "w") as archive:
        for name in sorted(files):
            entry = zipfile.ZipInfo(name, TIME)
            entry.create_system = UNIX
            entry.external_attr = (PROGRAM_FILE if name in PROGRAMS else REGULAR_FILE) << 16
            archive.writestr(entry, files[name], zipfile.ZIP_DEFLATED, 9)


def main(arguments):
    if len(arguments) != 2:
        print("usage: " + __doc__.partition(":")[0], file=sys.stderr)
        return 2
    programs, folder = map(pathlib.Path, arguments)
    package = folder / f"tarvex-{version()}-win32.zip"
    try:
        pack(contents(programs), package)
    except OSError as error:
        print(f"package.py: {error}", file=sys.stderr)
        return 1
    print(package)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
