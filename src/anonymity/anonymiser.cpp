#include "anonymity/anonymiser.h"

#include "acquisition/readable_answers.h"
#include "anonymity/report_texts.h"
#include "registry/property_list.h"
#include "reports/report_decoding.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <utility>

namespace tamberline {

using nlohmann::json;

/// The answers that can be read, decoded once.
struct ReadableAnswers {
  std::map<Question, json> sections;
  std::map<Question, std::string> lists;
};

namespace {

/// Absent if a section cannot be read.
std::optional<ReadableAnswers> readable(const Answers& answers) {
  ReadableAnswers readable;
  for (const auto& [question, answer] : answers) {
    if (!asksForSection(question)) {
      if (PropertyList::decode(answer)) {
        readable.lists[question] = answer;
      }
      continue;
    }
    std::optional<json> section = decodeReport(answer);
    if (!section) {
      return std::nullopt;
    }
    readable.sections[question] = std::move(*section);
  }
  return readable;
}

Answers replacedAnswers(ReadableAnswers&& answers, const ReplaceText& replace) {
  Answers replaced;
  for (auto& [question, section] : answers.sections) {
    replaceTexts(section, replace);
    replaced[question] =
        section.dump(2, ' ', /*ensure_ascii=*/false, json::error_handler_t::replace) + "\n";
  }
  for (const auto& [question, list] : answers.lists) {
    replaced[question] = replacedTexts(list, replace);
  }
  return replaced;
}

} // namespace

Anonymiser::Anonymiser(const std::vector<std::string>& hostNames) {
  for (const std::string& name : hostNames) {
    standIns_.learn(name, SecretKind::hostName);
  }
}

/// The last answers' own texts do not count.
void Anonymiser::learnFrom(const ReadableAnswers& answers) {
  replacedAnswers(ReadableAnswers(answers),
                  [this](const std::string& text, const TextPlace& place) {
                    if (place.secret) {
                      standIns_.learn(text, *place.secret);
                    } else {
                      standIns_.learnUuidsIn(text);
                    }
                    return text;
                  });
  StandIns learnt = standIns_.takeNew();
  const bool areAnyGivenUp = standIns_.giveUpThoseWith(learnt);
  doesChangeEarlierAnswers_ =
      areAnyGivenUp ||
      std::any_of(searchedTexts_.begin(), searchedTexts_.end(),
                  [&learnt](const std::string& text) { return learnt.isAnyIn(text); });
}

/// Everything is learnt before anything is replaced: a secret of one answer may be part of another.
std::optional<Answers> Anonymiser::anonymised(const Answers& answers) {
  std::optional<ReadableAnswers> known = readable(answers);
  if (!known) {
    return std::nullopt;
  }
  learnFrom(*known);
  return replacedAnswers(std::move(*known),
                         [this](const std::string& text, const TextPlace& place) {
                           if (place.secret) {
                             return standIns_.standInFor(text);
                           }
                           if (place.isToken) {
                             return text;
                           }
                           searchedTexts_.insert(text);
                           return standIns_.replacedIn(text);
                         });
}

} // namespace tamberline
