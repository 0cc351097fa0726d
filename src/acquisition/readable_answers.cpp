#include "acquisition/readable_answers.h"

#include "registry/property_list.h"
#include "reports/report_decoding.h"

#include <nlohmann/json.hpp>

namespace tamberline {

bool asksForSection(Question question) {
  return question == Question::thunderbolt || question == Question::usb ||
         question == Question::power || question == Question::newerUsb;
}

std::vector<Question> unreadableAnswers(const Answers& answers) {
  std::vector<Question> unreadable;
  for (const auto& [question, answer] : answers) {
    const bool isReadable = asksForSection(question) ? decodeReport(answer).has_value()
                                                     : PropertyList::decode(answer).has_value();
    if (!isReadable) {
      unreadable.push_back(question);
    }
  }
  return unreadable;
}

} // namespace tamberline
