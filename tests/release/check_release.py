#!/usr/bin/env python3
"""Checks that all places name the same version, and scripts/edition and scripts/release on a copy of the
project: each place made wrong once is refused with its name, as is an edition without notes or with changes
that are not committed. The source archive is the same in another folder, at another time, with other
settings of git.

usage: tests/release/check_release.py
"""

import contextlib
import os
import re
import subprocess
import sys
import tarfile
import tempfile
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
VERSION = subprocess.run([PROJECT / "scripts/edition", "version"], capture_output=True, text=True,
                         check=True).stdout.strip()
CHANGELOG_OF_PACKAGES = "packaging/linux/debian/changelog"
METAINFO = "packaging/linux/org.tamberline.Tamberline.metainfo.xml"
MAN_PAGES = [f"packaging/linux/man/{name}.1" for name in ("tamberline", "tamberline-inspect", "tamberline-replay")]
DATE = re.search(r'<release version=".*?" date="(.*?)"', (PROJECT / METAINFO).read_text())[1]
OTHER_VERSION = "77.7.7"
OTHER_DATE = "1999-12-31"

# The place that the message names, the file, and what is replaced in it by what.
WRONG_VERSIONS = [
    (CHANGELOG_OF_PACKAGES, CHANGELOG_OF_PACKAGES, f"({VERSION})", f"({OTHER_VERSION})"),
    (METAINFO, METAINFO, f'version="{VERSION}"', f'version="{OTHER_VERSION}"'),
    *[(page, page, f'"Tamberline {VERSION}"', f'"Tamberline {OTHER_VERSION}"') for page in MAN_PAGES],
    *[(page, page, f'"Tamberline {VERSION}"', '"Tamberline"') for page in MAN_PAGES],
    ("CFBundleVersion", "packaging/macos/Info.plist.in", "${MACOSX_BUNDLE_BUNDLE_VERSION}", OTHER_VERSION),
    ("CFBundleShortVersionString", "packaging/macos/Info.plist.in", "${MACOSX_BUNDLE_SHORT_VERSION_STRING}",
     OTHER_VERSION),
    ("CFBundleVersion", "packaging/macos/bundle.cmake", "MACOSX_BUNDLE_BUNDLE_VERSION ${PROJECT_VERSION}",
     f"MACOSX_BUNDLE_BUNDLE_VERSION {OTHER_VERSION}"),
    ("CFBundleShortVersionString", "packaging/macos/bundle.cmake",
     "MACOSX_BUNDLE_SHORT_VERSION_STRING ${PROJECT_VERSION}", f"MACOSX_BUNDLE_SHORT_VERSION_STRING {OTHER_VERSION}"),
    ("CHANGELOG.md", "CHANGELOG.md", f"## {VERSION}", f"## {OTHER_VERSION}"),
    ("CMakeLists.txt", "CMakeLists.txt", f"VERSION {VERSION}", f"VERSION {OTHER_VERSION}"),
]
WRONG_DATES = [
    (METAINFO, METAINFO, f'date="{DATE}"', f'date="{OTHER_DATE}"'),
    *[(page, page, f" 1 {DATE} ", f" 1 {OTHER_DATE} ") for page in MAN_PAGES],
    *[(page, page, f" 1 {DATE} ", ' 1 "" ') for page in MAN_PAGES],
    ("CHANGELOG.md", "CHANGELOG.md", f"## {VERSION}, {DATE}", f"## {VERSION}, {OTHER_DATE}"),
]
UNFINISHED = [
    ("CHANGELOG.md", "CHANGELOG.md", f"## {VERSION}, {DATE}", "## Unreleased"),
    ("has no notes", "CHANGELOG.md", f"## {VERSION}, {DATE}\n", f"## {VERSION}, {DATE}\n\n## 0.0.1, {OTHER_DATE}\n"),
]


def fail(message):
    sys.exit(f"check_release: {message}")


def run(*command, **options):
    return subprocess.run(command, capture_output=True, text=True, check=False, **options)


def git(folder, *arguments):
    person = ["-c", "user.name=Somebody", "-c", "user.email=somebody@example.org"]
    outcome = run("git", *person, *arguments, cwd=folder)
    if outcome.returncode != 0:
        fail(f"git {' '.join(arguments)}: {outcome.stderr}")
    return outcome.stdout


