#!/usr/bin/env python3
"""Runs the virtual machine that scripts/test-vm made in a folder, plugs devices in and out, and
compares the documents that tamberline-inspect prints there with the devices plugged in."""

import json
import pathlib
import select
import socket
import subprocess
import sys
import time

SECONDS_TO_BOOT = 120
SECONDS_PER_CHANGE = 60
SECONDS_BESIDE_MUTE_DEVICE = 15  # the mute device takes four times as long


class Machine:
    def __init__(self, folder):
        self.folder = folder
        self.qmp_path, self.documents_path = folder / "qmp", folder / "documents"
        self.shell_path = folder / "shell"
        for path in (self.qmp_path, self.documents_path, self.shell_path):
            path.unlink(missing_ok=True)
        kernel = next((folder / "boot").glob("vmlinuz-*"))
        self.process = subprocess.Popen([
            "qemu-system-x86_64", "-machine", "q35,accel=tcg", "-cpu", "max", "-m", "768",
            "-display", "none", "-vga", "none", "-nodefaults", "-no-reboot",
            "-kernel", kernel, "-initrd", folder / "initramfs",
            "-append", "console=ttyS0 quiet panic=-1 mitigations=off tsc=unstable nokaslr",
            "-serial", f"file:{folder / 'console'}",
            "-chardev", f"socket,id=documents,path={self.documents_path},server=on,wait=off",
            "-serial", "chardev:documents",
            "-chardev", f"socket,id=shell,path={self.shell_path},server=on,wait=off",
            "-serial", "chardev:shell",
            "-qmp", f"unix:{self.qmp_path},server=on,wait=off",
            "-device", "qemu-xhci,id=xhci,p2=4,p3=4",
            "-blockdev", f"driver=file,node-name=stick,filename={folder / 'stick'}"])
        self.documents = self.connect(self.documents_path)
        self.shell = self.connect(self.shell_path).makefile("rw", encoding="utf-8")
        self.qmp = self.connect(self.qmp_path).makefile("rw", encoding="utf-8")
        self.unread = b""
        json.loads(self.qmp.readline())
        self.command("qmp_capabilities")

    def connect(self, path):
        connection = socket.socket(socket.AF_UNIX)
        deadline = time.monotonic() + SECONDS_TO_BOOT
        while True:
            try:
                connection.connect(str(path))
                return connection
            except OSError:
                if self.process.poll() is not None or time.monotonic() > deadline:
                    sys.exit("test-vm: QEMU does not start")
                time.sleep(0.05)

    def command(self, name, **arguments):
        self.qmp.write(json.dumps({"execute": name, "arguments": arguments}) + "\n")
        self.qmp.flush()
        while True:
            answer = json.loads(self.qmp.readline())
            if "error" in answer:
                sys.exit(f"test-vm: {name}: {answer['error']['desc']}")
            if "return" in answer:
                return

    def run(self, command):
        self.shell.write(command + "\n")
        self.shell.flush()

    def number_from(self, command):
        """Runs a command that writes "result: NUMBER" to the console."""
        console = self.folder / "console"
        before = console.read_text(errors="replace").count("result: ")
        self.run(command)
        deadline = time.monotonic() + SECONDS_PER_CHANGE
        while time.monotonic() < deadline:
            results = console.read_text(errors="replace").split("result: ")[1:]
            if len(results) > before and "\n" in results[-1]:
                return int(results[-1].split()[0])
            time.sleep(0.05)
        self.end()
        sys.exit(f"test-vm: {command} gives no result")

    def plug(self, name, driver, port, **options):
        self.command("device_add", driver=driver, id=name, bus="xhci.0", port=port, **options)

    def pull(self, name):
        self.command("device_del", id=name)

    def next_document(self, seconds):
        """The next whole line; None if there is none in time."""
        deadline = time.monotonic() + seconds
        while b"\n" not in self.unread:
            remaining = deadline - time.monotonic()
            if remaining <= 0 or not select.select([self.documents], [], [], remaining)[0]:
                return None
            received = self.documents.recv(65536)
            if not received:
                return None
            self.unread += received
        line, self.unread = self.unread.split(b"\n", 1)
        return json.loads(line)

    def wait_for(self, step, expected, seconds=SECONDS_PER_CHANGE):
        """Reads documents until one shows exactly the expected devices."""
        last = None
        deadline = time.monotonic() + seconds
        while (document := self.next_document(deadline - time.monotonic())) is not None:
            last = described(document)
            if last == expected:
                print(f"test-vm: {step}: as plugged")
                return
        self.end()
        console = (self.folder / "console").read_text(errors="replace")[-2000:]
        sys.exit(f"test-vm: {step}\nexpected:\n{expected}\nlast document:\n{last}\n{console}")

    def end(self):
        self.process.kill()
        self.process.wait()


