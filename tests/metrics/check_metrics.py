#!/usr/bin/env python3
"""Checks what `tamberline-inspect metrics` prints against the real Prometheus and its node exporter, which
it starts on the loopback: the formats, the alerts of packaging/metrics/, the queries of the dashboard, and
a fleet of 1,000 random machines.

usage: tests/metrics/check_metrics.py BUILD_FOLDER
"""

import contextlib
import http.server
import json
import os
import re
import shutil
import signal
import socket
import socketserver
import subprocess
import sys
import tempfile
import threading
import time
import urllib.parse
import urllib.request
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
PACKAGING = PROJECT / "packaging/metrics"
SCRAPE_SECONDS = 1
FLEET_SIZE = 1000
FLEET_SCRAPE_SECONDS = 3


def fail(message):
    sys.exit(f"check_metrics: {message}")


def free_port():
    with socket.socket() as listener:
        listener.bind(("127.0.0.1", 0))
        return listener.getsockname()[1]


def wait_until(condition, what, seconds=20):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        with contextlib.suppress(OSError):
            result = condition()
            if result:
                return result
        time.sleep(0.1)
    fail(f"waited in vain for {what}")


@contextlib.contextmanager
def running(*command):
    """Ends the command without its own way of ending, in which Prometheus would first write what it keeps."""
    with tempfile.TemporaryFile() as log:
        process = subprocess.Popen([str(word) for word in command], stdout=log, stderr=log)
        try:
            yield process
        finally:
            process.kill()
            if process.wait() != -signal.SIGKILL:
                log.seek(0)
                sys.stderr.buffer.write(log.read())


class Prometheus:
    def __init__(self, port, process):
        self.port = port
        self.process = process

    def get(self, path, **parameters):
        query = urllib.parse.urlencode(parameters)
        with urllib.request.urlopen(f"http://127.0.0.1:{self.port}/{path}?{query}") as answer:
            return json.load(answer)

    def query(self, expression):
        return self.get("api/v1/query", query=expression)["data"]["result"]

    def firing(self, alert):
        alerts = self.get("api/v1/alerts")["data"]["alerts"]
        return [one["labels"] for one in alerts
                if one["labels"]["alertname"] == alert and one["state"] == "firing"]

    def value(self, expression):
        result = self.query(expression)
        return float(result[0]["value"][1]) if result else None

    def resident_megabytes(self):
        status = Path(f"/proc/{self.process.pid}/status").read_text()
        return int(re.search(r"VmRSS:\s+(\d+)", status)[1]) / 1000


@contextlib.contextmanager
def prometheus(folder, seconds, jobs):
    """Prometheus with the alerts of the project, which scrapes `jobs`."""
    configuration = folder / "prometheus.yml"
    configuration.write_text(json.dumps({  # JSON is YAML too
        "global": {"scrape_interval": f"{seconds}s", "evaluation_interval": f"{seconds}s",
                   "scrape_timeout": f"{seconds}s"},
        "rule_files": [str(PACKAGING / "tamberline.rules.yml")],
        "scrape_configs": jobs}))
    subprocess.run(["promtool", "check", "config", configuration], check=True, stdout=subprocess.DEVNULL)
    port = free_port()
    with running("prometheus", f"--config.file={configuration}", f"--storage.tsdb.path={folder}/data",
                 f"--web.listen-address=127.0.0.1:{port}", "--log.level=warn") as process:
        server = Prometheus(port, process)
        wait_until(lambda: server.get("api/v1/status/runtimeinfo"), "Prometheus")
        yield server


def check_formats(inspect):
    for sample in sorted(path for path in (PROJECT / "samples").iterdir() if path.is_dir()):
        metrics = subprocess.run([inspect, "metrics", "--reports", sample], check=True,
                                 capture_output=True).stdout
        if not metrics.endswith(b"\n# EOF\n"):
            fail(f"the metrics of {sample.name} do not end with # EOF")
        checked = subprocess.run(["promtool", "check", "metrics"], input=metrics, capture_output=True)
        if checked.returncode != 0:
            fail(f"promtool on {sample.name}: {checked.stderr.decode()}")
    subprocess.run(["promtool", "check", "rules", PACKAGING / "tamberline.rules.yml"], check=True,
                   stdout=subprocess.DEVNULL)


class Machine:
    """A saved machine, whose metrics are in a folder for the textfile collector."""

    def __init__(self, inspect, folder):
        self.inspect = inspect
        self.reports = folder / "machine"
        self.textfiles = folder / "textfiles"
        self.textfiles.mkdir()
        shutil.copytree(PROJECT / "samples/desk", self.reports)
        self.write()

    def write(self):
        subprocess.run([self.inspect, "metrics", "--reports", self.reports,
                        "--output", self.textfiles / "tamberline.prom"], check=True)

    def set_speed_of_camera(self, before, after):
        report = self.reports / "SPUSBDataType.json"
        text = report.read_text()
        start = text.index('"Lumen 27 Camera"')
        report.write_text(text[:start] + text[start:].replace(f'"{before}"', f'"{after}"', 1))
        self.write()