def copy_ready_for_release(folder):
    """The project's files as they are now, with a changelog for the edition, committed."""
    files = git(PROJECT, "ls-files", "-z", "--cached", "--others", "--exclude-standard").split("\0")
    for file in filter(lambda file: file and (PROJECT / file).exists(), files):
        copy = folder / file
        copy.parent.mkdir(parents=True, exist_ok=True)
        copy.write_bytes((PROJECT / file).read_bytes())
        copy.chmod((PROJECT / file).stat().st_mode)
    changelog = folder / "CHANGELOG.md"
    changelog.write_text(re.sub(r"^## .*", f"## {VERSION}, {DATE}", changelog.read_text(), count=1, flags=re.MULTILINE))
    git(folder, "init", "--quiet")
    git(folder, "add", "--all")
    git(folder, "commit", "--quiet", "--message", "The edition")


@contextlib.contextmanager
def changed(folder, file, old, new):
    text = (folder / file).read_text()
    if old not in text:
        fail(f"{file} does not contain {old}")
    (folder / file).write_text(text.replace(old, new, 1))
    yield
    (folder / file).write_text(text)


def expect_refusal(outcome, place, what):
    if outcome.returncode == 0:
        fail(f"{what} is accepted")
    if place not in outcome.stderr:
        fail(f"the message about {what} does not name {place}: {outcome.stderr}")


def check_places(folder, command, wrong):
    for place, file, old, new in wrong:
        with changed(folder, file, old, new):
            expect_refusal(run(folder / "scripts/edition", command), place, f"{new} in {file}")


def check_unfinished(folder):
    """What is not ready for release is no fault before."""
    for place, file, old, new in UNFINISHED:
        with changed(folder, file, old, new):
            for command in ("final", "notes"):
                expect_refusal(run(folder / "scripts/edition", command), place, f"{new} in {file}")
            if run(folder / "scripts/edition", "check").returncode != 0:
                fail(f"{new} in {file} is a fault before the release")


def release(folder, into, **options):
    return run(folder / "scripts/release", "--source", into, **options)


def check_refusals_of_release(folder, work):
    (folder / "left-over.txt").write_text("not committed")
    expect_refusal(release(folder, work / "unclean"), "left-over.txt", "a file that is not committed")
    (folder / "left-over.txt").unlink()
    with changed(folder, METAINFO, f'version="{VERSION}"', f'version="{OTHER_VERSION}"'):
        git(folder, "commit", "--quiet", "--all", "--message", "Another version")
        expect_refusal(release(folder, work / "wrong"), METAINFO, "another version in the metainfo")
    git(folder, "reset", "--quiet", "--hard", "HEAD~1")
    if (work / "unclean").exists() or (work / "wrong").exists():
        fail("scripts/release leaves something although it refuses")


def made_source(folder, into, **options):
    outcome = release(folder, into, **options)
    if outcome.returncode != 0:
        fail(f"no source archive: {outcome.stderr}")
    return into / f"tamberline-{VERSION}.tar.gz"


def check_source(folder, work):
    first = made_source(folder, work / "first")
    elsewhere = work / "a folder with another name"
    git(work, "clone", "--quiet", folder, elsewhere)
    os.utime(elsewhere / "README.md", (0, 0))
    git(elsewhere, "config", "tar.umask", "0077")
    git(elsewhere, "config", "core.autocrlf", "true")
    second = made_source(elsewhere, work / "second", umask=0o077, env={**os.environ, "TZ": "ODD-12:45"})
    if first.read_bytes() != second.read_bytes():
        fail("two source archives of one commit differ")
    with tarfile.open(first) as archive:
        names = {member.name for member in archive.getmembers() if not member.isdir()}
    if names != {f"tamberline-{VERSION}/{file}" for file in git(folder, "ls-files").splitlines()}:
        fail("the source archive does not have the committed files")
    notes = (work / "first/notes.md").read_text()
    if not notes.strip() or notes.strip() not in (folder / "CHANGELOG.md").read_text() or "\n## " in notes:
        fail("the notes are not those of the changelog")


def main():
    if (outcome := run(PROJECT / "scripts/edition", "check")).returncode != 0:
        fail(outcome.stderr)
    with tempfile.TemporaryDirectory() as name:
        work = Path(name)
        folder = work / "project"
        folder.mkdir()
        copy_ready_for_release(folder)
        check_places(folder, "check", WRONG_VERSIONS)
        check_places(folder, "final", WRONG_DATES)
        check_unfinished(folder)
        check_refusals_of_release(folder, work)
        check_source(folder, work)
    print(f"release: {len(WRONG_VERSIONS)} wrong versions and {len(WRONG_DATES)} wrong dates are refused")


main()
