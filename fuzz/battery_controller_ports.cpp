#include "document_checks.h"
#include "inspect/document_parts.h"
#include "probed_dump.h"

namespace tamberline {

void tryInput(std::string_view input) {
  std::int64_t lastIndex = -1;
  for (const FedPortState& port : probedDump(fetchFedDetails, Question::powerSource, input).ports) {
    require(port.index > lastIndex, "ports count upwards");
    lastIndex = port.index;
    requireSoundDocument(describe(port));
  }
}

} // namespace tamberline
