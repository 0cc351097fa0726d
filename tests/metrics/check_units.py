#!/usr/bin/env python3
"""Turns on the timer that writes the figures, in a session of systemd that it starts for this, and checks
what the timer and the service do there, and what the service may not do. Needs root, to separate the
session from this machine; the session is that of a user without rights.

usage: tests/metrics/check_units.py BUILD_FOLDER
"""

import contextlib
import os
import re
import shutil
import stat
import subprocess
import sys
import tempfile
import time
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
SAMPLE = PROJECT / "samples/desk"
NOBODY = 65534
SYSTEMD = "/lib/systemd/systemd"
SESSION = Path("/sys/fs/cgroup/session")
RUNTIME = Path("/run/session")
SEPARATE = ["unshare", "--pid", "--fork", "--mount", "--cgroup", "--ipc", "--mount-proc"]
INSIDE = "--inside"
WAIT_SECONDS = 60
# Each of these must be refused to the service.
PROBE = """
import ctypes, mmap, socket
c = ctypes.CDLL(None, use_errno=True)
def make_namespace():
    if c.unshare(0x10000000) != 0:
        raise OSError(ctypes.get_errno(), "unshare")
for name, attempt in {
    "network": lambda: socket.socket(socket.AF_INET),
    "bus": lambda: socket.socket(socket.AF_UNIX),
    "code": lambda: mmap.mmap(-1, 4096, prot=mmap.PROT_WRITE | mmap.PROT_EXEC),
    "namespace": make_namespace,
}.items():
    try:
        attempt()
        print(name, "allowed")
    except OSError:
        print(name, "refused")
"""


def fail(message):
    sys.exit(f"check_units: {message}")


def skip(reason):
    print(f"check_units: skipped: {reason}")
    sys.exit()


def run(*command, **options):
    words = [str(word) for word in command]
    outcome = subprocess.run(words, capture_output=True, text=True, **options)
    if outcome.returncode != 0:
        fail(f"{' '.join(words)}: status {outcome.returncode}\n{outcome.stdout}{outcome.stderr}")
    return outcome.stdout


def separate_from_the_machine():
    """Only what this process and its children see: an empty /run of a machine with systemd, and a control
    group that the user may divide."""
    run("mount", "--make-rprivate", "/")
    run("mount", "-t", "cgroup2", "none", "/sys/fs/cgroup")
    run("mount", "-t", "tmpfs", "-o", "mode=755", "none", "/run")
    Path("/run/systemd/system").mkdir(parents=True)
    RUNTIME.mkdir(mode=0o700)
    os.chown(RUNTIME, NOBODY, NOBODY)
    SESSION.mkdir(exist_ok=True)
    for file in (SESSION, SESSION / "cgroup.procs", SESSION / "cgroup.subtree_control"):
        os.chown(file, NOBODY, NOBODY)
    (SESSION / "cgroup.procs").write_text("0")


def leave_no_control_group():
    (SESSION.parent / "cgroup.procs").write_text("0")
    for folder, _, _ in os.walk(SESSION, topdown=False):
        os.rmdir(folder)


class Session:
    """A session of systemd for a user without rights, with the units in the user's home."""

    def __init__(self, home):
        self.units = home / ".config/systemd/user"
        environment = {"PATH": os.environ["PATH"], "HOME": str(home), "XDG_RUNTIME_DIR": str(RUNTIME)}
        self.as_user = {"user": NOBODY, "group": NOBODY, "extra_groups": [], "env": environment}
        self.log = home / "log"

    @contextlib.contextmanager
    def running(self):
        with self.log.open("w") as log:
            process = subprocess.Popen([SYSTEMD, "--user", "--log-target=console", "--unit=basic.target"],
                                       stdout=log, stderr=log, **self.as_user)
        try:
            self.wait_until((RUNTIME / "systemd/private").exists, "the session")
            yield
        finally:
            process.terminate()
            process.wait()

    def systemctl(self, *words):
        return run("systemctl", "--user", "--no-pager", *words, **self.as_user)

    def wait_until(self, condition, what):
        end = time.monotonic() + WAIT_SECONDS
        while not condition():
            if time.monotonic() > end:
                units = subprocess.run(["systemctl", "--user", "--no-pager", "status", "tamberline-metrics*"],
                                       capture_output=True, text=True, **self.as_user).stdout
                fail(f"waited in vain for {what}\n{units}{self.log.read_text()}")
            time.sleep(0.05)


