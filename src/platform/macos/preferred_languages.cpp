#include "platform/preferred_languages.h"

#include "platform/macos/cf_reference.h"

#include <cstddef>

namespace tamberline {
namespace {

std::string utf8Text(CFStringRef text) {
  const CFIndex maxBytesRead =
      CFStringGetMaximumSizeForEncoding(CFStringGetLength(text), kCFStringEncodingUTF8) + 1;
  std::string bytes(static_cast<std::size_t>(maxBytesRead), '\0');
  if (CFStringGetCString(text, bytes.data(), maxBytesRead, kCFStringEncodingUTF8) == 0) {
    return {};
  }
  bytes.resize(bytes.find('\0'));
  return bytes;
}

} // namespace

std::vector<std::string> preferredLanguages() {
  const CFReference<CFArrayRef> identifiers(CFLocaleCopyPreferredLanguages());
  std::vector<std::string> languages;
  const CFIndex count = identifiers ? CFArrayGetCount(identifiers.get()) : 0;
  for (CFIndex index = 0; index < count; ++index) {
    const void* const identifier = CFArrayGetValueAtIndex(identifiers.get(), index);
    languages.push_back(utf8Text(static_cast<CFStringRef>(identifier)));
  }
  return languages;
}

} // namespace tamberline
