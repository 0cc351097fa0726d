// Walks over the texts of one report or dump, to learn secrets and to replace them.
#pragma once

#include "anonymity/secret_keys.h"

#include <nlohmann/json_fwd.hpp>

#include <functional>
#include <optional>
#include <string>

namespace tamberline {

/// What is known about a text from its place.
struct TextPlace {
  /// Present if the whole text is a secret.
  std::optional<SecretKind> secret;
  /// It is a token or a number that the parsers read.
  bool isToken = false;
};

/// Returns the text to put in the place of a text.
using ReplaceText = std::function<std::string(const std::string& text, const TextPlace& place)>;

/// Replaces the texts of a section of the hardware report, and integers that are secrets.
void replaceTexts(nlohmann::json& section, const ReplaceText& replace);

/// The property list with replaced texts, and integers that are secrets. Binary data of more than
/// four bytes becomes zeros: serial numbers and network addresses are written there too. The list
/// must be one that PropertyList::decode accepts.
std::string replacedTexts(const std::string& propertyList, const ReplaceText& replace);

} // namespace tamberline
