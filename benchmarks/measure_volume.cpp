// measure_volume FOLDER: runs the panel's speed test on the volume of this folder. For writing and
// for reading, prints the MB/s and the seconds of processor time between the two clock readings.

#include "platform/posix/posix_volume_files.h"
#include "storage/benchmark.h"

#include <cstdio>
#include <sys/resource.h>
#include <sys/time.h>

namespace tamberline {
namespace {

double seconds(const timeval& time) {
  constexpr double microsecondsPerSecond = 1e6;
  return static_cast<double>(time.tv_sec) +
         static_cast<double>(time.tv_usec) / microsecondsPerSecond;
}

double processorSeconds() {
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// The clock of the test; it also records the processor time at its last two readings.
class NotingClock {
public:
  std::chrono::steady_clock::time_point now() {
    before_ = last_;
    last_ = processorSeconds();
    return std::chrono::steady_clock::now();
  }

  double processorSecondsBetweenLooks() const { return last_ - before_; }

private:
  double before_ = 0;
  double last_ = 0;
};

bool print(const char* what, const BenchmarkResult& result, const NotingClock& clock) {
  if (const auto* error = std::get_if<BenchmarkError>(&result)) {
    const std::string_view text = userText(*error);
    std::fprintf(stderr, "measure_volume: %s: %.*s\n", what, static_cast<int>(text.size()),
                 text.data());
    return false;
  }
  std::printf("%s %.1f %.4f\n", what, std::get<double>(result),
              clock.processorSecondsBetweenLooks());
  return true;
}

bool measure(const std::string& folder) {
  NotingClock clock;
  Benchmark benchmark(std::make_shared<PosixVolumeFiles>(), {.now = [&] { return clock.now(); }});
  const bool isMeasured = print("write", benchmark.writeSync(folder, benchmark.sizeMB()), clock) &&
                          print("read", benchmark.readSync(folder), clock);
  benchmark.cleanup(folder);
  return isMeasured;
}

} // namespace
} // namespace tamberline

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: measure_volume FOLDER\n", stderr);
    return 2;
  }
  return tamberline::measure(argv[1]) ? 0 : 1;
}