def add_unit_like_the_service(units, name, command, output):
    """A service with the same restrictions that runs another command."""
    service = (units / "tamberline-metrics.service").read_text()
    (units / f"{name}.service").write_text(
        re.sub("(?m)^ExecStart=.*$", f"ExecStart={command}\nStandardOutput=file:{output}", service))


def install(build, home, figures):
    """The units and the program as the package installs them, and a place for the figures that the user
    may write to."""
    prefix = home / "prefix"
    run("cmake", "--install", build, "--component", "metrics", "--prefix", prefix)
    (prefix / "bin").mkdir()
    shutil.copy(build / "tools/tamberline-inspect/tamberline-inspect", prefix / "bin")
    units = home / ".config/systemd/user"
    shutil.copytree(prefix / "lib/systemd/user", units)
    place = units / "tamberline-metrics.service.d/place.conf"
    place.parent.mkdir()
    place.write_text(f"[Service]\nEnvironment=TAMBERLINE_METRICS={figures}\n")
    (home / "probe.py").write_text(PROBE)
    add_unit_like_the_service(units, "probe", f"/usr/bin/python3 {home}/probe.py", home / "probe")
    shutil.copytree(SAMPLE, home / "desk")
    add_unit_like_the_service(units, "sample", f"{prefix}/bin/tamberline-inspect metrics --reports {home}/desk",
                              home / "sample")
    run("chown", "--recursive", f"{NOBODY}:{NOBODY}", home)


def is_whole(figures):
    return figures.exists() and figures.read_text().endswith("\n# EOF\n")


def check_timer(session, figures):
    session.systemctl("enable", "--now", "tamberline-metrics.timer")
    session.wait_until(lambda: is_whole(figures), "the figures")
    if stat.S_IMODE(figures.stat().st_mode) != 0o644:
        fail("the node exporter cannot read the figures")
    if not (session.units / "timers.target.wants/tamberline-metrics.timer").is_symlink():
        fail("the timer is off in the next session")
    next_time = session.systemctl("list-timers", "--output=json")
    if "tamberline-metrics.service" not in next_time:
        fail(f"the service does not come again: {next_time}")


def check_service(session, figures):
    figures.unlink()
    session.systemctl("start", "tamberline-metrics.service")
    if not is_whole(figures):
        fail("the service has written no figures")


def check_refusals(session, home):
    session.systemctl("start", "probe.service")
    printed = (home / "probe").read_text()
    if printed.split() != "network refused bus refused code refused namespace refused".split():
        fail(f"the service may do too much:\n{printed}")


def check_sample(session, home):
    """The restrictions keep the program from nothing that it needs."""
    session.systemctl("start", "sample.service")
    figures = (home / "sample").read_text()
    free = run(home / "prefix/bin/tamberline-inspect", "metrics", "--reports", home / "desk")
    if figures != free or "Harbour" not in figures:
        fail(f"the service writes other figures than the program alone:\n{figures}")


def check_inside(build):
    separate_from_the_machine()
    with tempfile.TemporaryDirectory() as name:
        home = Path(name)
        home.chmod(0o755)
        figures = home / "figures/tamberline.prom"
        figures.parent.mkdir()
        install(build, home, figures)
        session = Session(home)
        with session.running():
            check_timer(session, figures)
            check_service(session, figures)
            check_refusals(session, home)
            check_sample(session, home)
    leave_no_control_group()
    print("check_units: the timer writes the figures, and the service may do nothing else")


def main():
    arguments = sys.argv[1:]
    if len(arguments) == 2 and arguments[0] == INSIDE:
        check_inside(Path(arguments[1]))
        return
    if len(arguments) != 1:
        sys.exit(__doc__.strip())
    if not Path(SYSTEMD).exists():
        skip("systemd is missing")
    if os.geteuid() != 0:
        skip("needs root")
    mounts = "mount --make-rprivate / && mount -t cgroup2 none /sys/fs/cgroup && mount -t tmpfs none /run"
    if subprocess.run([*SEPARATE, "sh", "-c", mounts], capture_output=True).returncode != 0:
        skip("this machine allows no namespaces")
    sys.exit(subprocess.run([*SEPARATE, sys.executable, __file__, INSIDE,
                             str(Path(arguments[0]).resolve())]).returncode)


main()
