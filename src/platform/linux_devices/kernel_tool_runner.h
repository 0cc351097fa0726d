#pragma once

#include "acquisition/tool_commands.h"
#include "acquisition/tool_runner.h"
#include "platform/linux_devices/machine.h"

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace tamberline {

/// Answers for the report tool and the registry tool from what the kernel says of the machine. No
/// program is run; other command lines are answered as if the tool were missing.
///
/// All answers of one scan are about the same moment: the machine is read when something is asked
/// that was asked before, since a scan asks for each thing once.
class KernelToolRunner final : public ToolRunner {
public:
  using MachineReader = std::function<sysfs::Machine()>;

  /// `readMachine` is called on any thread, one call at a time.
  explicit KernelToolRunner(MachineReader readMachine);

  ToolOutput run(const std::string& executable, const std::vector<std::string>& arguments) override;
  ToolOutput runWithErrors(const std::string& executable,
                           const std::vector<std::string>& arguments) override;

private:
  std::shared_ptr<const sysfs::Machine> machineFor(const ToolCommand& command);

  MachineReader readMachine_;
  std::mutex mutex_; // guards what follows
  std::shared_ptr<const sysfs::Machine> machine_;
  std::vector<ToolCommand> answered_; // from this machine
};

} // namespace tamberline
