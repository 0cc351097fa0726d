#pragma once

#include "platform/linux/sysfs/read/machine_reader.h"
#include "support/temporary_folder.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

namespace tamberline {

/// A folder in the form of the kernel's description of a machine.
class SysfsTree {
public:
  MachinePaths paths() const {
    return {.sysfs = folder_.path() / "sys",
            .mountTable = folder_.path() / "mountinfo",
            .udevData = folder_.path() / "udev"};
  }

  std::filesystem::path sysfs() const { return paths().sysfs; }

  /// Attributes end with a line break, as the kernel writes them.
  void attribute(const std::string& path, const std::string& value) const {
    save(sysfs() / path, value + "\n");
  }

  void attributes(const std::string& folder, const std::map<std::string, std::string>& all) const {
    for (const auto& [name, value] : all) {
      attribute(folder + "/" + name, value);
    }
  }

  void bytes(const std::string& path, const std::string& content) const {
    save(sysfs() / path, content);
  }

  void link(const std::string& path, const std::string& target) const {
    std::filesystem::create_directories((sysfs() / path).parent_path());
    std::filesystem::create_symlink(target, sysfs() / path);
  }

  /// An entry of a class, with its attributes, for a device below `owner`.
  void classDevice(const std::string& className, const std::string& owner, const std::string& name,
                   const std::map<std::string, std::string>& all) const {
    const std::string device = "devices/" + owner + "/" + className + "/" + name;
    std::filesystem::create_directories(sysfs() / device);
    attributes(device, all);
    link("class/" + className + "/" + name, "../../" + device);
  }

  void mountTable(const std::string& lines) const { save(paths().mountTable, lines); }
  void udevData(const std::string& device, const std::string& lines) const {
    save(paths().udevData / device, lines);
  }

  sysfs::Machine read() const {
    sysfs::UsbStringCache texts{std::chrono::seconds(60)};
    return read(texts);
  }

  sysfs::Machine read(sysfs::UsbStringCache& texts) const {
    return sysfs::readMachine(
        paths(),
        [](std::string_view vendorId, std::string_view productId) {
          return vendorId == "046d" && productId == "c52b"
                     ? HardwareNames{.vendor = "Database Vendor", .model = "Database Model"}
                     : HardwareNames();
        },
        texts);
  }

private:
  static void save(const std::filesystem::path& file, const std::string& content) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
  }

  TemporaryFolder folder_;
};

} // namespace tamberline
