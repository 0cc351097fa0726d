#!/usr/bin/env python3
"""Checks the documents against the project and its programs:

- each command has a line in commands.txt that says who runs it, and those that say "here" are run;
- each relative link leads to a file, and to a heading of it;
- each path and each file name of the project that is named exists;
- each option of the project's programs and scripts that is named exists, and man pages name all of them;
- a section that says how long something took or how much memory it cost has a date and a commit;
- the pictures of the metainfo have the sizes that it states.

usage: tests/documents/check_documents.py BUILD_FOLDER
"""

import fnmatch
import os
import re
import struct
import subprocess
import sys
import tempfile
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
COMMANDS = Path(__file__).with_name("commands.txt")
PROGRAMS = ("tamberline-inspect", "tamberline-replay")
SUBCOMMANDS = ("save", "compare", "expect", "record", "metrics")
MAN_PAGES = PROJECT / "packaging/linux/man"
METAINFO = PROJECT / "packaging/linux/org.tamberline.Tamberline.metainfo.xml"
SECONDS_FOR_A_COMMAND = 120

# Options that are named without their program: those of others, and one that is refused.
OTHER_OPTIONS = {"--gtest_filter", "--prefix", "--benchmark_filter", "--lang"}
# A code span that begins like this is a command.
COMMAND = re.compile(r"(?:scripts|tests|build|benchmarks)/\S+ |cmake -|ctest -|apt (?:install|purge) |xargs ")
# A command of a program that needs nothing but a machine.
COMPLETE_COMMAND = re.compile(r"tamberline-inspect(?: --(?:version|help|json|reports [a-z/]+))+")
# What a path of the project begins with.
FOLDERS = ("src", "tests", "docs", "scripts", "manual", "packaging", "samples", "tools", "fuzz", "benchmarks", "cmake")
FILE_NAME = re.compile(r"[\w.*-]+\.(?:cpp|h|mm|qml|py|def|adoc|yml|bash|cmake|md|svg|png)")
# Sources of Qt, which macos.md cites with their lines.
SOURCE_OF_QT = re.compile(r"src/(?:plugins|gui|corelib|quick|tools)/|(?:q\w+|shared)\.(?:mm|cpp)")

# docs/performance.md is nothing but figures; the changelog repeats some of them.
WITHOUT_DATES = ("performance.md", "CHANGELOG.md")
COST = re.compile(r"(?:\btakes?\b|\btook\b|\bcosts?\b|processor time)[^.|]*?\b\d[\d.,]* (?:s|ms|minutes|seconds)\b"
                  r"|\bcosts?\b[^.|]*?\b\d[\d.,]* MB\b|\d[\d.,]* (?:s|ms|minutes|seconds) of processor time")
DATE = re.compile(r"\b\d{1,2}\s[A-Z][a-z]+\s20\d\d\b")
COMMIT = re.compile(r"\b(?=[a-f]*\d)[0-9a-f]{7}\b")

failures = []


def expect(condition, message):
    if not condition:
        failures.append(message)


def project_files():
    for folder, folders, names in os.walk(PROJECT):
        folders[:] = [name for name in folders if name not in (".git", "build")]
        yield from (Path(folder, name) for name in names)


class Document:
    """A Markdown file or man page as its headings, links, code spans and blocks of code."""

    def __init__(self, path):
        self.path = path
        self.name = str(path.relative_to(PROJECT))
        text = path.read_text(encoding="utf-8")
        self.blocks = blocks_of_man_page(text) if path.suffix == ".1" else indented_blocks(text)
        self.sections = re.split(r"^(?=#)", text, flags=re.MULTILINE)
        self.prose = re.sub(r"^    .*$", "", text, flags=re.MULTILINE)
        self.spans = [re.sub(r"\s+", " ", span) for span in re.findall(r"`([^`]+)`", self.prose)]
        self.links = re.findall(r"\]\(([^)\s]+)\)", self.prose)
        self.anchors = {anchor_of(title) for title in re.findall(r"^#+ (.*)$", self.prose, re.MULTILINE)}


def indented_blocks(text):
    return [re.sub("^    ", "", block, flags=re.MULTILINE).rstrip("\n")
            for block in re.findall(r"(?<=\n\n)(?:^    .*\n(?:\n(?=    ))?)+", text, re.MULTILINE)]


def blocks_of_man_page(text):
    blocks = re.findall(r"^\.nf\n(.*?)^\.fi$", text, re.MULTILINE | re.DOTALL)
    return [re.sub(r"^\.R[SE]\n", "", block, flags=re.MULTILINE).replace("\\e\n", "\\\n").replace("\\-", "-")
            for block in blocks]


