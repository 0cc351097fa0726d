#include "state_of_machine.h"

#include "inspect/document.h"
#include "inventory/document_decoding.h"
#include "platform/saved/saved_reports.h"
#include "scan_output.h"
#include "single_scan.h"

#include <nlohmann/json.hpp>

#include <system_error>
#include <utility>

namespace tamberline {
namespace {

/// Absent after reporting why.
std::optional<nlohmann::json> documentIn(const std::filesystem::path& file) {
  const std::optional<std::string> content = contentOf(file, maxDocumentBytes);
  if (!content) {
    return std::nullopt;
  }
  if (isTooLargeDocument(*content)) {
    reportProblem("cannot read '" + file.string() + "': more than " +
                  std::to_string(maxDocumentValues) + " values");
    return std::nullopt;
  }
  auto document = decodeDocument(*content);
  if (!document) {
    reportProblem("'" + file.string() + "' holds no document of tamberline-inspect --json");
  }
  return document;
}

/// A document of a scan that failed has an empty tree, which would look like an empty machine.
std::optional<Inventory> inventoryOfDocument(const std::filesystem::path& file) {
  const auto document = documentIn(file);
  if (!document) {
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

std::optional<std::string> contentOf(const std::filesystem::path& file, std::size_t maxBytes) {
  FileContent content = readRegularFile(file, maxBytes);
  if (!content.bytes) {
    reportProblem("cannot read '" + file.string() + "': " + content.failure);
  }
  return std::move(content.bytes);
}

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
