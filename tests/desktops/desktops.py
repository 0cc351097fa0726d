"""Desktops that run in an X screen, each with a separate session bus: nested Wayland desktops, and the screen
itself with a tray."""

import os
import pathlib
import shutil
import signal
import subprocess
import tempfile

from screen import HEIGHT, WIDTH, Box, wait_for


NOBODY = 65534


def as_person():
    """The prefix that runs a command as a user other than root: some desktops refuse to run as root."""
    if os.geteuid() != 0:
        return []
    return ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups", "--"]


class Desktop:
    """A compositor in a session without any other display."""

    name = ""
    command = []
    # Excludes what the desktop itself may change at any time: bars with clocks.
    work_area = Box(0, 0, WIDTH - 1, HEIGHT - 1)
    # Otherwise its panel is an ordinary window.
    has_panel_beside_icon = False

    @classmethod
    def is_installed(cls):
        return shutil.which(cls.command[0]) is not None

    def __init__(self, screen):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="tamberline-desktop-"))
        runtime = self.folder / "run"
        runtime.mkdir(mode=0o700)
        self.environment = {
            "PATH": "/usr/local/bin:/usr/bin:/bin",
            "HOME": str(self.folder),
            "LANG": "C.UTF-8",
            "XDG_RUNTIME_DIR": str(runtime),
        }
        self.configure()
        if os.geteuid() == 0:
            for path in (self.folder, *self.folder.rglob("*")):
                os.chown(path, NOBODY, NOBODY)
        with open(self.folder / "log", "wb") as log:
            self.process = self._start(screen, log)
        try:
            self.environment.update(wait_for(f"{self.name} to start", lambda: self.display(screen, runtime)))
        except Exception:
            self.end()
            raise
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = (self.folder / "bus").read_text().strip()

    def _start(self, screen, log):
        # pylint: disable=consider-using-with
        return subprocess.Popen(
            [*as_person(), "dbus-run-session", "--", "sh", "-c",
             f'echo "$DBUS_SESSION_BUS_ADDRESS" >{self.folder}/bus; exec "$@"', "sh",
             *self.command, *self.arguments()],
            env={**self.environment, "DISPLAY": screen.display, **self.own_environment()},
            stdin=subprocess.DEVNULL, stdout=log, stderr=subprocess.STDOUT, start_new_session=True)

    def display(self, _screen, runtime):
        """The variables for programs to find the display, as soon as it is there."""
        names = sorted(path.name for path in runtime.glob("wayland-*") if path.suffix != ".lock")
        return {"WAYLAND_DISPLAY": names[0]} if names else None

    def run(self, program, machine, **environment):
        """Starts a copy of a program in the session, on a recorded machine."""
        copies = []
        for path in (program, machine):
            copies.append(shutil.copy(path, self.folder))
            os.chmod(copies[-1], 0o755)
        # pylint: disable=consider-using-with
        return subprocess.Popen(
            [*as_person(), "umockdev-run", "--device", copies[1], "--", copies[0]],
            env={**self.environment, **environment},
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def configure(self):
        pass

    def arguments(self):
        return []

    def has_bar(self, _picture):
        """Whether the desktop has drawn all that it shows before a program starts."""
        return True

    def own_environment(self):
        return {}

    def end(self):
        os.killpg(self.process.pid, signal.SIGTERM)
        try:
            self.process.wait(10)
        except subprocess.TimeoutExpired:
            os.killpg(self.process.pid, signal.SIGKILL)
            self.process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)


class Weston(Desktop):
    """Positions windows itself, and has no tray."""

    name = "weston"
    command = ["weston"]
    work_area = Box(0, 33, WIDTH - 1, HEIGHT - 1)

    def arguments(self):
        return ["--backend=x11-backend.so", f"--width={WIDTH}", f"--height={HEIGHT}",
                "--idle-time=0", *(["--use-pixman"] if self._is_old() else ["--renderer=pixman"])]

    def has_bar(self, picture):
        """The screen is black until the bar and the background, which is not, fade in together."""
        return min(picture.pixel(10, HEIGHT - 10)) > 60

    @staticmethod
    def _is_old():
        version = subprocess.run(["weston", "--version"], check=True, capture_output=True,
                                 text=True).stdout
        return int(version.split()[1].split(".")[0]) < 12


class Sway(Desktop):
    """Has a bar with a tray, and layer-shell."""

    name = "sway"
    command = ["sway"]
    bar = "#000000"
    bar_gray = 0
    position = "top"
    scale = 1
    work_area = Box(0, 30, WIDTH - 1, HEIGHT - 1)

    def configure(self):
        (self.folder / "config").write_text(f"""
output X11-1 resolution {WIDTH}x{HEIGHT} scale {self.scale}
output * bg #335577 solid_color
xwayland disable
bar {{
  position {self.position}
  tray_output *
  colors {{
    background {self.bar}
  }}
}}
""")

    def arguments(self):
        return ["--config", str(self.folder / "config")]

    def has_bar(self, picture):
        y = 10 if self.position == "top" else HEIGHT - 10
        return picture.pixel(WIDTH // 2, y) == bytes([self.bar_gray] * 3)

    def own_environment(self):
        return {"WLR_BACKENDS": "x11", "WLR_RENDERER": "pixman"}


class SwayWithLightBar(Sway):
    """The same with a light bar at the bottom."""

    name = "sway-light"
    bar = "#ffffff"
    bar_gray = 255
    position = "bottom"
    work_area = Box(0, 0, WIDTH - 1, HEIGHT - 30)


class SwayAtDoubleScale(Sway):
    """The same with twice as many pixels per point."""

    name = "sway-2x"
    scale = 2
    work_area = Box(0, 60, WIDTH - 1, HEIGHT - 1)


class X11WithTray(Desktop):
    """A tray on X11 that embeds icons, and a compositing manager."""

    name = "x11"
    command = ["sh"]
    programs = ["picom", "trayer"]
    has_panel_beside_icon = True
    bar_gray = 219
    position = "top"
    scale = 1
    work_area = Box(0, 24, WIDTH - 1, HEIGHT - 1)

    @classmethod
    def is_installed(cls):
        return all(shutil.which(program) for program in cls.programs)

    def arguments(self):
        return ["-c", "picom --config /dev/null --backend xrender & "
                "exec trayer --edge top --align right --widthtype percent --width 100 --height 24 "
                "--transparent true --alpha 0 --tint 0xdcdcdc"]

    def display(self, screen, _runtime):
        return {"DISPLAY": screen.display} if self.has_bar(screen.picture()) else None

    def has_bar(self, picture):
        return picture.pixel(WIDTH // 2, 10) == bytes([self.bar_gray] * 3)
