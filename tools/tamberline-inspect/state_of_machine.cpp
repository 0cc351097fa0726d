#include "state_of_machine.h"

#include "inspect/document.h"
#include "inventory/document_decoding.h"
#include "platform/saved/saved_reports.h"
#include "scan_output.h"
#include "single_scan.h"

#include <nlohmann/json.hpp>

#include <system_error>

namespace tamberline {
namespace {

/// A document of a scan that failed has an empty tree, which would look like an empty machine.
std::optional<Inventory> inventoryOfDocument(const std::filesystem::path& file) {
  const auto content = readRegularFile(file, maxDocumentBytes);
  const auto document = decodeDocument(content.value_or(""));
  if (!document) {
    reportProblem("'" + file.string() + "' holds no document of tamberline-inspect --json");
    return std::nullopt;
  }
  const auto error = document->find("errorMessage");
  if (error != document->end() && error->is_string()) {
    reportProblem("'" + file.string() + "' is the document of a scan that failed");
    return std::nullopt;
  }
  return inventoryOf(*document);
}

} // namespace

std::optional<Inventory> inventoryIn(const std::filesystem::path& state) {
  std::error_code error;
  return std::filesystem::is_directory(state, error) ? inventoryOfMachine(state)
                                                     : inventoryOfDocument(state);
}

std::optional<Inventory> inventoryOfMachine(const std::optional<std::filesystem::path>& folder) {
  const std::shared_ptr<PortScanner> scanner = scanOnce(machineOf(folder));
  if (!reportScanError(*scanner)) {
    return std::nullopt;
  }
  return inventoryOf(inspectionDocument(*scanner));
}

} // namespace tamberline
