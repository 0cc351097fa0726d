#!/usr/bin/env python3
"""Starts tamberline on desktops, most of them nested Wayland desktops, and checks what is on the screen.

usage: check_desktops.py BUILD_FOLDER [DESKTOP...]

Pictures of the screens are in BUILD_FOLDER/desktop-pictures. A desktop that is not installed is an
error: a check that is not run must not pass.
"""

import os
import pathlib
import subprocess
import sys
import time

from desktops import Sway, SwayAtDoubleScale, SwayWithLightBar, Weston, X11WithTray
from screen import HEIGHT, WIDTH, Box, Failure, Screen, wait_for

MACHINE = (pathlib.Path(__file__).parent.parent / "platform" / "linux" / "machines" /
           "docked-laptop.umockdev")
# Slightly more than the panel's 400 points: some desktops draw a frame around a window.
PANEL_WIDTHS = range(400, 412)


class Look:
    """One program on one desktop, and the screen before it was started."""

    def __init__(self, screen, desktop, path):
        self.screen, self.desktop, self.path = screen, desktop, path
        wait_for("the desktop's bar", lambda: desktop.has_bar(screen.picture()))
        screen.find_pointer()
        # Bars appear at intervals, and a slow machine shows the same picture twice while a desktop fades in.
        self.empty = screen.still_picture(repetitions=8)
        self.process = None

    def start(self, **environment):
        self.process = self.desktop.run(self.path, MACHINE, **environment)

    def is_running(self):
        return self.process.poll() is None

    def window(self):
        """The panel's position; None if it is not on the screen."""
        return self.screen.picture().changed(self.empty, self.desktop.work_area)

    def still_window(self, name):
        wait_for(f"the panel ({name})", self.window)
        picture = self.screen.still_picture()
        self.screen.save(f"{self.desktop.name}-{name}")
        box = picture.changed(self.empty, self.desktop.work_area)
        say(f"{self.desktop.name}: {name}: {box}")
        return box

    def has_no_window(self):
        return self.window() is None

    def check_whole(self, box, scale=1):
        if box.width not in range(PANEL_WIDTHS.start * scale, PANEL_WIDTHS.stop * scale):
            raise Failure(f"the panel is not whole: {box}")
        area = self.desktop.work_area
        if box.bottom >= area.bottom and area.bottom == HEIGHT - 1:
            raise Failure(f"the panel ends below the screen: {box}")

    def check_round_corners(self, box):
        """The desktop is visible in the corners, and the panel 12 points away from them."""
        picture = self.screen.picture()
        inset = 12 * self.desktop.scale
        for x, inside_x in ((box.left, box.left + inset), (box.right, box.right - inset)):
            for y, inside_y in ((box.top, box.top + inset), (box.bottom, box.bottom - inset)):
                if picture.pixel(x, y) != self.empty.pixel(x, y):
                    raise Failure(f"the panel's corner at {x}, {y} is not round")
                if picture.pixel(inside_x, inside_y) == self.empty.pixel(inside_x, inside_y):
                    raise Failure(f"the panel is missing at {inside_x}, {inside_y}")

    def end(self):
        if self.process:
            if self.is_running():
                self.process.terminate()
            self.process.wait()


def say(text):
    print(f"test-desktops: {text}", flush=True)


def expand_all(look):
    """With the keyboard: the header's buttons come first, in order."""
    look.screen.keys("Tab", "Tab", "Return")


def check_window(look):
    """A desktop without a tray: an ordinary window that is entirely visible; closing it ends the program."""
    look.start()
    first = look.still_window("first")
    look.check_whole(first)
    expand_all(look)
    wait_for("open cards", lambda: look.screen.picture().pixels != look.empty.pixels)
    opened = look.still_window("open")
    look.check_whole(opened)
    if (opened.top, opened.bottom) != (first.top, first.bottom):
        raise Failure(f"the window did not keep its height: {opened}")
    look.screen.click(first.right - 40, first.top + 15)
    wait_for("a maximized window",
             lambda: (look.window() or first).width > PANEL_WIDTHS.stop or not look.is_running())
    if not look.is_running():
        raise Failure("maximizing ended the program")
    look.still_window("maximized")
    look.screen.keys("Escape")
    wait_for("the end of the program", lambda: not look.is_running())
    if look.process.returncode != 0:
        raise Failure(f"it ended with {look.process.returncode}")


