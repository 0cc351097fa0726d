// A stand-in: only what src/platform/macos/ uses, as the platform documents it.
#pragma once

#include <cstdint>

typedef std::uint32_t AEEventClass;
typedef std::uint32_t AEEventID;

enum : AEEventClass { kCoreEventClass = 0x61657674 };   // 'aevt'
enum : AEEventID { kAEReopenApplication = 0x72617070 }; // 'rapp'
