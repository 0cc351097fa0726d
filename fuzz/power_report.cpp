#include "reports/power_report.h"

#include "document_checks.h"
#include "fuzz_target.h"
#include "inspect/document_parts.h"
#include "reports/report_decoding.h"

namespace tamberline {

void tryInput(std::string_view input) {
  const auto report = decodeReport(input);
  if (!report) {
    return;
  }
  const PowerReading reading = parsePower(*report);
  if (reading.battery) {
    requireSoundDocument(describe(*reading.battery));
  }
  if (reading.charger) {
    requireSoundDocument(describe(*reading.charger));
  }
}

} // namespace tamberline
