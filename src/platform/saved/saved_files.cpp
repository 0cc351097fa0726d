#include "platform/saved/saved_files.h"

#include "platform/saved/saved_reports.h"

namespace tamberline {

std::map<std::string, std::string> savedFiles(const Answers& answers) {
  std::map<std::string, std::string> files;
  for (const auto& [question, answer] : answers) {
    files[savedFileName(question)] = answer;
  }
  return files;
}

std::optional<std::string> missingReport(const Answers& answers) {
  for (const Question report : {Question::thunderbolt, Question::usb, Question::power}) {
    if (!answers.contains(report)) {
      return savedFileName(report);
    }
  }
  return std::nullopt;
}

} // namespace tamberline
