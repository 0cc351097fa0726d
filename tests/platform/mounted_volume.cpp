#include "platform/mounted_volume.h"

#include "platform/posix/child_process_runner.h"
#include "platform/posix/descriptor.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <linux/fs.h>
#include <linux/loop.h>
#include <map>
#include <poll.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/vfs.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace tamberline {
namespace {

constexpr std::uint64_t mediumSize = 512U << 20U;
constexpr unsigned long mountFlags = MS_NOSUID | MS_NODEV;

/// A file system driver that runs as a program, in the foreground.
struct Driver {
  const char* program;
  const char* foreground; // the option that keeps it in the foreground
  const char* maker;      // the program that makes the file system
  std::vector<std::string> makerOptions;
};

/// Null if the kernel itself is the driver.
const Driver* driverOf(const std::string& fileSystem) {
  static const std::map<std::string, Driver> drivers = {
      {"exfat-fuse", {"/usr/sbin/mount.exfat-fuse", "-d", "mkfs.exfat", {}}},
      {"ntfs-3g", {"/usr/bin/ntfs-3g", "-ono_detach", "mkfs.ntfs", {"-Q", "-F"}}},
  };
  const auto found = drivers.find(fileSystem);
  return found == drivers.end() ? nullptr : &found->second;
}

std::string errorText(const std::string& what) {
  return what + ": " + std::system_category().message(errno);
}

void saveText(const std::string& path, const std::string& text) {
  std::ofstream(path) << text;
}

/// Ordinary users may mount in a namespace in which they are root.
bool enterAsOrdinaryPerson() {
  const uid_t user = geteuid();
  const gid_t group = getegid();
  if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
    return false;
  }
  saveText("/proc/self/setgroups", "deny");
  saveText("/proc/self/uid_map", "0 " + std::to_string(user) + " 1");
  saveText("/proc/self/gid_map", "0 " + std::to_string(group) + " 1");
  return true;
}

/// The reason for a failure; empty on success.
std::string tryToEnterPrivateMounts() {
  if (unshare(CLONE_NEWNS) != 0 && !enterAsOrdinaryPerson()) {
    return errorText("no mounts of its own for the process");
  }
  if (mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) {
    return errorText("the mounts of the process cannot be made private");
  }
  return {};
}

void enterPrivateMounts() {
  static const std::string reason = tryToEnterPrivateMounts();
  if (!reason.empty()) {
    throw VolumeUnavailable(reason);
  }
}

/// The program that makes the file system, and its options.
std::vector<std::string> makerOf(const std::string& fileSystem) {
  const Driver* driver = driverOf(fileSystem);
  std::vector<std::string> command = {driver == nullptr ? "mkfs." + fileSystem : driver->maker};
  if (driver != nullptr) {
    command.insert(command.end(), driver->makerOptions.begin(), driver->makerOptions.end());
  }
  return command;
}

/// Another process may take the device in between; then the caller tries again.
Descriptor tryToAttach(const Descriptor& control, const Descriptor& medium, std::string& path) {
  path = "/dev/loop" + std::to_string(ioctl(control.number(), LOOP_CTL_GET_FREE));
  Descriptor device(open(path.c_str(), O_RDWR | O_CLOEXEC));
  loop_config config = {};
  config.fd = static_cast<std::uint32_t>(medium.number());
  config.info.lo_flags = LO_FLAGS_AUTOCLEAR;
  if (device.isOpen() && ioctl(device.number(), LOOP_CONFIGURE, &config) != 0) {
    device.close();
  }
  return device;
}

/// A block device on the file; it is removed when it is neither open nor mounted.
Descriptor attach(const std::string& medium, std::string& path) {
  const Descriptor control(open("/dev/loop-control", O_RDWR | O_CLOEXEC));
  const Descriptor file(open(medium.c_str(), O_RDWR | O_CLOEXEC));
  constexpr int attempts = 100;
  for (int attempt = 0; control.isOpen() && attempt < attempts; ++attempt) {
    Descriptor device = tryToAttach(control, file, path);
    if (device.isOpen()) {
      return device;
    }
  }
  throw VolumeUnavailable(errorText("no loop device"));
}

