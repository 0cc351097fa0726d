#pragma once

/// The names by which UDisks2 and the interfaces of its objects go on the system bus.
namespace tamberline::DiskService {

inline constexpr const char* name = "org.freedesktop.UDisks2";
inline constexpr const char* block = "org.freedesktop.UDisks2.Block";
inline constexpr const char* drive = "org.freedesktop.UDisks2.Drive";
inline constexpr const char* encrypted = "org.freedesktop.UDisks2.Encrypted";
inline constexpr const char* fileSystem = "org.freedesktop.UDisks2.Filesystem";

} // namespace tamberline::DiskService
