#pragma once

#include "acquisition/acquisition.h"

#include <QByteArray>
#include <QCoro/QCoroTask>

#include <memory>
#include <string>
#include <string_view>

namespace tamberline {

/// Identifies an answer of a machine without keeping it. Cryptographic, because devices choose
/// their names: none can make a changed answer look like the last one.
class AnswerDigest {
public:
  AnswerDigest() = default;
  explicit AnswerDigest(std::string_view answer);

  friend bool operator==(const AnswerDigest&, const AnswerDigest&) = default;

private:
  QByteArray digest_; // empty: of no answer
};

/// An answer of a machine with its digest.
struct MachineAnswer {
  std::string text;
  AnswerDigest digest;
};

/// Asks `question` in the background and computes the digest there. Main thread only.
QCoro::Task<MachineAnswer> ask(Acquisition acquisition, Question question);

/// What was read from one answer. An equal answer gives the same object again, so readers recognise
/// by its address that nothing changed.
template <typename Result>
struct Reading {
  AnswerDigest digest;
  Result result;
};

/// Null before the first answer.
template <typename Result>
using LastReading = std::shared_ptr<const Reading<Result>>;

} // namespace tamberline
