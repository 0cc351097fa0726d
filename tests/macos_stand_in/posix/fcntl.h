// Replaces the Mac's header of this name on other systems: two requests according to its manual
// page fcntl(2), and a flag of open(2). Implemented in file_systems.cpp.
#pragma once

inline constexpr int O_RDONLY = 0;
inline constexpr int F_NOCACHE = 48;
inline constexpr int F_FULLFSYNC = 51;

int fcntl(int descriptor, int request);
int fcntl(int descriptor, int request, int argument);
