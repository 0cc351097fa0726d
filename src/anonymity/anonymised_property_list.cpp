#include "anonymity/report_texts.h"
#include "base/text.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cstddef>
#include <sstream>
#include <string_view>

namespace tamberline {
namespace {

/// Base64 digits of four bytes, without the padding.
constexpr std::size_t maxKeptDigits = 6;

bool isElement(const pugi::xml_node& node) {
  return node.type() == pugi::node_element;
}

pugi::xml_node nextElement(pugi::xml_node node) {
  do {
    node = node.next_sibling();
  } while (!node.empty() && !isElement(node));
  return node;
}

/// A comment in the middle of a text splits it into several nodes.
std::string contentOf(const pugi::xml_node& element) {
  std::string content;
  for (const pugi::xml_node part : element.children()) {
    content += part.value();
  }
  return content;
}

void setContent(pugi::xml_node element, const std::string& content) {
  element.remove_children();
  element.append_child(pugi::node_pcdata).set_value(content.c_str());
}

std::string classOf(const pugi::xml_node& dictionary) {
  const pugi::xml_node key = dictionary.find_child([](const pugi::xml_node& node) {
    return std::string_view(node.name()) == "key" && contentOf(node) == "IOObjectClass";
  });
  return key.empty() ? std::string() : contentOf(nextElement(key));
}

/// The names of drives' partitions and of the volumes in them.
bool isMedium(const pugi::xml_node& dictionary) {
  const std::string name = classOf(dictionary);
  return name == "IOMedia" || name == "AppleAPFSVolume";
}

class PropertyListWalk {
public:
  explicit PropertyListWalk(const ReplaceText& replace) : replace_(replace) {}

  void visit(const pugi::xml_node& element, const TextPlace& place) {
    const std::string_view name = element.name();
    if (name == "dict") {
      visitMembers(element);
    } else if (name == "array") {
      for (const pugi::xml_node child : element.children()) {
        visit(child, place);
      }
    } else if (name == "string") {
      setContent(element, replace_(contentOf(element), place));
    } else if (name == "integer" && place.secret) {
      replaceNumber(element, place);
    } else if (name == "data") {
      clearData(element);
    }
  }

private:
  void visitMembers(const pugi::xml_node& dictionary) {
    const bool isOfMedium = isMedium(dictionary);
    const auto isKey = [](const pugi::xml_node& node) {
      return std::string_view(node.name()) == "key";
    };
    for (pugi::xml_node key = dictionary.find_child(isKey); !key.empty();) {
      const pugi::xml_node value = nextElement(key);
      const std::string name = contentOf(key);
      TextPlace place{secretKindOf(name), false};
      if (isOfMedium && name == "IORegistryEntryName") {
        place.secret = SecretKind::volumeName;
      }
      place.isToken = !place.secret && isToken(name);
      visit(value, place);
      key = nextElement(value);
    }
  }

  /// A text in the place of a number is absent for a reader that expects a number.
  void replaceNumber(pugi::xml_node element, const TextPlace& place) {
    const std::string text = contentOf(element);
    const std::string replaced = replace_(text, place);
    if (replaced != text) {
      element.set_name("string");
      setContent(element, replaced);
    }
  }

  static void clearData(const pugi::xml_node& element) {
    const std::string content = contentOf(element);
    const auto digits =
        static_cast<std::size_t>(std::count_if(content.begin(), content.end(), [](char character) {
          return static_cast<unsigned char>(character) > ' ' && character != '=';
        }));
    if (digits > maxKeptDigits) {
      constexpr std::size_t digitsOfGroup = 4;
      setContent(element, std::string((digits / digitsOfGroup) * digitsOfGroup, 'A'));
    }
  }

  const ReplaceText& replace_;
};

/// The XML library writes a control character as a reference, such as "&#24;", which XML does not
/// allow and no reader accepts; the character itself was accepted. In texts, "&" is escaped, so no
/// other "&#" is in its output.
std::string withControlCharacters(const std::string& written) {
  constexpr std::string_view beginning = "&#";
  std::string text;
  std::size_t start = 0;
  for (std::size_t at = written.find(beginning); at != std::string::npos;
       at = written.find(beginning, start)) {
    const std::size_t end = written.find(';', at);
    const std::size_t digits = at + beginning.size();
    const auto number = parseDecimal(std::string_view(written).substr(digits, end - digits));
    text.append(written, start, at - start);
    text += static_cast<char>(number.value_or('?'));
    start = end + 1;
  }
  return text.append(written, start);
}

} // namespace

std::string replacedTexts(const std::string& propertyList, const ReplaceText& replace) {
  pugi::xml_document document;
  // Keeps the blanks of texts, drops comments, instructions and the document type.
  constexpr unsigned flags = pugi::parse_escapes | pugi::parse_cdata | pugi::parse_eol |
                             pugi::parse_ws_pcdata_single | pugi::parse_fragment;
  document.load_buffer(propertyList.data(), propertyList.size(), flags, pugi::encoding_utf8);
  for (const pugi::xml_node child : document.document_element().children()) {
    if (isElement(child)) {
      PropertyListWalk(replace).visit(child, {});
    }
  }
  std::ostringstream text;
  text << R"(<?xml version="1.0" encoding="UTF-8"?>)" << '\n';
  document.save(text, "\t", pugi::format_indent | pugi::format_no_declaration, pugi::encoding_utf8);
  return withControlCharacters(text.str());
}

} // namespace tamberline
