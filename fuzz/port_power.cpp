#include "document_checks.h"
#include "inspect/document_parts.h"
#include "probed_dump.h"

namespace tamberline {

void tryInput(std::string_view input) {
  for (const auto& [port, power] : probedDump(fetchPortPowerOut, Question::portPower, input)) {
    requireSoundDocument(describe(power));
  }
}

} // namespace tamberline
