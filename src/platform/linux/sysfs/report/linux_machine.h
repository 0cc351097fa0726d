#pragma once

#include "acquisition/machine_source.h"
#include "platform/linux/sysfs/read/machine.h"

#include <functional>
#include <memory>
#include <mutex>
#include <set>
#include <string>

namespace tamberline {

/// Answers from what the kernel says of the machine. No program is run.
///
/// All answers of one scan are about the same moment: the machine is read when something is asked
/// that was asked before, since a scan asks for each thing once.
class LinuxMachine final : public MachineSource {
public:
  using MachineReader = std::function<sysfs::Machine()>;

  /// `readMachine` is called on any thread, one call at a time.
  explicit LinuxMachine(MachineReader readMachine);

  std::string answer(Question question) override;

private:
  std::shared_ptr<const sysfs::Machine> machineFor(Question question);

  MachineReader readMachine_;
  std::mutex mutex_; // guards what follows
  std::shared_ptr<const sysfs::Machine> machine_;
  std::set<Question> answered_; // from this machine
};

} // namespace tamberline
