#include "document_checks.h"
#include "inspect/document_parts.h"
#include "probed_dump.h"

namespace tamberline {

void tryInput(std::string_view input) {
  const BatteryController battery = probedDump(fetchPortPowerOut, Question::portPower, input);
  for (const auto& [port, power] : battery.portPowerOut) {
    requireSoundDocument(describe(power));
  }
  if (battery.charging) {
    requireSoundDocument(describe(*battery.charging));
  }
}

} // namespace tamberline
