// Records this machine in the folder that is its argument, as `tamberline-inspect record` does, but
// with a clock that runs ahead, so that no change waits for its scan. Prints the name of each step.
// Ends when it is killed.
#include "platform/linux/machines/hand_driven_recording.h"

#include <QCoreApplication>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace {

void print(const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    std::puts(name.c_str());
  }
  std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv) {
  using namespace tamberline;
  using namespace std::chrono_literals;
  const QCoreApplication application(argc, argv);
  Recorder recorder(argc > 1 ? argv[1] : "");
  if (recorder.begin()) {
    return EXIT_FAILURE;
  }
  const auto end = [](const std::string& reason) {
    std::fprintf(stderr, "%s\n", reason.c_str());
    std::exit(EXIT_FAILURE);
  };
  std::vector<std::string> names;
  HandDrivenRecording recording(
      std::move(recorder),
      {.stepAdded = [&names](const std::string& name) { names.push_back(name); },
       .changeSkipped = end,
       .ended = end});
  QTimer clock;
  QObject::connect(&clock, &QTimer::timeout, [&] {
    recording.moveClock(10s); // all scans that a change leads to
    print(std::exchange(names, {}));
  });
  clock.start(1ms);
  return QCoreApplication::exec();
}
