#include "recording/anonymous_steps.h"

namespace tamberline {
namespace {

/// Reports are so repetitive that the fastest level makes a sixth of them.
QByteArray compressed(const std::string& text) {
  constexpr int fastest = 1;
  return qCompress(QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())),
                   fastest);
}

} // namespace

AnonymousSteps::AnonymousSteps(const std::vector<std::string>& hostNames)
    : anonymiser_(hostNames) {}

/// An answer that is the same as in the step before shares its memory.
std::optional<Answers> AnonymousSteps::add(const Answers& answers) {
  std::optional<Answers> anonymised = anonymiser_.anonymised(answers);
  if (!anonymised) {
    return std::nullopt;
  }
  Originals originals;
  for (const auto& [question, answer] : answers) {
    const auto last = last_.find(question);
    const bool isShared = last != last_.end() && last->second == answer;
    originals[question] = isShared ? originals_.back().at(question) : compressed(answer);
  }
  originals_.push_back(std::move(originals));
  last_ = answers;
  return anonymised;
}

Answers AnonymousSteps::step(std::size_t index) {
  Answers answers;
  for (const auto& [question, original] : originals_.at(index)) {
    answers[question] = qUncompress(original).toStdString();
  }
  return anonymiser_.anonymised(answers).value_or(Answers());
}

} // namespace tamberline
