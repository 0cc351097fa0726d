#!/usr/bin/env python3
"""Checks the panel's texts, the manuals and the packages against docs/terms.md: each term there is used, and no
word that is not to be used is.

usage: tests/words/check_terms.py
"""

import re
import sys
import xml.etree.ElementTree as ElementTree
from collections import defaultdict
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
TERMS = PROJECT / "docs/terms.md"
LANGUAGES = {"English": "en", "German": "de", "French": "fr", "Italian": "it", "Spanish": "es"}
LITERAL = r'"((?:[^"\\]|\\.)*)"'
FIVE_LITERALS = r",\s*".join([LITERAL] * len(LANGUAGES))

failures = []


def expect(condition, message):
    if not condition:
        failures.append(message)


def tables():
    """The rows of each table of the page, as lists of cells, without the head."""
    found = re.findall(r"(?:^\|.*\n)+", TERMS.read_text(encoding="utf-8"), re.MULTILINE)
    return [[[cell.strip() for cell in line.strip("|").split("|")] for line in table.splitlines()[2:]]
            for table in found]


def texts_of_the_panel():
    """(language, place, text) of the language tables. The place is the text's key where it has one."""
    for name in ("fixed_texts.def", "answer_texts.def"):
        table = (PROJECT / "src/i18n" / name).read_text(encoding="utf-8")
        for key, *texts in re.findall(r"TAMBERLINE_TEXT\((\w+),\s*" + FIVE_LITERALS, table):
            yield from zip(LANGUAGES.values(), [key] * len(texts), texts)
    for texts in re.findall(r"\{" + FIVE_LITERALS, (PROJECT / "src/i18n/loc.cpp").read_text(encoding="utf-8")):
        yield from zip(LANGUAGES.values(), ["loc.cpp"] * len(texts), texts)


def texts_of_manuals():
    for language in LANGUAGES.values():
        path = PROJECT / f"manual/manual-{language}.adoc"
        for line in path.read_text(encoding="utf-8").splitlines():
            yield language, path.name, re.sub(r"ui:\w+\[\]|<<\w+>>|^\[\[\w+\]\]|^panel::\w+|^:.*", "", line)


def texts_of_packages():
    linux = PROJECT / "packaging/linux"
    for element in ElementTree.parse(linux / "org.tamberline.Tamberline.metainfo.xml").iter():
        language = element.get("{http://www.w3.org/XML/1998/namespace}lang", "en")
        yield language, "metainfo", element.text or ""
    for path in linux.glob("*.desktop"):
        for language, text in re.findall(r"^\w+(?:\[(\w+)\])?=(.*)$", path.read_text(encoding="utf-8"), re.MULTILINE):
            yield language or "en", path.name, text
    for path in (linux / "man").glob("*.1"):
        yield "en", path.name, path.read_text(encoding="utf-8")
    for path in (PROJECT / "packaging/macos").glob("*.lproj/InfoPlist.strings"):
        yield path.parent.stem, path.name, path.read_text(encoding="utf-8")


def occurs(words, text):
    return re.search(rf"(?<!\w){re.escape(words)}(?!\w)", text, re.IGNORECASE) is not None


def check_terms(rows, corpus):
    for row in rows:
        for language, cell in zip(LANGUAGES.values(), row):
            for term in cell.split(" / "):
                expect(any(term.lower() in text.lower() for _, text in corpus[language]),
                       f"the {language} term '{term}' is used nowhere")


def check_words_not_to_use(rows, corpus):
    for name, word, instead, exceptions in rows:
        language, keys = LANGUAGES[name], re.findall(r"`(\w+)`", exceptions)
        expect(occurs(word, f"({word.capitalize()},") and not occurs(word, f"x{word}x"),
               f"'{word}' cannot be found where it stands")
        used_in = {place for place, text in corpus[language] if occurs(word, text)}
        for place in used_in - set(keys):
            expect(False, f"{place} ({language}) says '{word}', which should be '{instead}'")
        for key in set(keys) - used_in:
            expect(False, f"{key} ({language}) does not say '{word}', so it is no exception")


def main():
    if len(sys.argv) != 1:
        sys.exit(__doc__)
    terms, words_not_to_use = tables()
    corpus = defaultdict(list)
    for source in (texts_of_the_panel(), texts_of_manuals(), texts_of_packages()):
        before = sum(map(len, corpus.values()))
        for language, place, text in source:
            corpus[language].append((place, text))
        expect(sum(map(len, corpus.values())) > before + 20, "a source has hardly any texts")
    expect(set(corpus) == set(LANGUAGES.values()), f"the languages are {sorted(corpus)}")
    check_terms(terms, corpus)
    check_words_not_to_use(words_not_to_use, corpus)
    for failure in failures:
        print(failure, file=sys.stderr)
    print(f"{len(terms)} terms, {len(words_not_to_use)} words not to use, {len(failures)} failures")
    sys.exit(bool(failures))


main()
