"""Figures of several runs, as the benchmarks write them to the file that the variable FIGURES names: a line
for each run with what was measured, the program, the unit and the number, separated by tabs."""

import json
import os
import statistics
from dataclasses import dataclass

OURS = "ours"


@dataclass(frozen=True)
class Figure:
    """The median of several runs, with the quartiles beside it. All three are the same for one run. Editions
    that kept only the median have no quartiles."""
    unit: str
    runs: int
    median: float
    low: float | None
    high: float | None

    @staticmethod
    def of(unit, numbers):
        if len(numbers) == 1:
            return Figure(unit, 1, numbers[0], numbers[0], numbers[0])
        low, median, high = statistics.quantiles(numbers, n=4, method="inclusive")
        return Figure(unit, len(numbers), median, low, high)


def note(what, program, unit, number):
    """Adds a run to the file that FIGURES names, if it names one."""
    if file := os.environ.get("FIGURES"):
        with open(file, "a", encoding="utf-8") as figures:
            figures.write(f"{what}\t{program}\t{unit}\t{number}\n")


def read_runs(lines):
    """The figures of these lines, by what was measured and by program."""
    runs = {}
    for line in lines:
        what, program, unit, number = line.rstrip("\n").split("\t")
        runs.setdefault((what, program, unit), []).append(float(number))
    figures = {}
    for (what, program, unit), numbers in runs.items():
        figures.setdefault(what, {})[program] = Figure.of(unit, numbers)
    return figures


def runs_of_google_benchmark(program, output):
    """A line for each repetition: the real time of benchmarks that ask for it, otherwise the processor time
    of the main thread; and one for each counter."""
    counters_to_keep = ("signals", "delegates", "framesPerSecond", "longestMs")
    for run in json.loads(output)["benchmarks"]:
        if run["run_type"] != "iteration":
            continue
        name = run["run_name"]
        what = f"{program} {name.split('/iterations')[0]}"
        time = run["real_time" if name.endswith("/real_time") else "cpu_time"]
        yield f"{what}\t{OURS}\t{run['time_unit']}\t{time}"
        for counter in counters_to_keep:
            if counter in run:
                yield f"{what} {counter}\t{OURS}\t\t{run[counter]}"
