#include "scan_output.h"

#include "inspect/document.h"
#include "inspect/panel_text.h"
#include "platform/posix/command_line.h"
#include "views/panel_inputs.h"

#include <nlohmann/json.hpp>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <unistd.h>

namespace tamberline {
namespace {

bool wantsColors() {
  const char* noColor = std::getenv("NO_COLOR");
  return (noColor == nullptr || *noColor == '\0') && isatty(STDOUT_FILENO) != 0;
}

} // namespace

bool print(std::string_view text) {
  return printToStandardOutput(text, "tamberline-inspect");
}

std::string render(const PortScanner& scanner, const InspectOptions& options) {
  if (options.printsJson) {
    const int indent = options.watches ? -1 : 2;
    return inspectionDocument(scanner).dump(indent, ' ', /*ensure_ascii=*/false,
                                            nlohmann::json::error_handler_t::replace) +
           "\n";
  }
  return panelText(describePanel(panelInputs(scanner)), wantsColors()) +
         (options.watches ? "\n" : "");
}

bool reportScanError(const PortScanner& scanner) {
  const std::optional<std::string>& error = scanner.errorMessage.get();
  if (error) {
    std::fprintf(stderr, "tamberline-inspect: %s\n", error->c_str());
  }
  return !error;
}

} // namespace tamberline
