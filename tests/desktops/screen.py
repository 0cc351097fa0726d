"""A virtual X screen on which a nested desktop runs: pictures of it, clicks and keys."""

import pathlib
import subprocess
import time

WIDTH, HEIGHT = 1280, 800
PATIENCE = 30  # seconds; long enough for any machine


class Failure(Exception):
    """Something on the screen is wrong."""


def wait_for(what, condition):
    """Waits for the first true value of the condition, and returns it."""
    deadline = time.monotonic() + PATIENCE
    while time.monotonic() < deadline:
        value = condition()
        if value:
            return value
        time.sleep(0.1)
    raise Failure(f"timed out waiting for {what}")


class Box:
    """A part of the screen; right and bottom are its last pixels."""

    def __init__(self, left, top, right, bottom):
        self.left, self.top, self.right, self.bottom = left, top, right, bottom

    @property
    def width(self):
        return self.right - self.left + 1

    @property
    def height(self):
        return self.bottom - self.top + 1

    def __str__(self):
        return f"{self.width}x{self.height} at {self.left}, {self.top}"


class Picture:
    """The pixels of the screen at one moment."""

    def __init__(self, pixels):
        self.pixels = pixels

    def row(self, y):
        return self.pixels[y * WIDTH * 3 : (y + 1) * WIDTH * 3]

    def pixel(self, x, y):
        return self.row(y)[x * 3 : (x + 1) * 3]

    def changed(self, before, area):
        """The box around all differences inside an area; None if there are none."""
        box = None
        for y in range(area.top, area.bottom + 1):
            new = self.row(y)[area.left * 3 : (area.right + 1) * 3]
            old = before.row(y)[area.left * 3 : (area.right + 1) * 3]
            if new == old:
                continue
            differing = [i for i, (a, b) in enumerate(zip(new, old)) if a != b]
            left = area.left + differing[0] // 3
            right = area.left + differing[-1] // 3
            if box is None:
                box = Box(left, y, right, y)
            box.left, box.right = min(box.left, left), max(box.right, right)
            box.bottom = y
        return box

    def greatest_contrast(self, area, gray):
        """The max difference between the pixels of an area and a gray."""
        greatest = 0
        for y in range(area.top, area.bottom + 1):
            row = self.row(y)[area.left * 3 : (area.right + 1) * 3]
            greatest = max([greatest] + [abs(value - gray) for value in row])
        return greatest


WHOLE = Box(0, 0, WIDTH - 1, HEIGHT - 1)


class Screen:
    """A separate X server."""

    def __init__(self, pictures):
        self.pictures = pathlib.Path(pictures)
        self.pictures.mkdir(parents=True, exist_ok=True)
        # The server chooses a free number.
        # pylint: disable=consider-using-with
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", "1", "-screen", "0", f"{WIDTH}x{HEIGHT}x24", "-ac",
             "-nolisten", "tcp"],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.display = ":" + self.server.stdout.readline().strip()

    def end(self):
        self.server.terminate()
        self.server.wait()

    def _run(self, command):
        return subprocess.run(command, check=True, capture_output=True,
                              env={"DISPLAY": self.display, "PATH": "/usr/bin:/bin"}).stdout

    def picture(self):
        data = self._run(["import", "-window", "root", "-depth", "8", "rgb:-"])
        if len(data) != WIDTH * HEIGHT * 3:
            raise Failure(f"a picture of {len(data)} bytes")
        return Picture(data)

    def save(self, name):
        self._run(["import", "-window", "root", str(self.pictures / f"{name}.png")])

    def move(self, x, y):
        self._run(["xdotool", "mousemove", str(x), str(y)])

    def click(self, x, y, button=1):
        self.move(x, y)
        time.sleep(0.2) # nested desktops process the pointer in their own event loop
        self._run(["xdotool", "click", str(button)])

    def keys(self, *names):
        for name in names:
            self._run(["xdotool", "key", name])
            time.sleep(0.1)

    def find_pointer(self):
        """A desktop may add up the movements of the pointer from a place of its own until the pointer has met the
        edges of the screen."""
        for x, y in ((WIDTH - 1, HEIGHT - 1), (0, 0), (WIDTH // 2, HEIGHT - 150)):
            self.move(x, y)
            time.sleep(0.2)

    def still_picture(self, repetitions=1):
        """A picture that is the same as so many before it."""
        last = [self.picture()]
        count = [0]

        def stands_still():
            before, last[0] = last[0], self.picture()
            count[0] = count[0] + 1 if before.pixels == last[0].pixels else 0
            return count[0] >= repetitions

        wait_for("a screen that stands still", stands_still)
        return last[0]
