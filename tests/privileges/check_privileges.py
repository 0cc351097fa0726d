#!/usr/bin/env python3
"""Traces the system calls of the programs and checks the promises of docs/privacy.md: nobody has to be
root, no network address is opened, and no file is written or changed except those listed here.

usage: check_privileges.py BUILD_FOLDER      of the preset 'bench'
"""

import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

NOBODY = 65534
CHANGING_CALLS = (
    "creat,mkdir,mkdirat,mknod,mknodat,rename,renameat,renameat2,rmdir,unlink,unlinkat,link,linkat,"
    "symlink,symlinkat,truncate,chmod,fchmodat,chown,lchown,fchownat,setxattr,lsetxattr,mount,umount2"
)
TRACED_CALLS = f"open,openat,openat2,socket,connect,bind,setuid,setresuid,{CHANGING_CALLS}"
# The kernel's devices, which store nothing, and the shared memory of the display.
HARMLESS = re.compile(r"/dev/(null|tty|ptmx|dri/.*|shm/[^/]*)$|/memfd:|/proc/self/.*|/proc/\d+/.*")
FAMILIES_OF_THIS_MACHINE = {"AF_UNIX", "AF_LOCAL", "AF_NETLINK"}


def paths_in(arguments):
    """The paths among a call's arguments; those that begin at an open folder as a whole."""
    for folder, path in re.findall(r'(?:(?:\d+|AT_FDCWD)<([^>]*)>, )?"((?:[^"\\]|\\.)*)"', arguments):
        yield path if path.startswith("/") or not folder else f"{folder}/{path}"


def faults_in(trace, allowed):
    """The unexpected calls in the trace, one per line. `allowed` are patterns of paths."""
    faults = []
    for line in trace.splitlines():
        call = re.match(r"(?:\d+ +)?(\w+)\((.*)\) += (-?\d+)", line)
        if not call:
            continue
        name, arguments, result = call.group(1), call.group(2), int(call.group(3))
        if name in ("socket", "connect", "bind"):
            family = re.search(r"AF_\w+", arguments)
            if family and family.group() not in FAMILIES_OF_THIS_MACHINE:
                faults.append(f"opens the network: {line}")
            continue
        if result < 0:
            continue
        if name in ("setuid", "setresuid"):
            faults.append(f"changes its user: {line}")
            continue
        if name.startswith("open") and not re.search(r"O_WRONLY|O_RDWR|O_CREAT|O_TRUNC", arguments):
            continue
        if not any(HARMLESS.match(path) or any(re.fullmatch(pattern, path) for pattern in allowed)
                   for path in paths_in(arguments)):
            faults.append(f"writes: {line}")
    return faults