int openProcess(pid_t process) {
  return static_cast<int>(syscall(SYS_pidfd_open, process, 0));
}

/// Runs the driver in this process, without output.
[[noreturn]] void becomeDriver(const Driver& driver, const char* options, const char* device,
                               const char* mountPoint) {
  const int nothing = open("/dev/null", O_RDWR);
  dup2(nothing, STDOUT_FILENO);
  dup2(nothing, STDERR_FILENO);
  execl(driver.program, driver.program, driver.foreground, "-o", options, device, mountPoint,
        nullptr);
  _exit(EXIT_FAILURE);
}

/// Makes this process the keeper of a driver; it ends with the driver. If the test's process ends
/// first, the keeper unmounts the volume: a driver that is killed while no other process has its
/// volume never ends.
[[noreturn]] void becomeKeeper(int testProcess, const Driver& program, const char* options,
                               const char* device, const char* mountPoint) {
  setsid(); // not reached by signals from the keyboard
  const pid_t driver = fork();
  if (driver == 0) {
    becomeDriver(program, options, device, mountPoint);
  }
  std::array<pollfd, 2> ends = {pollfd{testProcess, POLLIN, 0},
                                pollfd{openProcess(driver), POLLIN, 0}};
  poll(ends.data(), ends.size(), -1);
  if (ends[1].revents == 0) {
    umount2(mountPoint, UMOUNT_NOFOLLOW | MNT_DETACH);
    kill(driver, SIGTERM);
  }
  waitpid(driver, nullptr, 0);
  _exit(EXIT_SUCCESS);
}

bool isServedByDriver(const std::string& mountPoint) {
  constexpr auto fuseType = 0x65735546;
  struct statfs status = {};
  return statfs(mountPoint.c_str(), &status) == 0 && status.f_type == fuseType;
}

/// False if the keeper ended, or if nothing happened for a time that is long enough for any
/// machine.
bool awaitDriver(pid_t keeper, const Descriptor& mounts, const std::string& mountPoint) {
  const Descriptor process(openProcess(keeper));
  constexpr int patienceMilliseconds = 30'000;
  while (!isServedByDriver(mountPoint)) {
    std::array<pollfd, 2> events = {pollfd{mounts.number(), POLLPRI, 0},
                                    pollfd{process.number(), POLLIN, 0}};
    if (poll(events.data(), events.size(), patienceMilliseconds) <= 0 || events[1].revents != 0) {
      return false;
    }
  }
  return true;
}

void unmount(const std::filesystem::path& place) {
  if (umount2(place.c_str(), UMOUNT_NOFOLLOW) != 0) {
    umount2(place.c_str(), UMOUNT_NOFOLLOW | MNT_DETACH);
  }
}

void require(bool worked, const std::string& what) {
  if (!worked) {
    throw std::system_error(errno, std::generic_category(), what);
  }
}

} // namespace

MountedVolume::Folder::Folder() {
  std::string pattern = testing::TempDir() + "/tamberline völume XXXXXX";
  require(mkdtemp(pattern.data()) != nullptr, pattern);
  path = std::filesystem::canonical(pattern);
  require(chmod(path.c_str(), 0755) == 0, pattern); // tests also run as ordinary users
}

MountedVolume::Folder::~Folder() {
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(path, ignored)) {
    unmount(entry.path());
  }
  std::filesystem::remove_all(path, ignored);
}

MountedVolume::MountedVolume(const VolumeSetting& setting)
    : setting_(setting), mediumFolder_(folder_.path / "medium"), medium_(mediumFolder_ / "image"),
      mountPoint_(folder_.path / setting.name) {
  enterPrivateMounts();
  std::filesystem::create_directory(mountPoint_);
  std::filesystem::create_directory(mediumFolder_);
  mountVolume();
}

