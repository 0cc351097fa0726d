#include "base/utf8.h"

namespace tamberline {
namespace {

struct LeadByte {
  std::size_t length;
  unsigned char payloadMask;
  /// The range of the second byte, which excludes overlong forms, surrogates and code points beyond
  /// U+10FFFF.
  unsigned char minSecondByte;
  unsigned char maxSecondByte;
};

constexpr LeadByte invalidLead = {0, 0, 0xFF, 0};

LeadByte describeLead(unsigned char lead) {
  if (lead >= 0xC2 && lead <= 0xDF) {
    return {2, 0x1F, 0x80, 0xBF};
  }
  if (lead >= 0xE0 && lead <= 0xEF) {
    return {3, 0x0F, static_cast<unsigned char>(lead == 0xE0 ? 0xA0 : 0x80),
            static_cast<unsigned char>(lead == 0xED ? 0x9F : 0xBF)};
  }
  if (lead >= 0xF0 && lead <= 0xF4) {
    return {4, 0x07, static_cast<unsigned char>(lead == 0xF0 ? 0x90 : 0x80),
            static_cast<unsigned char>(lead == 0xF4 ? 0x8F : 0xBF)};
  }
  return invalidLead;
}

unsigned char byteAt(std::string_view text, std::size_t index) {
  return static_cast<unsigned char>(text[index]);
}

} // namespace

DecodedCharacter decodeFirstCharacter(std::string_view text) {
  const unsigned char first = byteAt(text, 0);
  if (first < 0x80U) {
    return {first, 1, true};
  }
  const LeadByte lead = describeLead(first);
  if (lead.length == 0 || text.size() < lead.length || byteAt(text, 1) < lead.minSecondByte ||
      byteAt(text, 1) > lead.maxSecondByte) {
    return {};
  }
  char32_t codePoint = first & lead.payloadMask;
  for (std::size_t index = 1; index < lead.length; ++index) {
    if ((byteAt(text, index) & 0xC0U) != 0x80U) {
      return {};
    }
    codePoint = (codePoint << 6U) | (byteAt(text, index) & 0x3FU);
  }
  return {codePoint, lead.length, true};
}

void appendUtf8(char32_t codePoint, std::string& text) {
  const auto append = [&](char32_t byte) { text += static_cast<char>(byte); };
  const auto continuation = [&](unsigned shift) { return 0x80U | ((codePoint >> shift) & 0x3FU); };
  if (codePoint < 0x80U) {
    append(codePoint);
  } else if (codePoint < 0x800U) {
    append(0xC0U | (codePoint >> 6U));
    append(continuation(0));
  } else if (codePoint < 0x10000U) {
    append(0xE0U | (codePoint >> 12U));
    append(continuation(6));
    append(continuation(0));
  } else {
    append(0xF0U | (codePoint >> 18U));
    append(continuation(12));
    append(continuation(6));
    append(continuation(0));
  }
}

bool isValidUtf8(std::string_view bytes) {
  std::size_t position = 0;
  while (position < bytes.size()) {
    if (byteAt(bytes, position) < 0x80U) {
      ++position;
      continue;
    }
    const DecodedCharacter next = decodeFirstCharacter(bytes.substr(position));
    if (!next.isValid) {
      return false;
    }
    position += next.length;
  }
  return true;
}

} // namespace tamberline
