#!/usr/bin/env python3
"""Checks the manuals of a build folder: the properties of each PDF, that all have the same sections, that
a quote that the program does not show stops the build, and the typography of the sources.

usage: check_manuals.py BUILD_FOLDER
"""

import json
import re
import subprocess
import sys
import tempfile
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
TITLES = {
    "en": "Tamberline Manual",
    "de": "Tamberline-Anleitung",
    "fr": "Manuel Tamberline",
    "it": "Manuale Tamberline",
    "es": "Manual de Tamberline",
}
LEAST_PAGES, MOST_PAGES = 6, 11
MOST_BYTES = 1_500_000
NARROW_SPACE = "\u202f"

failures = []


def expect(condition, message):
    if not condition:
        failures.append(message)


class Pdf:
    """A PDF as qpdf describes it."""

    def __init__(self, path):
        document = json.loads(
            subprocess.run(["qpdf", "--json=2", path], check=True, capture_output=True).stdout)
        self.objects = document["qpdf"][1]
        self.outline = document["outlines"]
        self.page_count = len(document["pages"])
        self.root = self.resolve(self.objects["trailer"]["value"]["/Root"])
        self.information = self.resolve(self.objects["trailer"]["value"]["/Info"])

    def resolve(self, value):
        if isinstance(value, str) and re.fullmatch(r"\d+ \d+ R", value):
            entry = self.objects["obj:" + value]
            return entry.get("value", entry.get("stream", {}).get("dict"))
        return value

    def dictionaries(self):
        values = (entry.get("value") for entry in self.objects.values())
        return [value for value in values if isinstance(value, dict)]

    def named_destinations(self):
        names = self.resolve(self.root.get("/Names", {}))
        return set(self.names_below(names.get("/Dests")))

    def names_below(self, node):
        node = self.resolve(node) or {}
        yield from node.get("/Names", [])[::2]
        for child in node.get("/Kids", []):
            yield from self.names_below(child)

    def links(self):
        """The destinations of the links to places in the document."""
        annotations = [self.resolve(value) for value in self.dictionaries()]
        return [link["/Dest"] for link in annotations
                if link.get("/Subtype") == "/Link" and "/Dest" in link]


def text(value):
    return value.removeprefix("u:")


def check_pdf(language, path):
    """Checks one manual, and returns the number of its sections."""
    pdf = Pdf(path)
    expect(text(pdf.information["/Title"]) == TITLES[language], f"{path.name}: title")
    expect(text(pdf.root.get("/Lang", "")) == language, f"{path.name}: language")
    expect("/CreationDate" not in pdf.information, f"{path.name}: has a date in it")
    expect(LEAST_PAGES <= pdf.page_count <= MOST_PAGES, f"{path.name}: {pdf.page_count} pages")
    expect(path.stat().st_size <= MOST_BYTES, f"{path.name}: {path.stat().st_size} bytes")
    known, links = pdf.named_destinations(), pdf.links()
    expect(len(links) >= 10, f"{path.name}: only {len(links)} links")
    for link in links:
        expect(link in known, f"{path.name}: the link to '{link}' leads nowhere")
    for font in subprocess.run(["pdffonts", path], check=True, capture_output=True,
                               text=True).stdout.splitlines()[2:]:
        expect(" yes " in font, f"{path.name}: a font is not in it: {font}")
    words = subprocess.run(["pdftotext", path, "-"], check=True, capture_output=True,
                           text=True).stdout
    expect("\ufffd" not in words and "□" not in words, f"{path.name}: a letter without a glyph")
    check_contents(path, pdf.page_count)
    return sum(1 + len(entry["kids"]) for entry in pdf.outline)


