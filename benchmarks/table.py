"""The table of figures in docs/performance.md, made from the figures of this edition and the one before."""

from dataclasses import dataclass

from figures import OURS

BEGIN = "<!-- benchmarks/all writes what follows, up to its end mark -->"
END = "<!-- end of what benchmarks/all writes -->"
NONE = "–"


@dataclass(frozen=True)
class Row:
    """One thing that is measured: its name in the figures, which of our programs it is of, the goal and the
    programs beside it."""
    label: str
    what: str
    goal: str = ""
    ours: str = OURS
    peers: tuple = ()


USB_TOOLS = ("lsusb-t", "lsusb-v", "usb-devices")
WINDOWS = ("usbview", "qjackctl")
ON_SAMPLE = "ours, desk sample"
HIDDEN = "ours, hidden"
SCAN = "scan_benchmark"
PANEL = "panel_benchmark"
LINUX = "linux_machine_benchmark answersOfOneScan"
ROWS = [
    Row("main thread's share of a scan: desk sample", f"{SCAN} deskSample"),
    Row("… 1,000 USB devices (0.2 MB report, 0.2 MB dump)", f"{SCAN} usbDevices/1000"),
    Row("… 10,000 USB devices (2.3 MB report, 2.1 MB dump)", f"{SCAN} usbDevices/10000"),
    Row("… device tree of 6 MB", f"{SCAN} deviceTree/6000000"),
    Row("finding the answers for 5,000 USB devices", f"{SCAN} findAnswersOnUSBDevices/5000"),
    Row("… for 10,000", f"{SCAN} findAnswersOnUSBDevices/10000"),
    Row("reading a Linux machine: docked-laptop", f"{LINUX}, docked-laptop"),
    Row("… hubs-in-hubs", f"{LINUX}, hubs-in-hubs"),
    Row("`tamberline-inspect --json`: desk sample", "inspect desk sample, time"),
    Row("… its peak memory", "inspect desk sample, memory"),
    Row("… 1,000 USB devices", "inspect 1,000 USB devices, time"),
    Row("… its peak memory", "inspect 1,000 USB devices, memory"),
    Row("… 10,000 USB devices", "inspect 10,000 USB devices, time"),
    Row("… its peak memory", "inspect 10,000 USB devices, memory"),
    *[Row(f"`tamberline-inspect --json` on {machine}", f"inspect on {machine}", "below `lsusb -v`", peers=USB_TOOLS)
      for machine in ("charging-phone", "docked-laptop", "encrypted-volumes", "hubs-in-hubs", "silent-laptop",
                      "two-controllers")],
    Row("reopening the hidden panel to the next frame, desk sample", f"{PANEL} reopenDesk", "15 ms"),
    Row("… with 5,000 rows open", f"{PANEL} reopenLarge", "15 ms"),
    Row("\"expand all\" to the next frame, 5,000 rows", f"{PANEL} expandAll", "20 ms"),
    Row("unchanged rescan, 5,000 rows open: main thread", f"{PANEL} unchangedRescan", "30 ms"),
    Row("… signals of the model", f"{PANEL} unchangedRescan signals", "0"),
    Row("… delegates created or destroyed by the list", f"{PANEL} unchangedRescan delegates", "0"),
    Row("rescan after a group of hubs came or left: main thread, with decoding", f"{PANEL} changedRescan"),
    Row("… of that, describing the cards", f"{PANEL} describing"),
    Row("… of that, writing the rows", f"{PANEL} writingRows"),
    Row("… of that, comparing the rows", f"{PANEL} comparingRows"),
    Row("… of that, finding what changed in the list", f"{PANEL} findingChanges"),
    Row("frames per second while 200 rows move", f"{PANEL} movingRows framesPerSecond", "60"),
    Row("… longest time between two of them, in ms", f"{PANEL} movingRows longestMs"),
    Row("panel from exec to its first frame, warm", "warm start", "not above `usbview`", peers=WINDOWS),
    Row("… first in its session", "first start", "not above `usbview`", peers=WINDOWS),
    Row("… first in its session, caches dropped", "cold start", "not above `usbview`", peers=WINDOWS),
    Row("… warm, on the desk sample", "warm start", ours=ON_SAMPLE),
    Row("panel's memory at rest, RSS", "memory RSS", peers=WINDOWS),
    Row("… on the desk sample", "memory RSS", "42 MB", ours=ON_SAMPLE),
    Row("panel's memory at rest, PSS", "memory PSS", peers=WINDOWS),
    Row("… on the desk sample", "memory PSS", ours=ON_SAMPLE),
    Row("panel's processor time in 60 s, open", "idle", "0.02 s", peers=WINDOWS),
    Row("… open, on the desk sample", "idle", "0.02 s", ours=ON_SAMPLE),
    Row("… hidden, on the desk sample", "idle", "0.00 s", ours=HIDDEN),
    Row("speed test of a volume: writing", "volume, write", "0.95 to 1.05 of `fio`", peers=("fio",)),
    Row("… processor time", "volume, write, processor", peers=("fio",)),
    Row("… reading", "volume, read", "0.95 to 1.05 of `fio`", peers=("fio",)),
    Row("… processor time", "volume, read, processor", peers=("fio",)),
]
NAMES_OF_PEERS = {"lsusb-t": "lsusb -t", "lsusb-v": "lsusb -v"}
HEADINGS = ["", "goal", "ours", "quartiles", "peer", "theirs", "quartiles", "ours / theirs", "edition before",
            "ours / before"]


