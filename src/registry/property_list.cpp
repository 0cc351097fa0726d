#include "registry/property_list.h"

#include "base/text.h"
#include "base/utf8.h"
#include "registry/xml_references.h"

#include <pugixml.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>
#include <utility>

namespace tamberline {

struct PropertyList::Document {
  std::string bytes; // parsed in place, so it must not move
  pugi::xml_document xml;
};

namespace {

std::string_view nameOf(pugi::xml_node node) {
  return node.name();
}

bool isElement(pugi::xml_node node) {
  return node.type() == pugi::node_element;
}

pugi::xml_node firstElement(pugi::xml_node parent) {
  return parent.find_child(isElement);
}

pugi::xml_node nextElement(pugi::xml_node node) {
  do {
    node = node.next_sibling();
  } while (!node.empty() && !isElement(node));
  return node;
}

/// A comment in the middle of a text splits it into several nodes.
std::string contentOf(pugi::xml_node element) {
  std::string content;
  for (const pugi::xml_node part : element.children()) {
    content += part.value();
  }
  return content;
}

/// Whether the content is equal, without building the text for the usual element with one node.
bool hasContent(pugi::xml_node element, std::string_view content) {
  const pugi::xml_node part = element.first_child();
  return part.next_sibling().empty() ? part.value() == content : contentOf(element) == content;
}

bool hasDigitsOnly(std::string_view digits, std::string_view allowed) {
  return !digits.empty() && digits.find_first_not_of(allowed) == std::string_view::npos;
}

struct IntegerSpelling {
  bool isNegative = false;
  bool isHexadecimal = false;
  std::string digits;

  explicit IntegerSpelling(std::string_view content) {
    std::string_view rest = trimmed(content);
    isNegative = rest.starts_with('-');
    if (isNegative || rest.starts_with('+')) {
      rest.remove_prefix(1);
    }
    isHexadecimal = rest.starts_with("0x") || rest.starts_with("0X");
    digits = rest.substr(isHexadecimal ? 2 : 0);
  }

  bool isWellFormed() const {
    return hasDigitsOnly(digits, isHexadecimal ? "0123456789abcdefABCDEF" : "0123456789");
  }

  std::optional<std::int64_t> value() const {
    const std::string spelled = (isNegative ? "-" : "") + digits;
    return isHexadecimal ? parseHexadecimal(spelled) : parseDecimal(spelled);
  }

  std::optional<std::int64_t> wrappedValue() const {
    std::uint64_t bits = 0;
    const char* const end = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), end, bits, isHexadecimal ? 16 : 10);
    const bool isUnsigned = !isNegative && error == std::errc() && rest == end;
    return isUnsigned ? std::optional(static_cast<std::int64_t>(bits)) : value();
  }
};

bool isWellFormedValue(pugi::xml_node element, int depth);

bool isElementOrBlank(pugi::xml_node node) {
  return isElement(node) || trimmed(node.value()).empty();
}

bool hasOnlyElements(const pugi::xml_node& container) {
  const auto children = container.children();
  return std::all_of(children.begin(), children.end(), isElementOrBlank);
}

/// An invalid character reference becomes invalid UTF-8. Instructions, document types and
/// attributes can contain the start of a comment, which hides references behind it from
/// hasOnlyKnownReferences.
bool isUtf8Text(const pugi::xml_node& element) {
  const auto parts = element.children();
  return std::all_of(parts.begin(), parts.end(),
                     [](const pugi::xml_node& part) { return isValidUtf8(part.value()); });
}

bool isWellFormedArray(pugi::xml_node array, int depth) {
  for (pugi::xml_node element = firstElement(array); !element.empty();
       element = nextElement(element)) {
    if (!isWellFormedValue(element, depth)) {
      return false;
    }
  }
  return true;
}

bool isWellFormedDictionary(pugi::xml_node dictionary, int depth) {
  for (pugi::xml_node key = firstElement(dictionary); !key.empty();) {
    const pugi::xml_node value = nextElement(key);
    if (nameOf(key) != "key" || value.empty() || !isWellFormedValue(value, depth)) {
      return false;
    }
    key = nextElement(value);
  }
  return true;
}

bool isWellFormedValue(pugi::xml_node element, int depth) {
  static constexpr std::array<std::string_view, 5> leaves = {"data", "true", "false", "real",
                                                             "date"};
  const std::string_view name = nameOf(element);
  if (name == "dict" || name == "array") {
    return depth < PropertyList::maxNesting && hasOnlyElements(element) &&
           (name == "dict" ? isWellFormedDictionary(element, depth + 1)
                           : isWellFormedArray(element, depth + 1));
  }
  if (!firstElement(element).empty()) {
    return false;
  }
  if (name == "integer") {
    return IntegerSpelling(contentOf(element)).isWellFormed();
  }
  if (name == "string") {
    return isUtf8Text(element);
  }
  return std::find(leaves.begin(), leaves.end(), name) != leaves.end();
}

