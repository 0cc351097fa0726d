#include "platform/linux/udisks/mounted_image.h"

#include "platform/posix/child_process_runner.h"

#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <system_error>
#include <vector>

namespace tamberline {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t imageSize = 8U << 20U; // bytes

/// Empty on success.
std::string run(const std::string& program, const std::vector<std::string>& arguments) {
  const ToolOutput output = ChildProcessRunner().runWithErrors(program, arguments);
  return output.exitStatus == 0 ? std::string() : program + ": " + output.standardOutput;
}

dev_t deviceHolding(const std::string& path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 ? status.st_dev : 0;
}

/// Records what the device manager would find out about a file system, if none is running.
void noteFileSystem(dev_t deviceNumber) {
  const fs::path notes = "/run/udev/data";
  fs::create_directories(notes);
  std::ofstream(notes / ("b7:" + std::to_string(minor(deviceNumber))))
      << "E:ID_FS_USAGE=filesystem\n"
         "E:ID_FS_TYPE=ext4\n";
}

} // namespace

MountedImage::MountedImage(const TemporaryFolder& folder)
    : image_((folder.path() / "image").string()),
      mountPoint_((folder.path() / "-a 'volume' \"of\" 日本\n\\040 \xff").string()) {
  std::ofstream(image_).close();
  fs::resize_file(image_, imageSize);
  fs::create_directory(mountPoint_);
  problem_ = run("/usr/sbin/mkfs.ext4", {"-q", image_});
  if (problem_.empty()) {
    problem_ = run("/usr/bin/mount", {"-o", "loop", image_, mountPoint_});
  }
  if (problem_.empty()) {
    deviceNumber_ = deviceHolding(mountPoint_);
    noteFileSystem(deviceNumber_);
  }
}

bool MountedImage::isMounted() const {
  return deviceHolding(mountPoint_) != deviceHolding(mountPoint_ + "/..");
}

std::string MountedImage::device() const {
  return "/dev/loop" + std::to_string(minor(deviceNumber_));
}

void MountedImage::mountAlsoAt(const std::string& path) const {
  fs::create_directory(path);
  mount(mountPoint_.c_str(), path.c_str(), nullptr, MS_BIND, nullptr);
}

bool hasLoopDevice(const TemporaryFolder& folder) {
  // If /sys is not mounted, no test can have left a device.
  std::error_code unreadable;
  for (const fs::directory_entry& device : fs::directory_iterator("/sys/block", unreadable)) {
    std::string file;
    std::getline(std::ifstream(device.path() / "loop" / "backing_file"), file);
    if (file.rfind(folder.path().string(), 0) == 0) {
      return true;
    }
  }
  return false;
}

} // namespace tamberline