def described(document):
    """Buses and devices of a document as indented text."""
    lines = []

    def add(device, indent):
        volumes = "".join(f" [{volume['mountPoint']}]" for volume in device["volumes"])
        serial = f" #{device['serialNumber']}" if device["serialNumber"] else ""
        lines.append(f"{indent}{device['name']}{serial} {device['speedShortLabel']}{volumes}")
        for child in device["children"]:
            add(child, indent + "  ")

    for bus in document["usbBuses"]:
        lines.append(bus["displayName"])
        for device in bus["devices"]:
            add(device, "  ")
    return "\n".join(lines)


def try_mute_device(machine, nothing):
    """A device that never answers keeps the kernel busy for about a minute, and nobody else."""
    buses = "\n".join([nothing] * (machine.number_from("load_virtual_controllers") // 2))
    machine.wait_for("virtual controllers loaded", buses)
    without = machine.number_from("time_scan") / 100
    machine.run("mute-device")
    time.sleep(3)  # until the kernel is at it; nothing tells when
    with_mute = machine.number_from("time_scan") / 100
    print(f"test-vm: a scan takes {without:.2f} s, beside a mute device {with_mute:.2f} s")
    if with_mute > without + 1:
        machine.end()
        sys.exit("test-vm: the mute device delays the scan by more than a second")
    start = time.monotonic()
    machine.plug("other", "usb-kbd", "1", serial="K2")
    machine.wait_for("keyboard plugged beside a mute device",
                     buses.replace("USB 2.0 Bus", "USB 2.0 Bus\n  QEMU USB Keyboard #K2 480 Mb/s", 1),
                     SECONDS_BESIDE_MUTE_DEVICE)
    print(f"test-vm: the keyboard was shown after {time.monotonic() - start:.1f} s")


def main():
    start = time.monotonic()
    machine = Machine(pathlib.Path(sys.argv[1]))
    nothing = "USB 2.0 Bus\nUSB 3.0 Bus"
    keyboard = "USB 2.0 Bus\n  QEMU USB Hub #H1 12 Mb/s\n    QEMU USB Keyboard #K1 12 Mb/s\n"
    drive = "  QEMU USB HARDDRIVE #S1 5 Gb/s"

    machine.wait_for("nothing plugged", nothing, SECONDS_TO_BOOT)
    machine.plug("hub", "usb-hub", "1", serial="H1")
    machine.plug("keyboard", "usb-kbd", "1.1", serial="K1")
    machine.wait_for("hub with keyboard plugged", keyboard + "USB 3.0 Bus")
    machine.plug("drive", "usb-storage", "2", serial="S1", drive="stick")
    machine.wait_for("drive plugged", keyboard + "USB 3.0 Bus\n" + drive)
    drive += " [/media/stick]"
    machine.wait_for("drive mounted", keyboard + "USB 3.0 Bus\n" + drive)
    machine.pull("keyboard")
    machine.wait_for("keyboard pulled",
                     "USB 2.0 Bus\n  QEMU USB Hub #H1 12 Mb/s\nUSB 3.0 Bus\n" + drive)
    machine.pull("drive")
    machine.pull("hub")
    machine.wait_for("drive and hub pulled", nothing)
    try_mute_device(machine, nothing)
    machine.end()
    print(f"test-vm: passed in {time.monotonic() - start:.0f} s")


if __name__ == "__main__":
    main()
