#include "reports/thunderbolt_report.h"

#include "document_checks.h"
#include "fuzz_target.h"
#include "inspect/document_parts.h"
#include "reports/report_decoding.h"

namespace tamberline {

void tryInput(std::string_view input) {
  if (const auto report = decodeReport(input)) {
    for (const ThunderboltBus& bus : parseThunderbolt(*report)) {
      requireSoundDocument(describe(bus));
    }
  }
}

} // namespace tamberline