def icon_in_bar(look):
    """The area that the program changed in the bar."""
    bar = Box(WIDTH - 120, 0, WIDTH - 1, 59)
    if look.desktop.position == "bottom":
        bar = Box(WIDTH - 120, HEIGHT - 59, WIDTH - 1, HEIGHT - 1)
    picture = look.screen.picture()
    icon = picture.changed(look.empty, bar)
    if icon and icon.width >= 8 and icon.height >= 8:
        return picture, icon
    return None


def check_tray(look):
    """A desktop with a tray: the icon is visible, and opens and closes the panel and the menu."""
    scale = look.desktop.scale
    look.start(TAMBERLINE_START_IN_BACKGROUND="1")
    picture, icon = wait_for("the icon", lambda: icon_in_bar(look))
    contrast = picture.greatest_contrast(icon, look.desktop.bar_gray)
    say(f"{look.desktop.name}: icon {icon}, contrast {contrast}")
    if contrast < 100:
        raise Failure("the icon cannot be seen on the bar")
    if not look.has_no_window():
        raise Failure("a start with the session opened the panel")
    x, y = (icon.left + icon.right) // 2, (icon.top + icon.bottom) // 2
    look.screen.click(x, y)
    first = look.still_window("first")
    look.check_whole(first, scale)
    if look.desktop.has_panel_beside_icon:
        look.check_round_corners(first)
    expand_all(look)
    time.sleep(1)
    opened = look.still_window("open")
    look.check_whole(opened, scale)
    if look.desktop.has_panel_beside_icon:
        look.check_round_corners(opened)
    look.screen.click(x, y)
    wait_for("a closed panel", look.has_no_window)
    time.sleep(0.5) # a click right after the one that closed the panel counts as the same
    look.screen.click(x, y)
    look.check_whole(look.still_window("again"), scale)
    look.screen.keys("Escape")
    wait_for("a panel that Escape closed", look.has_no_window)
    if not look.is_running():
        raise Failure("closing the panel ended the program")
    look.screen.click(x, y, button=3)
    look.still_window("menu")


def check_without_display(path):
    """One sentence and status 1."""
    result = subprocess.run([path], check=False, capture_output=True, text=True,
                            env={"PATH": "/usr/bin:/bin", "LANG": "C.UTF-8"}, timeout=60)
    lines = result.stderr.splitlines()
    if result.returncode != 1 or len(lines) != 1 or not lines[0].startswith("tamberline: no display"):
        raise Failure(f"without a display: status {result.returncode}, {result.stderr!r}")
    say(f"without a display: {lines[0]}")


CHECKS = [(Weston, check_window), (Sway, check_tray), (SwayWithLightBar, check_tray),
          (SwayAtDoubleScale, check_tray), (X11WithTray, check_tray)]


def look_at(kind, check, path, pictures):
    if not kind.is_installed():
        raise Failure(f"what {kind.name} needs is not installed")
    screen = Screen(pictures)
    try:
        desktop = kind(screen)
        try:
            look = Look(screen, desktop, path)
            try:
                check(look)
            finally:
                screen.save(f"{kind.name}-last")
                look.end()
        finally:
            desktop.end()
    finally:
        screen.end()


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    build = pathlib.Path(sys.argv[1]).resolve()
    path = build / "tools" / "tamberline" / "tamberline"
    wanted = sys.argv[2:] or [kind.name for kind, _ in CHECKS]
    unknown = set(wanted) - {kind.name for kind, _ in CHECKS}
    if unknown or not os.access(path, os.X_OK):
        sys.exit(f"test-desktops: no such desktop or program: {' '.join(unknown) or path}")
    failures = 0
    try:
        check_without_display(path)
    except Failure as failure:
        failures += 1
        say(f"FAILED: {failure}")
    for kind, check in CHECKS:
        if kind.name in wanted:
            try:
                look_at(kind, check, path, build / "desktop-pictures")
            except Failure as failure:
                failures += 1
                say(f"{kind.name}: FAILED: {failure}")
    sys.exit(min(failures, 1))


if __name__ == "__main__":
    main()
