// Replaces the Mac's header of this name on other systems: its manual pages getfsstat(2) and
// fstatfs(2), as far as the sources under test use them. The functions are implemented in
// file_systems.cpp.
#pragma once

#include <cstdint>

inline constexpr int MNT_NOWAIT = 2;

struct statfs {
  std::uint32_t f_bsize;
  std::uint64_t f_blocks;
  std::uint64_t f_bavail;
  struct {
    std::int32_t val[2];
  } f_fsid;
  char f_mntonname[1024];
  char f_mntfromname[1024];
};

int fstatfs(int descriptor, struct statfs* buffer);
int getfsstat(struct statfs* buffer, int bufferSize, int mode);
