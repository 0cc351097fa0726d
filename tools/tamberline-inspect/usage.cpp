#include "base/overloaded.h"
#include "inspect_options.h"

namespace tamberline {
namespace {

constexpr std::string_view showUsage =
    R"(Usage: tamberline-inspect [--reports DIR] [--json] [--watch]
                          [--language en|de|fr|it|es]
       tamberline-inspect SUBCOMMAND [ARGUMENT...] [--reports DIR]
       tamberline-inspect [SUBCOMMAND] --help | --version

Shows port by port what is attached to the USB-C and Thunderbolt ports of this machine.

  --reports DIR    show the machine whose reports were saved in the folder DIR
  --json           print everything the scan found as one JSON document
  --watch          print it again after each change, until interrupted: a text below the
                   time of its scan, a JSON document in one line
  --language CODE  the language of the texts; without it, the system's
  --help, -h       print this text, or that of the subcommand
  --version, -V    print the version

Subcommands:
  save DIR         save the machine's reports in a folder that these programs open
  compare A [B]    show what is different between two states
  expect FILE      check that everything is there that the file says
  record DIR       keep every change from now on, for tamberline-replay
  metrics          print figures for Prometheus

Exit status: 0 after a scan that succeeded, 1 when an error left nothing to show or
the result could not be written, 2 for wrong arguments. With --watch 0 when
interrupted (SIGINT, SIGTERM, SIGHUP), 1 when the result could not be written. A reader
that has gone (| head) ends the program by SIGPIPE.

The text begins with answers, if there are any: "!" stands before what needs attention,
"·" before a note. Further below, "▲" stands before the rating of an adapter that
charges, "↑" before the reason why a link is slow, and a bar's lighter part is what is
allocated but not used.
On a terminal lines are wrapped at its width, or at COLUMNS; there are no colours where
NO_COLOR is set or TERM is "dumb".
)";

constexpr std::string_view saveUsage =
    R"(Usage: tamberline-inspect save DIR [--anonymise] [--reports DIR]

Saves the machine's reports in the new folder DIR. Every program of Tamberline opens it
in the place of a machine: tamberline-inspect --reports DIR, tamberline-replay DIR.

  --anonymise      replace serial numbers, identifiers, names of volumes, mount points
                   and host names by stand-ins: the same one for the same text. Saves
                   nothing if a report (SP*.json) cannot be parsed, and leaves out a dump
                   (*.plist) that cannot
  --reports DIR    save the machine whose reports are in that folder

The folder is written whole or not at all, and never over something else. Names of
devices and makers stay, even with --anonymise. Without it, what cannot be parsed is
saved as it is. Standard error names everything that cannot be parsed.

Exit status: 0 when it was saved, 1 when not, 2 for wrong arguments.
)";

constexpr std::string_view compareUsage =
    R"(Usage: tamberline-inspect compare A [B] [--json] [--reports DIR]

Shows what came, went, moved, became faster or slower, or draws more or less between
the states A and B. Each is a folder of saved reports or a file that was saved from
tamberline-inspect --json. Without B, A is compared with this machine as it is.

  --json           print the differences as one JSON document
  --reports DIR    the machine whose reports are in that folder, in the place of B
  --language CODE  the language of the text; without it, the system's

Devices are matched by serial number or identifier, and otherwise by their place. What
is below a device that moved did not move itself. Measured power counts from a
difference of 0.5 W.

Exit status: 0 when both are the same, 1 when they differ, 2 when they could not be
compared, for wrong arguments too.
)";

constexpr std::string_view expectUsage =
    R"(Usage: tamberline-inspect expect FILE [--json | --tap] [--reports DIR]
       tamberline-inspect expect --write FILE [--reports DIR]

Checks that the machine has every device that FILE says: by name, vendor and product
number, or serial number; on its port, at least as fast, and with its volumes.

  --write          make FILE from what is attached now, as a start for your own; never
                   over something else
  --json           print the result as one JSON document
  --tap            print it for programs that run tests (Test Anything Protocol)
  --reports DIR    the machine whose reports are in that folder
  --language CODE  the language of the text; without it, the system's

"man tamberline-inspect" describes the file. Two equal entries need two devices.

Exit status: 0 when everything is as expected, 1 when not, 2 when that could not be
checked, for wrong arguments and a wrong file too.
)";

constexpr std::string_view recordUsage =
    R"(Usage: tamberline-inspect record DIR [--anonymise] [--max-size MB] [--reports DIR]

Keeps the state of the machine and every change from now on with its time in the new
folder DIR, until interrupted. tamberline-replay DIR plays it. Prints the name of each
step's folder, which every program of Tamberline opens in the place of a machine.

  --anonymise      replace serial numbers, identifiers, names of volumes, mount points
                   and host names by stand-ins, as tamberline-inspect save does; in
                   earlier steps too, if only a later one shows what identifies
  --max-size MB    end the recording before it takes more than MB megabytes; without it,
                   before it takes more than 1000
  --reports DIR    record the machine whose reports are in that folder

A step is there whole or not at all, even if the program is killed. Steps share the
reports that did not change.

Exit status: 0 when interrupted (SIGINT, SIGTERM, SIGHUP), 1 when a step could not be
written or there is no room left for it, 2 for wrong arguments.
)";

constexpr std::string_view metricsUsage =
    R"(Usage: tamberline-inspect metrics [--output FILE] [--reports DIR]

Prints the figures of the machine as OpenMetrics text: negotiated and greatest speeds
of links, rated and measured power, the adapter, devices by port, answers by kind.
Labels name ports and models of devices, never serial numbers.

  --output FILE    replace FILE instead, whole or not at all, for the textfile collector
                   of Prometheus's node exporter
  --reports DIR    the machine whose reports are in that folder

Nothing listens on a network. "man tamberline-inspect" names the timer that writes FILE
every minute.

Exit status: 0 when they were written, 1 when not, 2 for wrong arguments.
)";

} // namespace

std::string_view usageOf(const Command& command) {
  return std::visit(Overloaded{
                        [](const ShowCommand&) { return showUsage; },
                        [](const SaveCommand&) { return saveUsage; },
                        [](const CompareCommand&) { return compareUsage; },
                        [](const ExpectCommand&) { return expectUsage; },
                        [](const RecordCommand&) { return recordUsage; },
                        [](const MetricsCommand&) { return metricsUsage; },
                    },
                    command);
}

} // namespace tamberline