def check_alerts(inspect, folder):
    """A slow link raises its alert within two scrapes, and clears it within two."""
    machine = Machine(inspect, folder)
    port = free_port()
    jobs = [{"job_name": "node", "static_configs": [{"targets": [f"127.0.0.1:{port}"]}]}]
    with running("prometheus-node-exporter", f"--web.listen-address=127.0.0.1:{port}",
                 "--collector.disable-defaults", "--collector.textfile",
                 f"--collector.textfile.directory={machine.textfiles}"), \
            prometheus(folder, SCRAPE_SECONDS, jobs) as server:
        camera = 'tamberline_link_speed_bytes_per_second{device="Lumen 27 Camera"}'
        wait_until(lambda: server.value(camera) == 5e9 / 8, "the first scrape")
        if server.value("node_textfile_scrape_error") != 0:
            fail("the node exporter cannot read the metrics")
        if server.firing("TamberlineLinkSlower"):
            fail("an alert before anything is slower")
        for before, after, devices in [("super_speed", "high_speed", ["Lumen 27 Camera"]),
                                       ("high_speed", "super_speed", [])]:
            machine.set_speed_of_camera(before, after)
            start = time.monotonic()
            wait_until(lambda: [labels["device"] for labels in server.firing("TamberlineLinkSlower")]
                       == devices, f"the alert after {after}")
            seconds = time.monotonic() - start
            # A scrape that begins right before the change, another one, and the evaluation after it.
            if seconds > 3 * SCRAPE_SECONDS + 0.5:
                fail(f"{after}: the alert took {seconds:.1f} s at a scrape each {SCRAPE_SECONDS} s")
            print(f"alert after {after}: {seconds:.1f} s")
        check_dashboard(server)


def check_dashboard(server):
    dashboard = json.loads((PACKAGING / "tamberline-dashboard.json").read_text())
    for panel in dashboard["panels"]:
        for target in panel["targets"]:
            if not server.query(target["expr"].replace("$instance", ".*")):
                fail(f"the panel '{panel['title']}' shows nothing: {target['expr']}")


class FleetHandler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"
    folder = None

    def do_GET(self):
        content = (self.folder / self.path.strip("/")).read_bytes()
        self.send_response(200)
        self.send_header("Content-Type", "application/openmetrics-text; version=1.0.0; charset=utf-8")
        self.send_header("Content-Length", str(len(content)))
        self.end_headers()
        self.wfile.write(content)

    def log_message(self, *arguments):
        pass


class FleetServer(socketserver.ThreadingMixIn, http.server.HTTPServer):
    daemon_threads = True
    # All machines may be asked at once. Who finds no place tries again only after a second.
    request_queue_size = FLEET_SIZE

    def handle_error(self, request, client_address):
        """Prometheus is ended while it asks, which breaks connections."""
        if not isinstance(sys.exc_info()[1], ConnectionError):
            super().handle_error(request, client_address)


def check_fleet(build, folder):
    """Prometheus reads the files of a fleet as OpenMetrics."""
    files = folder / "fleet"
    subprocess.run([build / "tests/metrics/write_fleet_metrics", files, str(FLEET_SIZE)], check=True)
    FleetHandler.folder = files
    with FleetServer(("127.0.0.1", 0), FleetHandler) as machines:
        threading.Thread(target=machines.serve_forever, daemon=True).start()
        jobs = [{"job_name": "fleet",
                 "static_configs": [{"targets": [str(number) for number in range(FLEET_SIZE)]}],
                 "relabel_configs": [
                     {"source_labels": ["__address__"], "target_label": "instance"},
                     {"source_labels": ["__address__"], "target_label": "__metrics_path__",
                      "replacement": "/$1"},
                     {"target_label": "__address__",
                      "replacement": f"127.0.0.1:{machines.server_port}"}]}]
        with prometheus(folder, FLEET_SCRAPE_SECONDS, jobs) as server:
            start = time.monotonic()
            wait_until(lambda: server.value("sum(up)") == FLEET_SIZE, "all machines", 20 * FLEET_SCRAPE_SECONDS)
            series = server.value('count({__name__=~"tamberline_.*"})')
            largest = server.value("max(scrape_samples_scraped)")
            duration = server.value("sum(scrape_duration_seconds)")
            print(f"{FLEET_SIZE} machines: all scraped after {time.monotonic() - start:.1f} s, "
                  f"{series:.0f} series (at most {largest:.0f} of one machine), "
                  f"{server.resident_megabytes():.0f} MB, {duration:.1f} s for all scrapes of a round")
        machines.shutdown()


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__.strip())
    build = Path(sys.argv[1]).resolve()
    inspect = build / "tools/tamberline-inspect/tamberline-inspect"
    os.environ["LC_ALL"] = "C.UTF-8"
    check_formats(inspect)
    for check in (lambda folder: check_alerts(inspect, folder), lambda folder: check_fleet(build, folder)):
        with tempfile.TemporaryDirectory() as folder:
            check(Path(folder))


main()
