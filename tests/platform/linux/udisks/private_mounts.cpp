#include "platform/linux/udisks/private_mounts.h"

#include <cerrno>
#include <cstring>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <thread>

namespace tamberline {
namespace {

std::string problemOf(const char* what, int result) {
  return result == 0 ? std::string() : std::string(what) + ": " + std::strerror(errno);
}

std::string leaveMountsOfOthers() {
  return problemOf("mounts of its own", unshare(CLONE_NEWNS));
}

std::string keepMountsPrivate() {
  return problemOf("private mounts", mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr));
}

std::string hideRun() {
  return problemOf("an empty /run", mount("tmpfs", "/run", "tmpfs", 0, nullptr));
}

/// The service creates its data folder when it starts for the first time on a machine, which may be
/// this one.
std::string hideNotesOfService() {
  const std::string problem =
      problemOf("empty notes", mount("tmpfs", "/var/lib", "tmpfs", 0, nullptr));
  return problem.empty() ? problemOf("a folder for notes", mkdir("/var/lib/udisks2", 0700))
                         : problem;
}

/// The disk service would request an event for each device that it has changed, and wait 20 s for
/// it if no device manager is running.
std::string keepKernelFromBeingAsked() {
  const unsigned long flags = MS_REMOUNT | MS_BIND | MS_RDONLY;
  return problemOf("a read-only /sys", mount("sysfs", "/sys", nullptr, flags, nullptr));
}

/// Empty on success.
std::string makeMountsPrivate() {
  for (const auto step : {leaveMountsOfOthers, keepMountsPrivate, hideRun, hideNotesOfService,
                          keepKernelFromBeingAsked}) {
    if (const std::string problem = step(); !problem.empty()) {
      return problem;
    }
  }
  return {};
}

} // namespace

std::string doWithPrivateMounts(const std::function<void()>& something) {
  std::string problem;
  std::thread([&] {
    problem = makeMountsPrivate();
    if (problem.empty()) {
      something();
    }
  }).join();
  return problem;
}

} // namespace tamberline
