// From the files of a folder of saved reports, in the order of their names, to the document and the
// panel.
#include "fuzz_target.h"
#include "platform/macos/mac_machine.h"
#include "scan_checks.h"
#include "support/fake_machine.h"

#include <array>
#include <utility>

namespace tamberline {
namespace {

constexpr std::array questions = {
    Question::portControllers, Question::portPower, Question::deviceTree,  Question::powerSource,
    Question::usbHostDevices,  Question::power,     Question::thunderbolt, Question::usb,
    Question::newerUsb,
};

std::shared_ptr<MachineSource> machineWith(std::string_view input) {
  const auto machine = std::make_shared<FakeMachine>();
  std::vector<std::string> files = partsOf(input, questions.size());
  for (std::size_t index = 0; index < questions.size(); ++index) {
    machine->answer(questions[index], std::move(files[index]));
  }
  return std::make_shared<MacMachine>(machine, [] {
    return std::vector<Mount>{{"/dev/disk4s1", "/Volumes/Fieldwork"}};
  });
}

} // namespace

void tryInput(std::string_view input) {
  requireSoundScans(machineWith(input));
}

} // namespace tamberline
