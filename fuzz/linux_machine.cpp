// From a description of the folders in which the kernel describes a machine ("sys"), its mount
// table ("mountinfo") and udev's data ("udev") to the document and the panel.
#include "platform/linux/sysfs/report/linux_machine.h"

#include "fuzz_target.h"
#include "platform/linux/sysfs/read/machine_reader.h"
#include "registry/property_list.h"
#include "reports/report_decoding.h"
#include "scan_checks.h"
#include "tree_folder.h"

#include <nlohmann/json.hpp>

#include <chrono>
#include <memory>
#include <utility>

namespace tamberline {
namespace {

HardwareNames namesOfAVendor(std::string_view vendorId, std::string_view /*productId*/) {
  return vendorId == "046d" ? HardwareNames{.vendor = "Fen", .model = "Fen Receiver"}
                            : HardwareNames();
}

/// Hands on what another source answers, which a scan must be able to read.
class ReadableAnswers final : public MachineSource {
public:
  explicit ReadableAnswers(std::shared_ptr<MachineSource> source) : source_(std::move(source)) {}

  std::string answer(Question question) override {
    std::string answer = source_->answer(question);
    require(decodeReport(answer) || PropertyList::decode(answer),
            "what is answered can be decoded");
    return answer;
  }

private:
  std::shared_ptr<MachineSource> source_;
};

std::shared_ptr<MachineSource> machineIn(const std::filesystem::path& folder) {
  const MachinePaths paths{
      .sysfs = folder / "sys", .mountTable = folder / "mountinfo", .udevData = folder / "udev"};
  return std::make_shared<ReadableAnswers>(std::make_shared<LinuxMachine>(
      [paths, texts = std::make_shared<sysfs::UsbStringCache>(std::chrono::seconds(60))] {
        return sysfs::readMachine(paths, namesOfAVendor, *texts);
      }));
}

} // namespace

void tryInput(std::string_view input) {
  const TreeFolder folder(describedTree(input));
  requireSoundScans(machineIn(folder.path()));
}

} // namespace tamberline
