#pragma once

#include "acquisition/kept_answers.h"
#include "anonymity/stand_ins.h"

#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

namespace tamberline {

struct ReadableAnswers;

/// Replaces what identifies a machine, its devices and its user in the machine's answers: serial
/// numbers, unique identifiers, container identifiers, names of volumes, mount points and host
/// names. The port tree of the result differs in names and identifiers only. Names of devices and
/// makers stay. The stand-ins are kept, so later answers of the same machine get the same ones.
class Anonymiser {
public:
  /// `hostNames` are replaced too, wherever they are.
  explicit Anonymiser(const std::vector<std::string>& hostNames = {});

  /// Absent if a section of the hardware report cannot be read: nothing could be replaced in it. A
  /// dump that cannot be read is left out, because no program reads it either.
  std::optional<Answers> anonymised(const Answers& answers);

  /// Whether the last call taught something by which the result of an earlier call would be
  /// different now: a text that stayed then is known to identify something now.
  bool doesChangeEarlierAnswers() const { return doesChangeEarlierAnswers_; }

private:
  void learnFrom(const ReadableAnswers& answers);

  StandIns standIns_;
  /// Everything in which parts were looked for and replaced.
  std::unordered_set<std::string> searchedTexts_;
  bool doesChangeEarlierAnswers_ = false;
};

} // namespace tamberline
