#include "platform/linux/sysfs/report/property_list_text.h"

#include <nlohmann/json.hpp>

#include <string_view>
#include <vector>

namespace tamberline::sysfs {
namespace {

using nlohmann::json;

std::string escaped(std::string_view text) {
  std::string xml;
  for (const char character : text) {
    switch (character) {
    case '&':
      xml += "&amp;";
      break;
    case '<':
      xml += "&lt;";
      break;
    case '>':
      xml += "&gt;";
      break;
    default:
      xml += character;
    }
  }
  return xml;
}

/// Three bytes are four digits; what is missing of the last three is filled up.
std::string base64(const std::vector<std::uint8_t>& bytes) {
  constexpr std::string_view digits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  for (std::size_t start = 0; start < bytes.size(); start += 3) {
    std::uint32_t group = 0;
    for (std::size_t index = start; index < start + 3; ++index) {
      group = (group << 8U) | (index < bytes.size() ? bytes[index] : 0U);
    }
    for (std::size_t digit = 0; digit < 4; ++digit) {
      const bool isFilling = start + digit > bytes.size();
      text += isFilling ? '=' : digits[(group >> (18U - 6U * digit)) & 0x3FU];
    }
  }
  return text;
}

void append(const json& value, std::string& xml) {
  if (value.is_object()) {
    xml += "<dict>";
    for (const auto& [key, member] : value.items()) {
      xml += "<key>" + escaped(key) + "</key>";
      append(member, xml);
    }
    xml += "</dict>\n";
  } else if (value.is_array()) {
    xml += "<array>";
    for (const json& element : value) {
      append(element, xml);
    }
    xml += "</array>\n";
  } else if (value.is_binary()) {
    xml += "<data>" + base64(value.get_binary()) + "</data>";
  } else if (value.is_boolean()) {
    xml += value.get<bool>() ? "<true/>" : "<false/>";
  } else if (value.is_number_integer()) {
    xml += "<integer>" + value.dump() + "</integer>";
  } else {
    xml += "<string>" + escaped(value.get<std::string>()) + "</string>";
  }
}

} // namespace

std::string asPropertyList(const json& value) {
  std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n";
  append(value, xml);
  xml += "</plist>\n";
  return xml;
}

} // namespace tamberline::sysfs