void MountedVolume::mountVolume() {
  if (setting_.fileSystem == "tmpfs" || setting_.fileSystem == "ramfs") {
    mountInMemory(setting_.fileSystem, mountPoint_, setting_.mountOptions);
    return;
  }
  makeMedium();
  mountMedium();
}

void MountedVolume::replace() {
  require(umount2(mountPoint_.c_str(), 0) == 0, "unmount");
  std::filesystem::remove(medium_);
  mountVolume();
}

void MountedVolume::mountOver() const {
  mountInMemory("tmpfs", mountPoint_, "");
}

MountedVolume::~MountedVolume() {
  unmount(mountPoint_);
  if (keeper_ > 0) {
    waitpid(keeper_, nullptr, 0);
  }
}

void MountedVolume::mountInMemory(const std::string& fileSystem, const std::filesystem::path& place,
                                  const std::string& options) {
  if (mount(fileSystem.c_str(), place.c_str(), fileSystem.c_str(), mountFlags, options.c_str()) !=
      0) {
    throw VolumeUnavailable(errorText(fileSystem + " cannot be mounted"));
  }
}

void MountedVolume::makeMedium() const {
  if (setting_.mediumBytes) {
    mountInMemory("tmpfs", mediumFolder_, "size=" + std::to_string(*setting_.mediumBytes));
  }
  saveText(medium_, "");
  std::filesystem::resize_file(medium_, mediumSize);
  std::vector<std::string> command = makerOf(setting_.fileSystem);
  command.insert(command.begin(), "PATH=/usr/sbin:/usr/bin:/sbin:/bin");
  command.push_back(medium_);
  const ToolOutput output = ChildProcessRunner().runWithErrors("/usr/bin/env", command);
  if (output.exitStatus != 0) {
    throw VolumeUnavailable(output.standardOutput);
  }
}

void MountedVolume::mountMedium() {
  const Descriptor deviceUntilMounted = attach(medium_, device_);
  if (driverOf(setting_.fileSystem) != nullptr) {
    startDriver();
  } else if (mount(device_.c_str(), mountPoint_.c_str(), setting_.fileSystem.c_str(), mountFlags,
                   setting_.mountOptions.c_str()) != 0) {
    throw VolumeUnavailable(errorText(setting_.fileSystem + " cannot be mounted"));
  }
}

void MountedVolume::startDriver() {
  const Driver& driver = *driverOf(setting_.fileSystem);
  if (access(driver.program, X_OK) != 0) {
    throw VolumeUnavailable(errorText(driver.program));
  }
  const Descriptor mounts(open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC));
  const Descriptor thisProcess(openProcess(getpid()));
  const std::string options =
      setting_.mountOptions.empty() ? "nosuid,nodev" : "nosuid,nodev," + setting_.mountOptions;
  keeper_ = fork();
  if (keeper_ == 0) {
    becomeKeeper(thisProcess.number(), driver, options.c_str(), device_.c_str(),
                 mountPoint_.c_str());
  }
  if (!awaitDriver(keeper_, mounts, mountPoint_)) {
    throw VolumeUnavailable(setting_.fileSystem + " cannot mount here");
  }
}

void MountedVolume::makeReadOnly() const {
  require(mount(nullptr, mountPoint_.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0,
          "read-only");
}

void MountedVolume::detach() const {
  require(umount2(mountPoint_.c_str(), MNT_DETACH) == 0, "detach");
}

void MountedVolume::pullDrive() const {
  constexpr unsigned long shutDown = _IOR('X', 125, std::uint32_t);
  const std::uint32_t withoutWritingTheJournal = 2;
  const Descriptor folder(open(mountPoint_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  require(ioctl(folder.number(), shutDown, &withoutWritingTheJournal) == 0, "pull drive");
}

void MountedVolume::loseMediumContent() const {
  std::filesystem::resize_file(medium_, 0);
}

} // namespace tamberline
