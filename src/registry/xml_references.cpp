#include "registry/xml_references.h"

#include "base/text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tamberline {
namespace {

bool isCharacterOfXml(std::int64_t codePoint) {
  const auto isWithin = [&](std::int64_t first, std::int64_t last) {
    return codePoint >= first && codePoint <= last;
  };
  return codePoint == '\t' || codePoint == '\n' || codePoint == '\r' || isWithin(0x20, 0xD7FF) ||
         isWithin(0xE000, 0xFFFD) || isWithin(0x10000, 0x10FFFF);
}

/// `name` is the text between the "&" and the ";".
bool isKnownReference(std::string_view name) {
  static constexpr std::array<std::string_view, 5> entities = {"amp", "lt", "gt", "quot", "apos"};
  if (name.starts_with("#x")) {
    return isCharacterOfXml(parseHexadecimal(name.substr(2)).value_or(-1));
  }
  if (name.starts_with('#')) {
    return isCharacterOfXml(parseDecimal(name.substr(1)).value_or(-1));
  }
  return std::find(entities.begin(), entities.end(), name) != entities.end();
}

/// The position after the next `end`; the end of the text if there is none.
std::size_t behind(std::string_view xml, std::string_view end, std::size_t from) {
  const std::size_t found = xml.find(end, from);
  return found == std::string_view::npos ? xml.size() : found + end.size();
}

} // namespace

bool hasOnlyKnownReferences(std::string_view xml) {
  if (xml.find('&') == std::string_view::npos) {
    return true; // the usual dump; this check is much faster
  }
  std::size_t position = xml.find_first_of("&<");
  while (position != std::string_view::npos) {
    const std::string_view rest = xml.substr(position);
    if (rest.starts_with("<![CDATA[")) {
      position = behind(xml, "]]>", position);
    } else if (rest.starts_with("<!--")) {
      position = behind(xml, "-->", position);
    } else if (rest.starts_with('<')) {
      ++position;
    } else {
      const std::size_t end = rest.find(';');
      if (end == std::string_view::npos || !isKnownReference(rest.substr(1, end - 1))) {
        return false;
      }
      position += end;
    }
    position = xml.find_first_of("&<", position);
  }
  return true;
}

} // namespace tamberline
