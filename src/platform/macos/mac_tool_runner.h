#pragma once

#include "acquisition/tool_runner.h"
#include "platform/macos/mount_table.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tamberline {

/// Makes every release of the system answer like the older ones. Since release 26 the report's USB
/// section is empty and another one, which knows no volumes, holds the devices; asked for the USB
/// section, this runner then puts it together from the newer one, the registry and the mount table.
/// Everything else, and the USB section wherever that gives nothing, is the tools' own answer. A
/// newer section that is too large to be read is handed on as it is, so that its reading fails.
class MacToolRunner final : public ToolRunner {
public:
  using MountTableReader = std::function<std::vector<Mount>()>;

  /// `readMountTable` is called on any thread, several at once.
  MacToolRunner(std::shared_ptr<ToolRunner> tools, MountTableReader readMountTable);

  ToolOutput run(const std::string& executable, const std::vector<std::string>& arguments) override;
  ToolOutput runWithErrors(const std::string& executable,
                           const std::vector<std::string>& arguments) override;

private:
  std::shared_ptr<ToolRunner> tools_;
  MountTableReader readMountTable_;
};

} // namespace tamberline
