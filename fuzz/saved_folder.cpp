// The way from the files of a folder of saved reports, in the order of their names, to the document
// and the panel.
#include "base/shown_text.h"
#include "base/text.h"
#include "device_checks.h"
#include "document_checks.h"
#include "fuzz_target.h"
#include "inspect/document.h"
#include "inspect/panel_text.h"
#include "platform/macos/mac_tool_runner.h"
#include "scanner/port_scanner.h"
#include "scanner/silent_event_source.h"
#include "support/fake_tools.h"
#include "support/hand_driven_queue.h"
#include "views/panel_inputs.h"

#include <nlohmann/json.hpp>

#include <array>
#include <chrono>
#include <utility>

namespace tamberline {
namespace {

constexpr std::array fileNames = {
    "AppleHPMDevice.plist",       "AppleSmartBattery.plist", "IODeviceTree.plist",
    "IOPMPowerSource.plist",      "IOUSBHostDevice.plist",   "SPPowerDataType.json",
    "SPThunderboltDataType.json", "SPUSBDataType.json",      "SPUSBHostDataType.json",
};

std::shared_ptr<ToolRunner> toolsThatPrint(std::string_view input) {
  const auto tools = std::make_shared<FakeTools>();
  std::vector<std::string> files = partsOf(input, fileNames.size());
  for (std::size_t index = 0; index < fileNames.size(); ++index) {
    tools->answer(fileNames[index], std::move(files[index]));
  }
  return std::make_shared<MacToolRunner>(tools, [] {
    return std::vector<Mount>{{"/dev/disk4s1", "/Volumes/Fieldwork"}};
  });
}

/// One scan, with time for the second attempt of a report that fails.
nlohmann::ordered_json scan(PortScanner& scanner, HandDrivenQueue& queue) {
  scanner.scan();
  queue.advance(std::chrono::milliseconds(150));
  require(!scanner.isScanning.get(), "a scan ends");
  return inspectionDocument(scanner);
}

void requireHarmlessText(const std::string& text) {
  for (const std::string_view line : split(text, '\n')) {
    require(shownText(line, line.size() + 1) == trimmed(line),
            "nothing that the panel says disturbs a terminal");
  }
}

} // namespace

void tryInput(std::string_view input) {
  const auto queue = std::make_shared<HandDrivenQueue>();
  const auto scanner =
      PortScanner::create({.acquisition = {.tools = toolsThatPrint(input), .queue = queue},
                           .events = std::make_shared<SilentEventSource>()});
  const nlohmann::ordered_json document = scan(*scanner, *queue);
  requireSoundDocument(document);
  requireUniqueIdentifiers(scanner->portTree.get());
  requireHarmlessText(panelText(describePanel(panelInputs(*scanner)), /*useColors=*/false));
  require(scan(*scanner, *queue) == document, "the same reports show the same");
  queue->end();
}

} // namespace tamberline
