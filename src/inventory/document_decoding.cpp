#include "inventory/document_decoding.h"

#include "reports/report_decoding.h"

#include <nlohmann/json.hpp>

namespace tamberline {

bool isTooLargeDocument(std::string_view bytes) {
  return bytes.size() > maxDocumentBytes || countJsonValues(bytes) > maxDocumentValues;
}

std::optional<nlohmann::json> decodeDocument(std::string_view bytes) {
  if (isTooLargeDocument(bytes)) {
    return std::nullopt;
  }
  nlohmann::json document = nlohmann::json::parse(bytes, nullptr, /*allow_exceptions=*/false);
  const bool isDocument =
      document.is_object() && document.contains("portTree") && document["portTree"].is_array();
  return isDocument ? std::optional(std::move(document)) : std::nullopt;
}

} // namespace tamberline