def anchor_of(title):
    return re.sub(r"[^\w -]", "", title.lower()).replace(" ", "-")


def commands_in(block):
    """The commands of a block, without comments; what is no shell is one command."""
    if block.startswith("{") or block.startswith("mutation "):
        return [re.sub(r"\s+", " ", block)]
    joined = re.sub(r"\\\n\s*", "", block)
    lines = [re.sub(r"(?:^|\s+)#.*", "", line).rstrip() for line in joined.splitlines()]
    text = "\n".join(line for line in lines if line)
    return re.findall(r"^for .*?^done|^.+$", text, re.MULTILINE | re.DOTALL) if "\nfor " in "\n" + text \
        else text.splitlines()


class WhoRuns:
    """commands.txt."""

    def __init__(self):
        lines = [line for line in COMMANDS.read_text(encoding="utf-8").splitlines() if line and line[0] != "#"]
        self.ways = dict(line.split(" | ", 1) for line in lines)
        self.unused = set(self.ways)
        checks = (PROJECT / "scripts/checks.bash").read_text(encoding="utf-8")
        self.functions = dict(re.findall(r"^check_(\w+)\(\) \{(.*?)\}$", checks, re.MULTILINE | re.DOTALL))

    def of(self, command):
        for pattern, way in self.ways.items():
            if fnmatch.fnmatchcase(command, pattern):
                self.unused.discard(pattern)
                return way
        return None

    def text_of(self, way):
        """What runs a command: a file, or a check with the scripts that it names."""
        kind, _, name = way.partition(" ")
        if kind == "by":
            return (PROJECT / name).read_text(encoding="utf-8") if (PROJECT / name).exists() else ""
        function = self.functions.get(name.replace("-", "_"), "")
        scripts = [PROJECT / script for script in re.findall(r"(?:scripts|tests)/[\w/.-]+", function)]
        return function + "".join(path.read_text(encoding="utf-8") for path in scripts if path.is_file())


def check_commands(documents, build):
    who_runs, to_run = WhoRuns(), []
    for document in documents:
        spans = [span for span in document.spans if COMMAND.match(span) or COMPLETE_COMMAND.fullmatch(span)]
        for command in [*(part for block in document.blocks for part in commands_in(block)), *spans]:
            way = who_runs.of(command)
            expect(way is not None, f"{document.name}: nobody runs '{command}' (tests/documents/commands.txt)")
            if way == "here":
                to_run.append((document.name, command))
            elif way and not way.startswith("not run: "):
                word = re.split(r"[ /]", command.split(" ")[0])[-1]
                runner = who_runs.text_of(way)
                expect(word in runner or document.name in runner, f"{document.name}: '{command}' is not run {way}")
    for pattern in who_runs.unused:
        expect(False, f"commands.txt: no document has a command '{pattern}'")
    run_here(sorted(set(to_run)), build)
    return len(to_run)


def make_place(folder, build):
    """A folder in which the commands of the documents find the programs, the samples and the tests."""
    for name in ("samples", "tests", "docs"):
        (folder / name).symlink_to(PROJECT / name)
    (folder / "build").mkdir()
    for preset in ("release", "dev", "bench"):
        (folder / "build" / preset).symlink_to(build)
    (folder / "bin").mkdir()
    for name in PROGRAMS:
        wrapper = folder / "bin" / name
        machine = '[[ "$*" == *--reports* || "$*" == *--help* || "$*" == *--version* ]] || set -- "$@" --reports samples/desk\n'
        wrapper.write_text(f'#!/bin/bash\n{machine if name.endswith("inspect") else ""}'
                           f'exec "{build}/tools/{name}/{name}" "$@"\n')
        wrapper.chmod(0o755)
    return {**os.environ, "PATH": f"{folder}/bin:{os.environ['PATH']}", "QT_QPA_PLATFORM": "offscreen"}


def run_here(commands, build):
    for name, command in commands:
        with tempfile.TemporaryDirectory() as folder:
            environment = make_place(Path(folder), build)
            outcome = subprocess.run(["bash", "-c", command], cwd=folder, env=environment, capture_output=True,
                                     text=True, timeout=SECONDS_FOR_A_COMMAND)
            expect(outcome.returncode == 0, f"{name}: '{command}' ends with {outcome.returncode}: {outcome.stderr}")
            expect(outcome.stdout or "save" in command, f"{name}: '{command}' prints nothing")


