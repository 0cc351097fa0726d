#include "base/uuid.h"

#include "base/seeded_generator.h"

#include <cstring>
#include <string_view>

namespace tamberline {

std::string uuidText(const std::array<std::uint8_t, 16>& bytes, std::string_view digits) {
  std::string text;
  text.reserve(36);
  for (std::size_t index = 0; index < bytes.size(); ++index) {
    if (index == 4 || index == 6 || index == 8 || index == 10) {
      text += '-';
    }
    text += digits[bytes[index] >> 4U];
    text += digits[bytes[index] & 0x0FU];
  }
  return text;
}

Uuid Uuid::random() {
  thread_local std::mt19937_64 generator = seededGenerator();
  const std::array<std::uint64_t, 2> words = {generator(), generator()};
  Uuid result;
  std::memcpy(result.bytes_.data(), words.data(), result.bytes_.size());
  result.bytes_[6] = static_cast<std::uint8_t>((result.bytes_[6] & 0x0FU) | 0x40U); // version 4
  result.bytes_[8] = static_cast<std::uint8_t>((result.bytes_[8] & 0x3FU) | 0x80U); // its variant
  return result;
}

std::string Uuid::text() const {
  return uuidText(bytes_, "0123456789abcdef");
}

} // namespace tamberline
