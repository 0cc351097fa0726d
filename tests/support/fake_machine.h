#pragma once

#include "acquisition/machine_source.h"

#include <cstddef>
#include <deque>
#include <iosfwd>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace tamberline {

/// Such as "portPower", for messages.
std::string nameOf(Question question);
void PrintTo(Question question, std::ostream* stream);

/// A machine that answers what a test tells it to; nothing until then.
class FakeMachine final : public MachineSource {
public:
  std::string answer(Question question) override;

  /// Sets the answer from now on.
  void answer(Question question, std::string answer);

  /// Answers for the next time the question is asked, one each, before the lasting one counts
  /// again.
  void answerOnce(Question question, std::string answer);

  /// The questions so far, in the order in which they were asked.
  std::vector<Question> questions() const;
  /// For long tests that measure memory.
  void forgetQuestions();
  std::size_t askCount(Question question) const;

private:
  mutable std::mutex mutex_;
  std::map<Question, std::string> answers_;
  std::map<Question, std::deque<std::string>> answersForOnce_;
  std::vector<Question> questions_;
  std::map<Question, std::size_t> askCounts_;
};

/// Sets empty sections, so that a scan succeeds and finds nothing.
void answerWithEmptyReports(FakeMachine& machine);

} // namespace tamberline