def trace_of(command, environment, work, until_shown=False):
    """Runs the command as the user nobody, in a separate folder, and returns its system calls. Sends
    SIGTERM to a program that shows a window after some seconds."""
    trace = work / "trace"
    drop = ["--user=nobody"] if os.geteuid() == 0 else []
    process = subprocess.Popen(
        ["strace", "--follow-forks", "--quiet=all", "--decode-fds=path",
         f"--trace={TRACED_CALLS}", "--string-limit=4096",
         f"--output={trace}"] + drop + [str(part) for part in command],
        env=environment, cwd=work, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
    if until_shown:
        time.sleep(5)
        os.kill(children_of(process.pid)[-1], signal.SIGTERM)
    _, errors = process.communicate(timeout=60)
    # The scan of a machine without ports fails, which is also a valid result.
    if process.returncode != 0:
        sys.exit(f"{command[0]} ended with {process.returncode}: {errors}")
    return trace.read_text(errors="replace")


def children_of(pid):
    return [int(child) for child in Path(f"/proc/{pid}/task/{pid}/children").read_text().split()]


def start_display(work):
    read_end, write_end = os.pipe()
    server = subprocess.Popen(
        ["Xvfb", "-displayfd", str(write_end), "-nolisten", "tcp", "-ac"], pass_fds=[write_end],
        stderr=subprocess.DEVNULL)
    os.close(write_end)
    with os.fdopen(read_end) as number:
        return server, f":{number.readline().strip()}"


def check(name, faults):
    for fault in faults:
        print(f"{name} {fault}", file=sys.stderr)
    print(f"{name}: {'no' if not faults else len(faults)} faults")
    return not faults


def is_checker_awake(work, environment):
    """Checks that the checker itself would detect a connection and a file."""
    connect = "import socket; s = socket.socket(); s.connect_ex(('127.0.0.1', 9))"
    write = "open('stray', 'w')"
    return all(faults_in(trace_of(["python3", "-S", "-c", code], environment, work), [])
               for code in (connect, write))


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    build = Path(sys.argv[1]).resolve()
    tools = build / "tools"
    samples = Path(__file__).resolve().parents[2] / "samples"
    work = Path(tempfile.mkdtemp(prefix="tamberline-privileges-"))
    runtime = work / "runtime"
    runtime.mkdir(mode=0o700)
    # Qt binds a socket in a temporary folder before it moves it to its final path.
    own_traces = [re.escape(str(runtime)) + r"/(tamberline\.(lock|socket)(\.\w+)?|\.\w{6}(/s)?)"]
    volume = work / "volume"
    test_file = [re.escape(str(volume)) + r"/\.tamberline_benchmark\.tmp"]
    volume.mkdir()
    for folder in (work, runtime, volume):
        shutil.chown(folder, NOBODY, NOBODY) if os.geteuid() == 0 else None
    server, display = start_display(work)
    environment = {"PATH": "/usr/bin:/bin", "HOME": str(work), "XDG_RUNTIME_DIR": str(runtime),
                   "DISPLAY": display, "LANG": "C.UTF-8",
                   # Desktops have a bus for the user; without an address, one would be started.
                   "DBUS_SESSION_BUS_ADDRESS": f"unix:path={work}/no-bus"}
    inspect = tools / "tamberline-inspect/tamberline-inspect"
    replay = tools / "tamberline-replay/tamberline-replay"
    picture = work / "picture.png"
    saved = work / "saved"
    expectations = work / "expectations.json"
    try:
        if not is_checker_awake(work, environment):
            sys.exit("the checker does not see a connection or a file")
        results = [
            check("inspect, this machine", faults_in(trace_of([inspect], environment, work), [])),
            check("inspect, saved reports",
                  faults_in(trace_of([inspect, "--json", "--reports", samples / "desk"], environment,
                                     work), [])),
            check("inspect, save",
                  faults_in(trace_of([inspect, "save", saved, "--reports", samples / "desk"], environment,
                                     work),
                            [re.escape(str(saved)),
                             re.escape(str(work)) + r"/\.unfinished-saved-\d+(/\w+\.(json|plist))?"])),
            check("inspect, expect --write",
                  faults_in(trace_of([inspect, "expect", "--write", expectations,
                                      "--reports", samples / "desk"], environment, work),
                            [re.escape(str(expectations)),
                             re.escape(str(work)) + r"/\.unfinished-expectations\.json-\d+"])),
            check("replay, picture",
                  faults_in(trace_of([replay, samples / "desk", "--screenshot", picture], environment,
                                     work), [re.escape(str(picture)) + r"(\.\w+)?"])),
            check("speed test",
                  faults_in(trace_of([build / "benchmarks/measure_volume", volume], environment,
                                     work), test_file)),
            check("tamberline",
                  faults_in(trace_of([tools / "tamberline/tamberline"], environment, work,
                                     until_shown=True), own_traces)),
        ]
    finally:
        server.terminate()
        server.wait()
        shutil.rmtree(work)
    sys.exit(0 if all(results) else 1)


if __name__ == "__main__":
    main()
