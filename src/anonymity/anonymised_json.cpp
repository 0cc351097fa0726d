#include "anonymity/report_texts.h"
#include "base/text.h"
#include "reports/report_decoding.h"

#include <nlohmann/json.hpp>

#include <string_view>

namespace tamberline {
namespace {

using nlohmann::json;

/// What the objects around a member are.
struct Surroundings {
  bool isVolume = false;
  bool isHost = false; // an entry of the Thunderbolt section: one of the computer's ports
};

TextPlace placeOf(std::string_view key, const Surroundings& around) {
  std::optional<SecretKind> secret = secretKindOf(key);
  if (around.isVolume && key == "_name") {
    secret = SecretKind::volumeName;
  } else if (around.isHost && key == "device_name_key") {
    secret = SecretKind::hostName;
  }
  return {secret, !secret && isToken(key)};
}

class JsonWalk {
public:
  explicit JsonWalk(const ReplaceText& replace) : replace_(replace) {}

  void visitMembers(json& object, const Surroundings& around) {
    for (const auto& [key, value] : object.items()) {
      visit(value, key, placeOf(key, around));
    }
  }

  void visit(json& value, std::string_view key, const TextPlace& place) {
    if (value.is_string()) {
      value = replace_(value.get<std::string>(), place);
    } else if (value.is_number_integer() && place.secret) {
      replaceNumber(value, place);
    } else if (value.is_object()) {
      visitMembers(value, {});
    } else if (value.is_array()) {
      for (json& element : value) {
        visitElement(element, key, place);
      }
    }
  }

private:
  void visitElement(json& element, std::string_view key, const TextPlace& place) {
    if (element.is_object()) {
      visitMembers(element, {key == "volumes", key == thunderboltSectionKey});
    } else {
      visit(element, key, place);
    }
  }

  void replaceNumber(json& value, const TextPlace& place) {
    const std::string text = value.dump();
    const std::string replaced = replace_(text, place);
    if (replaced != text) {
      value = replaced;
    }
  }

  const ReplaceText& replace_;
};

} // namespace

void replaceTexts(json& section, const ReplaceText& replace) {
  JsonWalk(replace).visitMembers(section, {});
}

} // namespace tamberline
