#!/usr/bin/env python3
"""Tests how figures are read and written as a table, and that the table in docs/performance.md is what
benchmarks/figures.json and benchmarks/figures_before.json say.

usage: tests/benchmarks/check_figures.py
"""

import json
import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path
from types import SimpleNamespace

PROJECT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(PROJECT / "benchmarks"))

import figures  # noqa: E402
import table  # noqa: E402


def measurement(runs):
    return SimpleNamespace(edition="1.2.3", commit="abc1234", date="2026-01-02", machine="a machine",
                           figures=figures.read_runs(runs))


class Runs(unittest.TestCase):
    def test_are_gathered_by_what_was_measured_and_by_program(self):
        read = figures.read_runs(["start\tours\tms\t3", "start\tpeer\tms\t9", "start\tours\tms\t1", "start\tours\tms\t2"])
        self.assertEqual(read, {"start": {"ours": figures.Figure("ms", 3, 2, 1.5, 2.5),
                                          "peer": figures.Figure("ms", 1, 9, 9, 9)}})

    def test_one_outlier_moves_neither_the_median_nor_the_quartiles(self):
        numbers = [10.0] * 20 + [1000.0]
        self.assertEqual(figures.Figure.of("ms", numbers), figures.Figure("ms", 21, 10, 10, 10))

    def test_are_noted_only_in_a_file_that_is_named(self):
        with tempfile.TemporaryDirectory() as folder:
            file = Path(folder) / "figures"
            os.environ["FIGURES"] = str(file)
            figures.note("start", "ours", "ms", 4.5)
            del os.environ["FIGURES"]
            figures.note("start", "ours", "ms", 7)
            self.assertEqual(file.read_text(), "start\tours\tms\t4.5\n")


class GoogleBenchmark(unittest.TestCase):
    RUN = {"run_type": "iteration", "time_unit": "ms", "real_time": 8, "cpu_time": 5}

    def lines(self, *runs):
        output = json.dumps({"benchmarks": [{**self.RUN, **run} for run in runs]})
        return list(figures.runs_of_google_benchmark("bench", output))

    def test_gives_processor_time_unless_real_time_was_asked_for(self):
        self.assertEqual(self.lines({"run_name": "a/10"}, {"run_name": "b/iterations:20/real_time"}),
                         ["bench a/10\tours\tms\t5", "bench b\tours\tms\t8"])

    def test_gives_each_repetition_but_no_means_of_them(self):
        self.assertEqual(len(self.lines({"run_name": "a"}, {"run_name": "a"},
                                        {"run_name": "a", "run_type": "aggregate"})), 2)

    def test_gives_the_counters_of_the_table(self):
        self.assertEqual(self.lines({"run_name": "a", "signals": 0, "rows": 5000})[1:], ["bench a signals\tours\t\t0"])


class Numbers(unittest.TestCase):
    def test_have_three_digits(self):
        for value, text in ((0, "0"), (0.0, "0"), (0.05, "0.050"), (0.8444, "0.844"), (1.236, "1.24"), (12.34, "12.3"),
                            (99.99, "100.0"), (123.4, "123"), (1234.5, "1,234"), (56, "56.0")):
            self.assertEqual(table.number(value), text)

    def test_of_a_document_are_as_written(self):
        self.assertEqual(table.cell(figures.Figure("ms", 21, 0.8, None, None)), "0.8 ms")
        self.assertEqual(table.cell(figures.Figure("MB/s", 21, 1963, None, None)), "1,963 MB/s")


class Table(unittest.TestCase):
    ROW = table.Row("start", "start", "90 ms", peers=("one", "two"))

    def cells(self, row, runs, before=()):
        return list(table.lines_of(row, figures.read_runs(runs), figures.read_runs(before)))

    def test_has_a_line_for_each_peer_and_says_once_what_is_the_same(self):
        runs = [f"start\t{program}\tms\t{number}" for program, number in (("ours", 10), ("one", 20), ("two", 5))]
        self.assertEqual(self.cells(self.ROW, runs, ["start\tours\tms\t40"]),
                         [["start", "90 ms", "10.0 ms", "", "`one`", "20.0 ms", "", "0.50", "40.0 ms", "0.25"],
                          ["", "", "", "", "`two`", "5.00 ms", "", "2.00", "", ""]])

    def test_shows_what_is_missing(self):
        self.assertEqual(self.cells(table.Row("start", "start"), []), [["start", "", "–", "", "", "", "", "", "–", ""]])

    def test_compares_neither_other_units_nor_with_nothing(self):
        for before in (["start\tours\tMB\t2"], ["start\tours\tms\t0"]):
            self.assertEqual(self.cells(table.Row("start", "start"), ["start\tours\tms\t1"], before)[0][-1], "")

    def test_replaces_only_what_is_between_the_marks(self):
        document = f"before\n{table.BEGIN}\nold\n{table.END}\nafter\n"
        self.assertEqual(table.with_table(document, "new"), f"before\n{table.BEGIN}\n\nnew\n\n{table.END}\nafter\n")
        with self.assertRaises(ValueError):
            table.with_table(f"before\n{table.END}\n", "new")

    def test_has_the_commits_and_as_many_cells_in_each_line(self):
        lines = table.table(measurement(["idle\tours\ts\t0.01"]), measurement([])).splitlines()
        self.assertIn("edition 1.2.3 at abc1234, 2026-01-02: a machine", lines[0])
        self.assertEqual({line.count("|") for line in lines[3:]}, {len(table.HEADINGS) + 1})

    def test_measures_no_figure_twice(self):
        keys = [(row.what, row.ours) for row in table.ROWS]
        self.assertEqual(len(keys), len(set(keys)))


class Document(unittest.TestCase):
    def test_has_the_table_of_the_figures(self):
        outcome = subprocess.run([PROJECT / "benchmarks/all", "--check"], capture_output=True, text=True, check=False)
        self.assertEqual((outcome.returncode, outcome.stderr), (0, ""))

    def test_has_a_row_for_each_figure_of_the_edition_before(self):
        before = json.loads((PROJECT / "benchmarks/figures_before.json").read_text())["figures"]
        recorded = {(what, program) for what, programs in before.items() for program in programs}
        peers = {(row.what, peer) for row in table.ROWS for peer in row.peers}
        self.assertLessEqual(recorded, {(row.what, row.ours) for row in table.ROWS} | peers)


if __name__ == "__main__":
    unittest.main()
