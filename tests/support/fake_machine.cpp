#include "support/fake_machine.h"

#include <ostream>
#include <utility>

namespace tamberline {

std::string nameOf(Question question) {
  static constexpr std::array<const char*, 9> names = {
      "thunderbolt",    "usb",         "power",   "portControllers", "portPower", "deviceTree",
      "usbHostDevices", "powerSource", "newerUsb"};
  return names.at(static_cast<std::size_t>(question));
}

void PrintTo(Question question, std::ostream* stream) {
  *stream << nameOf(question);
}

std::string FakeMachine::answer(Question question) {
  const std::lock_guard lock(mutex_);
  questions_.push_back(question);
  ++askCounts_[question];
  std::deque<std::string>& forOnce = answersForOnce_[question];
  if (forOnce.empty()) {
    return answers_[question];
  }
  std::string answer = std::move(forOnce.front());
  forOnce.pop_front();
  return answer;
}

void FakeMachine::answer(Question question, std::string answer) {
  const std::lock_guard lock(mutex_);
  answers_[question] = std::move(answer);
}

void FakeMachine::answerOnce(Question question, std::string answer) {
  const std::lock_guard lock(mutex_);
  answersForOnce_[question].push_back(std::move(answer));
}

std::vector<Question> FakeMachine::questions() const {
  const std::lock_guard lock(mutex_);
  return questions_;
}

void FakeMachine::forgetQuestions() {
  const std::lock_guard lock(mutex_);
  questions_.clear();
}

std::size_t FakeMachine::askCount(Question question) const {
  const std::lock_guard lock(mutex_);
  const auto found = askCounts_.find(question);
  return found == askCounts_.end() ? 0 : found->second;
}

void answerWithEmptyReports(FakeMachine& machine) {
  machine.answer(Question::thunderbolt, R"({"SPThunderboltDataType": []})");
  machine.answer(Question::usb, R"({"SPUSBDataType": []})");
  machine.answer(Question::power, R"({"SPPowerDataType": []})");
}

} // namespace tamberline
