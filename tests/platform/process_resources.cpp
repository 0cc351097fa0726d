#include "platform/process_resources.h"

#include "platform/posix/descriptor.h"

#include <algorithm>
#include <fcntl.h>
#include <fstream>
#include <sys/mman.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace tamberline {
namespace {

std::uint64_t pageSize() {
  return static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
}

} // namespace

std::map<std::string, std::string> openDescriptors() {
  std::map<std::string, std::string> descriptors;
  std::vector<std::filesystem::path> entries;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    entries.push_back(entry.path());
  }
  for (const std::filesystem::path& entry : entries) {
    std::error_code hasClosedMeanwhile; // the descriptor that listed them
    const std::filesystem::path target = std::filesystem::read_symlink(entry, hasClosedMeanwhile);
    if (!hasClosedMeanwhile) {
      descriptors[entry.filename()] = target;
    }
  }
  return descriptors;
}

std::uint64_t residentBytes() {
  std::uint64_t allPages = 0;
  std::uint64_t residentPages = 0;
  std::ifstream("/proc/self/statm") >> allPages >> residentPages;
  return residentPages * pageSize();
}

std::optional<MediumTraffic> mediumTraffic() {
  std::ifstream counters("/proc/thread-self/io");
  std::map<std::string, std::uint64_t> values;
  std::string name;
  for (std::uint64_t value = 0; counters >> name >> value;) {
    values[name] = value;
  }
  if (values.count("read_bytes:") == 0 || values.count("write_bytes:") == 0) {
    return std::nullopt;
  }
  return MediumTraffic{values["read_bytes:"], values["write_bytes:"]};
}

std::uint64_t cachedBytes(const std::filesystem::path& file) {
  const Descriptor descriptor(open(file.c_str(), O_RDONLY | O_CLOEXEC));
  const std::uint64_t size = std::filesystem::file_size(file);
  void* start = mmap(nullptr, size, PROT_READ, MAP_SHARED, descriptor.number(), 0);
  if (start == MAP_FAILED) {
    throw std::system_error(errno, std::generic_category(), file);
  }
  std::vector<unsigned char> pages(size / pageSize() + 1);
  const int outcome = mincore(start, size, pages.data());
  munmap(start, size);
  if (outcome != 0) {
    throw std::system_error(errno, std::generic_category(), file);
  }
  const auto isCached = [](unsigned char page) { return (page & 1U) != 0; };
  return static_cast<std::uint64_t>(std::count_if(pages.begin(), pages.end(), isCached)) *
         pageSize();
}

} // namespace tamberline
