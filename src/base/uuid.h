#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace tamberline {

/// The bytes as a UUID is written, with these sixteen digits.
std::string uuidText(const std::array<std::uint8_t, 16>& bytes, std::string_view digits);

/// A random (version 4) UUID: the identity of one record of one scan, never stable across scans. It
/// comes from a generator per thread that the system's random source seeds once, because a scan
/// needs several for each device and they need not be secret.
class Uuid {
public:
  static Uuid random();

  /// 36 characters, lower case.
  std::string text() const;

  friend bool operator==(const Uuid&, const Uuid&) = default;
  friend bool operator<(const Uuid& left, const Uuid& right) { return left.bytes_ < right.bytes_; }

private:
  std::array<std::uint8_t, 16> bytes_{};
};

} // namespace tamberline
