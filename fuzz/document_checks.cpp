#include "document_checks.h"

#include "fuzz_target.h"

#include <nlohmann/json.hpp>

#include <limits>
#include <string>

namespace tamberline {
namespace {

using Document = nlohmann::ordered_json;

void requireWithin(const Document& number, double lowest) {
  require(number >= lowest && number <= 1.0, "fractions lie within their range");
}

void requireSoundFractions(const Document& document) {
  if (document.is_object()) {
    for (const auto& [key, value] : document.items()) {
      if (key == "ratio" || key == "usedFraction" || key == "cableFraction" ||
          key == "speedFraction") {
        requireWithin(value, 0.0);
      } else if (key == "powerFraction" && !value.is_null()) {
        requireWithin(value, std::numeric_limits<double>::lowest()); // a draw may be negative
      }
    }
  }
  if (document.is_structured()) {
    for (const Document& part : document) {
      requireSoundFractions(part);
    }
  }
}

} // namespace

void requireSoundDocument(const Document& document) {
  requireSoundFractions(document);
  const std::string written =
      document.dump(-1, ' ', /*ensure_ascii=*/false, Document::error_handler_t::strict);
  const Document read = Document::parse(written, /*cb=*/nullptr, /*allow_exceptions=*/false);
  require(read == document, "a written document reads back as itself");
}

} // namespace tamberline
