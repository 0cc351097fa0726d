#pragma once

#include "acquisition/machine_source.h"
#include "platform/linux/sysfs/read/machine.h"

#include <functional>
#include <memory>
#include <mutex>
#include <set>
#include <string>

namespace tamberline {

/// Answers from the kernel's description of the machine, without running programs.
///
/// All answers of one scan describe the same moment. A scan asks each question once, so the machine
/// is read again when a question is repeated.
class LinuxMachine final : public MachineSource {
public:
  using MachineReader = std::function<sysfs::Machine()>;

  /// `readMachine` is called on any thread, one call at a time.
  explicit LinuxMachine(MachineReader readMachine);

  std::string answer(Question question) override;

private:
  std::shared_ptr<const sysfs::Machine> machineFor(Question question);

  MachineReader readMachine_;
  std::mutex mutex_; // guards the members below
  std::shared_ptr<const sysfs::Machine> machine_;
  std::set<Question> answered_; // from `machine_`
};

} // namespace tamberline
