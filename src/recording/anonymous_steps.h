#pragma once

#include "acquisition/kept_answers.h"
#include "anonymity/anonymiser.h"

#include <QByteArray>

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// Anonymises the steps of a recording. A later step may show that a text of an earlier one
/// identifies something: the name of a device contains a serial number that is not reported before
/// the device has woken up, say. So it keeps what the steps were made from, compressed and only in
/// memory, to anonymise them again.
class AnonymousSteps {
public:
  /// `hostNames` are replaced too, wherever they are.
  explicit AnonymousSteps(const std::vector<std::string>& hostNames = {});

  /// Adds a step; absent, without a step, if a section of the hardware report cannot be read.
  std::optional<Answers> add(const Answers& answers);

  /// Whether the steps before the last one would be different now.
  bool doesLastChangeEarlier() const { return anonymiser_.doesChangeEarlierAnswers(); }

  /// A step, anonymised with everything that all steps have shown.
  Answers step(std::size_t index);

private:
  using Originals = std::map<Question, QByteArray>;

  Anonymiser anonymiser_;
  std::vector<Originals> originals_;
  Answers last_;
};

} // namespace tamberline
