// Stands in for the Mac's header of this name where there is no Mac: what its manual page fcntl(2)
// says of two requests, and a flag of open(2). Answered by file_systems.cpp.
#pragma once

inline constexpr int O_RDONLY = 0;
inline constexpr int F_NOCACHE = 48;
inline constexpr int F_FULLFSYNC = 51;

int fcntl(int descriptor, int request);
int fcntl(int descriptor, int request, int argument);
