#include "document_checks.h"
#include "inspect/document_parts.h"
#include "probed_dump.h"
#include "views/port_details_text.h"

namespace tamberline {

void tryInput(std::string_view input) {
  for (HPMPort port : probedDump(fetchHPMPorts, Question::portControllers, input)) {
    requireSoundDocument(describe(port));
    port.portNumber = 1;
    requireSoundDocument(describePorts({{.busNumber = 0}}, {port}, std::nullopt));
    for (const DetailLine& line : portDetailLines(port, std::nullopt)) {
      require(!line.text.empty(), "each line about a port says something");
    }
  }
}

} // namespace tamberline