def check_links(documents):
    anchors = {document.path: document.anchors for document in documents}
    for document in documents:
        for link in document.links:
            if "://" in link or link.startswith("mailto:"):
                continue
            name, _, anchor = link.partition("#")
            target = (document.path.parent / name).resolve() if name else document.path
            expect(target.exists(), f"{document.name}: the link to {link} leads nowhere")
            expect(not anchor or anchor in anchors.get(target, ()), f"{document.name}: {link} has no such heading")


def check_paths(documents, files):
    names = {path.name for path in files}
    for document in documents:
        words = [word.rstrip(".,;") for span in document.spans for word in span.split(" ")]
        for word in (word for word in words if not SOURCE_OF_QT.match(word)):
            if word.startswith(tuple(folder + "/" for folder in FOLDERS)):
                found = list(PROJECT.glob(word)) or list((document.path.parent).glob(word))
                expect(found, f"{document.name}: there is no {word}")
            elif FILE_NAME.fullmatch(word) and not word.startswith("FILE."):
                expect(fnmatch.filter(names, word), f"{document.name}: there is no file {word}")


def check_figures(documents):
    for document in documents:
        for section in document.sections if document.path.name not in WITHOUT_DATES else ():
            for paragraph in section.split("\n\n"):
                cost = COST.search(" ".join(paragraph.split()))
                expect(not cost or (DATE.search(section) and COMMIT.search(section)),
                       f"{document.name}: when, and with which commit, was this measured: {cost and cost.group()}")


def help_of(build, *arguments):
    program = build / "tools" / arguments[0] / arguments[0]
    return subprocess.run([program, *arguments[1:], "--help"], check=True, capture_output=True, text=True).stdout


def options_in(text):
    return set(re.findall(r"(?<![\w-])--[a-z][\w-]*", text))


def helps_of_programs(build):
    helps = {name: help_of(build, name) for name in PROGRAMS}
    helps["tamberline-inspect"] += "".join(help_of(build, "tamberline-inspect", name) for name in SUBCOMMANDS)
    return {name: options_in(text) for name, text in helps.items()}


def check_options(documents, known):
    anywhere = set().union(*known.values(), OTHER_OPTIONS)
    for path in [*PROJECT.glob("scripts/*"), *PROJECT.glob("benchmarks/*"), *PROJECT.glob("tests/*/*.py")]:
        anywhere |= options_in(path.read_text(encoding="utf-8")) if path.is_file() else set()
    for document in documents:
        for text in [*document.spans, *(part for block in document.blocks for part in commands_in(block))]:
            words = text.split(" ")
            own = next((name for name in PROGRAMS if name in map(os.path.basename, words)), None)
            if own:
                options = options_in(text.split(own, 1)[1].split("|")[0])
                expect(options <= known[own], f"{document.name}: {own} has no {options - known[own]}")
            elif words[0].startswith("scripts/") and (PROJECT / words[0]).is_file():
                options = options_in(text) - options_in((PROJECT / words[0]).read_text(encoding="utf-8"))
                expect(not options, f"{document.name}: {words[0]} has no {options}")
            elif text.startswith("--"):
                expect(options_in(words[0]) <= anywhere, f"{document.name}: nothing has {words[0]}")


def check_man_pages(known):
    for name in PROGRAMS:
        page = (MAN_PAGES / f"{name}.1").read_text(encoding="utf-8").replace("\\-", "-")
        own = options_in(re.sub(r"systemctl.*", "", page))
        expect(own == known[name], f"{name}.1 and --help differ in {own ^ known[name]}")


def size_of_png(path):
    """The width and height in its header."""
    return struct.unpack(">II", path.read_bytes()[16:24])


def check_pictures_of_metainfo():
    pictures = re.findall(r'<image width="(\d+)" height="(\d+)">\S+/(\S+\.png)</image>', METAINFO.read_text(encoding="utf-8"))
    expect(pictures, "the metainfo has no pictures")
    for width, height, name in pictures:
        size = size_of_png(PROJECT / "docs/images" / name)
        expect(size == (int(width), int(height)), f"{METAINFO.name}: {name} is {size[0]} x {size[1]}, not {width} x {height}")


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    build = Path(sys.argv[1]).resolve()
    files = list(project_files())
    documents = [Document(path) for path in sorted(files) if path.suffix in (".md", ".1")]
    known = helps_of_programs(build)
    run = check_commands(documents, build)
    check_links(documents)
    check_paths(documents, files)
    check_options(documents, known)
    check_figures(documents)
    check_man_pages(known)
    check_pictures_of_metainfo()
    for failure in failures:
        print(failure, file=sys.stderr)
    print(f"{len(documents)} documents, {run} commands run here, {len(failures)} failures")
    sys.exit(bool(failures))


main()
