#include "registry/property_list.h"

#include "base/utf8.h"
#include "fuzz_target.h"
#include "registry/probe_results.h"

#include <array>

namespace tamberline {
namespace {

void requireSoundText(const std::string& text) {
  require(isValidUtf8(text) && text.find('\0') == std::string::npos,
          "texts are UTF-8 and hold no NUL");
}

void askEverything(PropertyListValue value) {
  const std::optional<std::string> text = value.text();
  const int answers = int{value.isDictionary()} + int{value.isArray()} + int{text.has_value()} +
                      int{value.integer().has_value()} + int{value.boolean().has_value()} +
                      int{value.data().has_value()};
  require(answers <= 1, "a value has one type");
  require(!leInt(value) || *leInt(value) <= 0xFFFFFFFF, "four bytes make 32 bits");
  requireSoundText(text.value_or(""));
}

void walk(PropertyListValue value) {
  static constexpr std::array<std::string_view, 4> keys = {
      "IORegistryEntryChildren", "PowerOutDetails", "FedDetails", "locationID"};
  askEverything(value);
  for (const PropertyListValue element : value.elements()) {
    walk(element);
  }
  for (const std::string_view key : keys) {
    if (value.isDictionary()) {
      walk(value.member(key));
    }
  }
}

} // namespace

void tryInput(std::string_view input) {
  if (const auto list = PropertyList::decode(std::string(input))) {
    walk(list->root());
  }
}

} // namespace tamberline