def number(value):
    """With three digits, or three decimals if it is below 1."""
    decimals = 3 if value < 1 else max(0, 3 - len(str(int(value))))
    return f"{value:,.{decimals}f}" if value else "0"


def is_from_document(figure):
    """Figures of an edition that did not keep those of single runs; they are as precise as they were written."""
    return figure.low is None


def cell(figure):
    if not figure:
        return NONE
    value = f"{figure.median:,.10g}" if is_from_document(figure) else number(figure.median)
    return f"{value} {figure.unit}".strip()


def quartiles(figure):
    if not figure or figure.runs == 1 or is_from_document(figure):
        return ""
    return f"{number(figure.low)} to {number(figure.high)}"


def ratio(figure, other):
    if not figure or not other or figure.unit != other.unit or other.median == 0:
        return ""
    return f"{figure.median / other.median:.2f}"


def lines_of(row, now, before):
    """One line for each peer, or one if there are none; only the first says what is the same in all."""
    ours = now.get(row.what, {}).get(row.ours)
    earlier = before.get(row.what, {}).get(row.ours)
    for index, peer in enumerate(row.peers or (None,)):
        theirs = now.get(row.what, {}).get(peer)
        beside = [f"`{NAMES_OF_PEERS.get(peer, peer)}`", cell(theirs), quartiles(theirs), ratio(ours, theirs)] \
            if peer else [""] * 4
        first = index == 0
        yield [row.label if first else "", row.goal if first else "", cell(ours) if first else "",
               quartiles(ours) if first else "", *beside, cell(earlier) if first else "",
               ratio(ours, earlier) if first else ""]


def circumstances(measurement):
    return f"edition {measurement.edition} at {measurement.commit}, {measurement.date}: {measurement.machine}"


def table(now, before):
    """From two measurements (see benchmarks/all); the first may be missing."""
    now_figures = now.figures if now else {}
    lines = [f"- Ours: {circumstances(now) if now else 'not measured yet'}",
             f"- Edition before: {circumstances(before)}", "",
             f"| {' | '.join(HEADINGS)} |", "|" + "---|" * len(HEADINGS)]
    for row in ROWS:
        lines += [f"| {' | '.join(cells)} |" for cells in lines_of(row, now_figures, before.figures)]
    return "\n".join(lines)


def with_table(document, new):
    """The document with another table between the marks."""
    head, found_begin, rest = document.partition(BEGIN)
    _, found_end, tail = rest.partition(END)
    if not found_begin or not found_end:
        raise ValueError("the document does not have the marks of the table")
    return f"{head}{BEGIN}\n\n{new}\n\n{END}{tail}"
