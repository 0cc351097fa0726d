// The files of a folder of saved reports, in the order of their names, as `save --anonymise`
// replaces what identifies the machine in them.
#include "anonymity/anonymiser.h"
#include "anonymity/secret_keys.h"
#include "base/text.h"
#include "fuzz_target.h"
#include "registry/property_list.h"
#include "reports/report_decoding.h"

#include <nlohmann/json.hpp>

#include <array>
#include <map>
#include <set>
#include <utility>

namespace tamberline {
namespace {

using nlohmann::json;

constexpr std::array questions = {
    Question::portControllers, Question::portPower, Question::deviceTree,  Question::powerSource,
    Question::usbHostDevices,  Question::power,     Question::thunderbolt, Question::usb,
    Question::newerUsb,
};

bool isSection(Question question) {
  return question == Question::power || question == Question::thunderbolt ||
         question == Question::usb || question == Question::newerUsb;
}

/// Compares what was with what is now, text by text. The two have the same shape.
class Replacements {
public:
  void compare(const json& before, const json& now, const std::string& key, bool isOfVolume) {
    if (before.is_object()) {
      require(now.is_object() && now.size() == before.size(), "objects keep their members");
      for (const auto& [name, value] : before.items()) {
        require(now.contains(name), "objects keep their members");
        compare(value, now[name], name, isOfVolume);
      }
    } else if (before.is_array()) {
      require(now.is_array() && now.size() == before.size(), "lists keep their elements");
      for (std::size_t index = 0; index < before.size(); ++index) {
        compare(before[index], now[index], key, before[index].is_object() && key == "volumes");
      }
    } else if (before.is_string()) {
      require(now.is_string(), "texts stay texts");
      take(before.get<std::string>(), now.get<std::string>(), key, isOfVolume && key == "_name");
    } else if (before.is_number_integer() && now.is_string()) {
      take(before.dump(), now.get<std::string>(), key, false);
    } else {
      require(now == before, "all else stays");
    }
  }

  void compare(PropertyListValue before, PropertyListValue now, const std::string& key) {
    static const std::array<std::string, 8> keys = {"IORegistryEntryChildren",
                                                    "USB Serial Number",
                                                    "kUSBContainerID",
                                                    "SerialString",
                                                    "UID",
                                                    "locationID",
                                                    "USB Product Name",
                                                    "FedDetails"};
    require(before.isDictionary() == now.isDictionary(), "dictionaries stay dictionaries");
    if (const auto text = before.text()) {
      require(now.text().has_value(), "texts stay texts");
      take(*text, *now.text(), key, false);
    }
    const std::vector<PropertyListValue> elements = before.elements();
    require(now.elements().size() == elements.size(), "lists keep their elements");
    for (std::size_t index = 0; index < elements.size(); ++index) {
      compare(elements[index], now.elements()[index], key);
    }
    for (const std::string& name : keys) {
      if (before.isDictionary()) {
        compare(before.member(name), now.member(name), name);
      }
    }
  }

  void requireNothingLeft() const {
    for (std::string text : otherTexts_) {
      for (const std::string& standIn : standIns_) {
        cutOut(standIn, text);
      }
      for (const auto& [secret, standIn] : standInOf_) {
        require(secret.size() < 4 || !contains(text, secret), "no replaced text is left");
      }
    }
  }

private:
  void take(const std::string& before, const std::string& now, const std::string& key,
            bool isVolumeName) {
    if (!isVolumeName && !secretKindOf(key)) {
      if (!isToken(key)) {
        otherTexts_.insert(now);
      }
      return;
    }
    const bool identifiesNothing = trimmed(before).empty() || before == "/";
    require((now == before) == identifiesNothing, "what identifies is replaced");
    if (!identifiesNothing) {
      require(standInOf_.try_emplace(before, now).first->second == now,
              "a text has the same stand-in everywhere");
      standIns_.insert(now);
      require(standIns_.size() == standInOf_.size(), "different texts have different stand-ins");
    }
  }

  /// A line break in its place keeps what stands around it from becoming one text.
  static void cutOut(const std::string& part, std::string& text) {
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at)) {
      text.replace(at, part.size(), "\n");
    }
  }

  std::map<std::string, std::string> standInOf_;
  std::set<std::string> standIns_;
  std::set<std::string> otherTexts_;
};

void compareAnswers(const Answers& before, const Answers& now, Replacements& replacements) {
  for (const auto& [question, answer] : before) {
    const auto replaced = now.find(question);
    if (isSection(question)) {
      require(replaced != now.end(), "a section stays");
      const auto section = decodeReport(replaced->second);
      require(section.has_value(), "what could be read can be read");
      replacements.compare(*decodeReport(answer), *section, "", false);
    } else if (const auto list = PropertyList::decode(answer)) {
      require(replaced != now.end(), "a dump that could be read stays");
      const auto replacedList = PropertyList::decode(replaced->second);
      require(replacedList.has_value(), "what could be read can be read");
      replacements.compare(list->root(), replacedList->root(), "");
    } else {
      require(replaced == now.end(), "a dump that cannot be read is left out");
    }
  }
}

Answers answersIn(std::string_view input) {
  Answers answers;
  std::vector<std::string> files = partsOf(input, questions.size());
  for (std::size_t index = 0; index < questions.size(); ++index) {
    if (!files[index].empty()) {
      answers[questions[index]] = std::move(files[index]);
    }
  }
  return answers;
}

bool canBeRead(const Answers& answers) {
  for (const auto& [question, answer] : answers) {
    if (isSection(question) && !decodeReport(answer)) {
      return false;
    }
  }
  return true;
}

} // namespace

void tryInput(std::string_view input) {
  const Answers answers = answersIn(input);
  Anonymiser anonymiser({"idas-laptop"});
  const std::optional<Answers> anonymised = anonymiser.anonymised(answers);
  require(anonymised.has_value() == canBeRead(answers),
          "only a section that is no report is refused");
  if (anonymised) {
    Replacements replacements;
    compareAnswers(answers, *anonymised, replacements);
    replacements.requireNothingLeft();
    require(anonymiser.anonymised(answers) == anonymised,
            "the same answers get the same stand-ins");
    require(!anonymiser.doesChangeEarlierAnswers(), "the same answers teach nothing");
  }
}

} // namespace tamberline
