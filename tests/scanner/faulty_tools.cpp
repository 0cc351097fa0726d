#include "scanner/faulty_tools.h"

#include "platform/macos/mac_tools.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace tamberline {
namespace {

const std::string garbage("\x7f"
                          "ELF\0\xff\xfe{\"_items\": [<plist><dict>&#0;",
                          34);

std::string firstHalf(const std::string& report) {
  return report.substr(0, report.size() / 2);
}

/// White space at the end changes neither kind of report.
std::string padded(std::string report, std::size_t size) {
  report.resize(std::max(report.size(), size), ' ');
  return report;
}

ToolOutput withFault(ToolFault fault, std::string report, std::size_t hugeSize) {
  switch (fault) {
  case ToolFault::none:
    return {std::move(report), 0};
  case ToolFault::isMissing:
    return {"", std::nullopt};
  case ToolFault::failsWithoutOutput:
    return {"", 1};
  case ToolFault::failsWithItsReport:
    return {std::move(report), 1};
  case ToolFault::printsNothing:
    return {"", 0};
  case ToolFault::printsHalf:
    return {firstHalf(report), 0};
  case ToolFault::printsGarbage:
    return {garbage, 0};
  case ToolFault::printsHugeReport:
    return {padded(std::move(report), hugeSize), 0};
  case ToolFault::printsHugeGarbage:
    return {std::string(hugeSize, '['), 0};
  case ToolFault::diesHalfway:
    return {firstHalf(report), std::nullopt};
  case ToolFault::diesAfterItsReport:
    return {std::move(report), std::nullopt};
  }
  return {};
}

Question questionOf(const ToolCommand& command) {
  for (const Question question : questionsOfAScan) {
    if (commandFor(question) == command) {
      return question;
    }
  }
  throw std::runtime_error("no run of a scan: " + command.executable);
}

} // namespace

std::string nameOf(ToolFault fault) {
  static const std::array<const char*, 11> names = {
      "goes well",           "is missing",   "fails without output", "fails with its report",
      "prints nothing",      "prints half",  "prints garbage",       "prints a huge report",
      "prints huge garbage", "dies halfway", "dies after its report"};
  return names.at(static_cast<std::size_t>(fault));
}

ToolOutput FaultyTools::run(const std::string& executable,
                            const std::vector<std::string>& arguments) {
  const Question question = questionOf({executable, arguments});
  std::string report = machine_.answer(question);
  const auto found = faults_.find(question);
  const ToolFault fault = found == faults_.end() ? ToolFault::none : found->second;
  return withFault(fault, std::move(report), hugeSize_);
}

ToolOutput FaultyTools::runWithErrors(const std::string& executable,
                                      const std::vector<std::string>& arguments) {
  return run(executable, arguments);
}

void FaultyTools::setAnswers(const Answers& answers) {
  for (const auto& [question, answer] : answers) {
    machine_.answer(question, answer);
  }
}

} // namespace tamberline
