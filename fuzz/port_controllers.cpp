#include "document_checks.h"
#include "inspect/document_parts.h"
#include "probed_dump.h"

namespace tamberline {

void tryInput(std::string_view input) {
  for (const HPMPort& port : probedDump(fetchHPMPorts, Question::portControllers, input)) {
    requireSoundDocument(describe(port));
  }
}

} // namespace tamberline
