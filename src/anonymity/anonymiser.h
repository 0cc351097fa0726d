#pragma once

#include "acquisition/kept_answers.h"
#include "anonymity/stand_ins.h"

#include <optional>
#include <string>
#include <vector>

namespace tamberline {

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

private:
  StandIns standIns_;
};

} // namespace tamberline
