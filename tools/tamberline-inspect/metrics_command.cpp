#include "commands.h"
#include "inspect/document.h"
#include "metrics/machine_metrics.h"
#include "platform/posix/whole_files.h"
#include "scan_output.h"
#include "single_scan.h"

#include <nlohmann/json.hpp>

#include <cstdlib>

namespace tamberline {

int run(const MetricsCommand& command, const InspectOptions& options) {
  const std::shared_ptr<PortScanner> scanner = scanOnce(machineOf(options.reportsFolder));
  if (!reportScanError(*scanner)) {
    return exitFailure;
  }
  const std::string text = openMetricsText(machineMetrics(inspectionDocument(*scanner)));
  if (!command.file) {
    return print(text) ? EXIT_SUCCESS : exitFailure;
  }
  if (const WriteFailure failure = replaceFile(*command.file, text)) {
    reportProblem("cannot write '" + command.file->string() + "': " + *failure);
    return exitFailure;
  }
  return EXIT_SUCCESS;
}

} // namespace tamberline