def check_contents(path, page_count):
    """The contents name the page on which each heading stands, and something stands below it there."""
    pages = [subprocess.run(["pdftotext", "-layout", "-f", str(page), "-l", str(page), path, "-"], check=True,
                            capture_output=True, text=True).stdout for page in range(1, page_count + 1)]
    entries = [(title, int(page)) for title, page in re.findall(r"^ *(\S.*?) {3,}(\d+)$", pages[0], re.MULTILINE)
               if title not in TITLES.values()]
    expect(len(entries) >= 10, f"{path.name}: contents with {len(entries)} entries")
    for title, page in entries:
        heading = re.compile(rf"^ *{re.escape(title)} *$", re.MULTILINE)
        found = [number for number, text in enumerate(pages, 1) if heading.search(text)]
        expect(found == [page], f"{path.name}: '{title}' is on {found}, not on {page}")
        below = [line for number in found for line in heading.split(pages[number - 1])[1].splitlines() if line.strip()]
        expect(len(below) >= 3, f"{path.name}: '{title}' stands at the foot of a page")


def make_pdf(build, source):
    with tempfile.TemporaryDirectory() as folder:
        document = Path(folder, "manual.adoc")
        document.write_text("= Title\n:lang: en\n\n" + source + "\n", encoding="utf-8")
        return subprocess.run(
            ["asciidoctor-pdf", "--verbose", "--failure-level", "INFO",
             "--require", PROJECT / "manual/extensions.rb",
             "--attribute", f"texts={PROJECT / 'src/i18n/fixed_texts.def'}",
             "--attribute", f"pictures={build / 'manual/en'}",
             "--attribute", f"pdf-theme={PROJECT / 'manual/theme.yml'}",
             "--out-file", Path(folder, "manual.pdf"), document],
            capture_output=True, text=True, check=False)


def check_quotes(build):
    good = make_pdf(build, "ui:hintEject[] and shown:[10.4 W port total]")
    expect(good.returncode == 0, f"good quotes are refused: {good.stderr}")
    for source, message in {
            "ui:hintNothing[]": "the language table has no text 'hintNothing'",
            "shown:[10.5 W port total]": "no picture of the panel shows '10.5 W port total'",
            "panel::none[Nothing]": "pictures.yml has no 'none'",
            "<<nowhere>>": "invalid reference: nowhere"}.items():
        bad = make_pdf(build, source)
        expect(bad.returncode != 0 and message in bad.stderr,
               f"'{source}' passes or fails otherwise: {bad.stderr}")


def check_typography():
    """Checks spaces and quotation marks, which spell checkers ignore."""
    rules = {
        "en": [r"\"", r" [;:!?](?= |$)"],
        "de": [r"[\"«»]", r"”", r" [;:!?](?= |$)"],
        "fr": [r"\"", rf"[^{NARROW_SPACE}\w\d:\[\]/*.<>=][;!?](?= |$)", rf"«(?!{NARROW_SPACE})",
               rf"(?<!{NARROW_SPACE})»", r"[“”„]", r"\w[?!;]", r"[\w_\]]: "],
        "it": [r"[\"“”„]", r" [;:!?](?= |$)"],
        "es": [r"[\"“”„]", r" [;:!?](?= |$)"],
    }
    for language, patterns in rules.items():
        source = (PROJECT / f"manual/manual-{language}.adoc").read_text(encoding="utf-8")
        lines = [line for line in source.splitlines() if not line.startswith((":", "panel::"))]
        for pattern in patterns:
            for line in lines:
                expect(not re.search(pattern, line), f"manual-{language}.adoc: {pattern}: {line}")
        expect(not re.search(r"\d (Gb/s|Mb/s|MB|Mo|W)\b", re.sub(r"shown:\[[^\]]*\]", "", source)),
               f"manual-{language}.adoc: a unit may stand on the next line")
    spanish = (PROJECT / "manual/manual-es.adoc").read_text(encoding="utf-8")
    expect(spanish.count("?") == spanish.count("¿"), "manual-es.adoc: a question opens or ends only")


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    build = Path(sys.argv[1]).resolve()
    sections = {language: check_pdf(language, build / f"tools/share/tamberline/manual/Manual-{language}.pdf")
                for language in TITLES}
    expect(len(set(sections.values())) == 1 and sections["en"] >= 10,
           f"the manuals differ in their sections: {sections}")
    check_quotes(build)
    check_typography()
    for failure in failures:
        print(failure, file=sys.stderr)
    print(f"{len(TITLES)} manuals with {sections['en']} outline entries, {len(failures)} failures")
    sys.exit(bool(failures))


main()