/// The one value of a list; no node if the list is not well-formed.
pugi::xml_node rootValueOf(const pugi::xml_document& xml) {
  const pugi::xml_node list = xml.document_element();
  const pugi::xml_node value = firstElement(list);
  const bool isSingleValue = hasOnlyElements(xml) && hasOnlyElements(list) &&
                             nameOf(list) == "plist" && nextElement(list).empty() &&
                             !value.empty() && nextElement(value).empty();
  return isSingleValue && isWellFormedValue(value, 0) ? value : pugi::xml_node();
}

/// What the XML library does not check: it treats a NUL as the end of its input, passes invalid
/// UTF-8, and turns any number in a character reference into bytes.
bool isWellFormedText(std::string_view bytes) {
  return bytes.find('\0') == std::string_view::npos && isValidUtf8(bytes) &&
         hasOnlyKnownReferences(bytes);
}

bool isTooLarge(std::string_view bytes) {
  return bytes.size() > PropertyList::maxListBytes ||
         std::count(bytes.begin(), bytes.end(), '<') > PropertyList::maxTags;
}

constexpr std::string_view base64Digits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::optional<std::vector<unsigned char>> decodeBase64(std::string_view text) {
  std::vector<unsigned char> bytes;
  std::uint32_t buffer = 0;
  unsigned bitCount = 0;
  for (const char character : text) {
    if (character == '=' || trimmed(std::string_view(&character, 1)).empty()) {
      continue;
    }
    const std::size_t digit = base64Digits.find(character);
    if (digit == std::string_view::npos) {
      return std::nullopt;
    }
    buffer = (buffer << 6U) | static_cast<std::uint32_t>(digit);
    bitCount += 6;
    if (bitCount >= 8) {
      bitCount -= 8;
      bytes.push_back(static_cast<unsigned char>((buffer >> bitCount) & 0xFFU));
    }
  }
  return bytes;
}

} // namespace

bool PropertyListValue::isDictionary() const {
  return nameOf(pugi::xml_node(element_)) == "dict";
}

bool PropertyListValue::isArray() const {
  return nameOf(pugi::xml_node(element_)) == "array";
}

PropertyListValue PropertyListValue::member(std::string_view key) const {
  PropertyListValue found;
  if (isDictionary()) {
    for (pugi::xml_node entry = firstElement(pugi::xml_node(element_)); !entry.empty();) {
      const pugi::xml_node value = nextElement(entry);
      if (hasContent(entry, key)) {
        found = PropertyListValue(value.internal_object());
      }
      entry = nextElement(value);
    }
  }
  return found;
}

std::vector<PropertyListValue> PropertyListValue::elements() const {
  std::vector<PropertyListValue> values;
  if (isArray()) {
    for (pugi::xml_node element = firstElement(pugi::xml_node(element_)); !element.empty();
         element = nextElement(element)) {
      values.emplace_back(element.internal_object());
    }
  }
  return values;
}

std::optional<std::string> PropertyListValue::text() const {
  const pugi::xml_node element(element_);
  return nameOf(element) == "string" ? std::optional(contentOf(element)) : std::nullopt;
}

std::optional<std::int64_t> PropertyListValue::integer() const {
  const pugi::xml_node element(element_);
  return nameOf(element) == "integer" ? IntegerSpelling(contentOf(element)).value() : std::nullopt;
}

std::optional<std::int64_t> PropertyListValue::wrappedInteger() const {
  const pugi::xml_node element(element_);
  return nameOf(element) == "integer" ? IntegerSpelling(contentOf(element)).wrappedValue()
                                      : std::nullopt;
}

std::optional<bool> PropertyListValue::boolean() const {
  const std::string_view name = nameOf(pugi::xml_node(element_));
  return name == "true" || name == "false" ? std::optional(name == "true") : std::nullopt;
}

std::optional<std::vector<unsigned char>> PropertyListValue::data() const {
  const pugi::xml_node element(element_);
  return nameOf(element) == "data" ? decodeBase64(contentOf(element)) : std::nullopt;
}

std::optional<PropertyList> PropertyList::decode(std::string bytes) {
  if (isTooLarge(bytes) || !isWellFormedText(bytes)) {
    return std::nullopt;
  }
  auto document = std::make_unique<Document>();
  // The XML library overwrites the last byte and does not say what it was.
  document->bytes = std::move(bytes) + "\n";
  // Fragments are parsed so that text around the list is detected and rejected.
  constexpr unsigned options = pugi::parse_escapes | pugi::parse_cdata | pugi::parse_eol |
                               pugi::parse_ws_pcdata_single | pugi::parse_fragment;
  const pugi::xml_parse_result result = document->xml.load_buffer_inplace(
      document->bytes.data(), document->bytes.size(), options, pugi::encoding_utf8);
  if (result.status != pugi::status_ok || rootValueOf(document->xml).empty()) {
    return std::nullopt;
  }
  return PropertyList(std::move(document));
}

PropertyList::PropertyList(std::unique_ptr<Document> document) : document_(std::move(document)) {}
PropertyList::PropertyList(PropertyList&&) noexcept = default;
PropertyList& PropertyList::operator=(PropertyList&&) noexcept = default;
PropertyList::~PropertyList() = default;

PropertyListValue PropertyList::root() const {
  return PropertyListValue(firstElement(document_->xml.document_element()).internal_object());
}

} // namespace tamberline
