#!/usr/bin/env python3
"""Runs the recipes of docs/technicians.md as they are, on the sample machine "desk", and checks what they
leave. Also checks the files of expectations on that page and in the man page against their schema.

usage: tests/technicians/run_recipes.py BUILD_FOLDER
"""

import json
import os
import re
import signal
import stat
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import jsonschema

PROJECT = Path(__file__).resolve().parents[2]
PAGE = PROJECT / "docs/technicians.md"
SCHEMA = PROJECT / "packaging/schemas/expectations.schema.json"
MAN_PAGE = PROJECT / "packaging/linux/man/tamberline-inspect.1"
SERIAL_NUMBER = "QP2T-40B81C"  # of a device of the sample


def fail(message):
    sys.exit(f"run_recipes: {message}")


def blocks_in(text):
    """The indented blocks of a text."""
    return [re.sub("^    ", "", block, flags=re.MULTILINE)
            for block in re.findall(r"(?:^    .*\n(?:\n(?=    ))?)+", text, re.MULTILINE)]


def recipes():
    """The title and the first block of each recipe."""
    part = PAGE.read_text().split("## Five recipes\n")[1].split("\n## ")[0]
    found = re.findall(r"^### ([^\n]*)\n(.*?)(?=^### |\Z)", part, re.MULTILINE | re.DOTALL)
    return {title: blocks_in(text)[0] for title, text in found}


def put_on_the_path(build, folder):
    """A program of the usual name that takes the sample in the place of this machine."""
    program = folder / "bin/tamberline-inspect"
    program.parent.mkdir()
    program.write_text(f'#!/bin/sh\necho $$ >"{folder}/process"\n'
                       f'exec "{build}/tools/tamberline-inspect/tamberline-inspect" "$@" '
                       f'--reports "{PROJECT}/samples/desk" --language en\n')
    program.chmod(program.stat().st_mode | stat.S_IXUSR)
    return {**os.environ, "PATH": f"{program.parent}:{os.environ['PATH']}"}


def run(recipe, folder, environment):
    process = subprocess.Popen(["bash", "-c", recipe], cwd=folder, env=environment, text=True,
                               stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    if " record " in recipe:
        interrupt_recording(process, folder)
    output, errors = process.communicate()
    return subprocess.CompletedProcess(recipe, process.returncode, output, errors)


def interrupt_recording(process, folder):
    """Presses Ctrl+C after the first step, as a person would when everything has been shown."""
    while process.poll() is None and not list(folder.glob("*/step-*")):
        time.sleep(0.02)
    os.kill(int((folder / "process").read_text()), signal.SIGINT)


def expect(condition, title, outcome):
    if not condition:
        fail(f"{title}: status {outcome.returncode}\n{outcome.stdout}{outcome.stderr}")


def content_of(folder):
    return "".join(file.read_text() for file in sorted(folder.rglob("*")) if file.is_file())


def check(title, outcome, folder):
    """What must be there after each recipe."""
    if title == "A bug report without serial numbers":
        saved = content_of(folder / "bug-report")
        return (folder / "bug-report.tar.gz").exists() and SERIAL_NUMBER not in saved and "SPUSBDataType" in saved
    if title == "What changed since yesterday":
        return outcome.stdout == "No difference\nnothing changed\n"
    if title == "A bench that must be complete":
        return outcome.stdout.startswith("TAP version 14\n1..14\nok 1 ") and "not ok" not in outcome.stdout
    if title == "A bug that one can watch":
        return re.fullmatch(r"(step-000001-\d{8}T\d{6}\.\d{3}Z\n){2}", outcome.stdout)
    if title == "Forty docks on one screen":
        return outcome.stdout.count("tamberline_link_speed_bytes_per_second{") == 10
    return False


def check_recipes(build):
    found = recipes()
    if len(found) != 5:
        fail(f"{len(found)} recipes")
    for title, recipe in found.items():
        with tempfile.TemporaryDirectory() as name:
            folder = Path(name)
            outcome = run(recipe, folder, put_on_the_path(build, folder))
            # `timeout` has a status of its own; the commands behind it tell whether the recording is there.
            expect(outcome.returncode == 0 and check(title, outcome, folder), title, outcome)
        print(f"recipe: {title}")


def examples():
    """The files of expectations in the documents."""
    blocks = blocks_in(PAGE.read_text()) + re.findall(r"^\.RS\n(\{.*?^\}\n)", MAN_PAGE.read_text(),
                                                      re.MULTILINE | re.DOTALL)
    found = [block for block in blocks if '"expectations": 1' in block]
    if len(found) != 2:
        fail(f"{len(found)} examples")
    return found


def check_schema(build):
    """The examples and a written file follow the schema; files that the program refuses do not."""
    schema = json.loads(SCHEMA.read_text())
    jsonschema.Draft7Validator.check_schema(schema)
    validator = jsonschema.Draft7Validator(schema)
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        environment = put_on_the_path(build, folder)
        for example in examples():
            (folder / "example.json").write_text(example)
            outcome = run("tamberline-inspect expect example.json", folder, environment)
            expect(outcome.returncode == 0, example, outcome)
            validator.validate(json.loads(re.sub("//.*", "", example)))
        run("tamberline-inspect expect --write written.json", folder, environment)
        validator.validate(json.loads((folder / "written.json").read_text()))
        for wrong in ({}, {"devices": 1}, {"devices": [{}]}, {"devices": [{"port": 1}]},
                      {"devices": [{"name": 1}]}, {"devices": [{"name": "A", "port": 0}]},
                      {"devices": [{"name": "A", "minGbps": 0}]}, {"devices": [{"vendorID": "0x1"}]},
                      {"devices": [{"name": "A", "volumes": [1]}]}, {"devices": [{"name": "A", "prot": 1}]},
                      {"expectations": 2, "devices": []}):
            (folder / "wrong.json").write_text(json.dumps(wrong))
            outcome = run("tamberline-inspect expect wrong.json", folder, environment)
            expect(outcome.returncode == 2 and "wrong.json:1: " in outcome.stderr, str(wrong), outcome)
            if validator.is_valid(wrong):
                fail(f"the schema accepts {wrong}")


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__.strip())
    build = Path(sys.argv[1]).resolve()
    check_recipes(build)
    check_schema(build)


main()
