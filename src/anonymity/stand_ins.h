#pragma once

#include "anonymity/secret_keys.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace tamberline {

/// A stand-in for each secret text. The same text always has the same one, and different texts have
/// different ones, so what was equal or different before is so afterwards. A stand-in does not
/// depend on its text, so the text cannot be guessed from it.
class StandIns {
public:
  /// Shorter texts are replaced only where they are a whole value: "1" is part of everything.
  static constexpr std::size_t minPartLength = 4;

  /// Registers a secret. Blank texts and "/" identify nothing and stay.
  void learn(std::string_view text, SecretKind kind);

  /// Registers every UUID in the text.
  void learnUuidsIn(std::string_view text);

  /// The stand-in of a learnt text; any other text unchanged.
  std::string standInFor(std::string_view text);

  /// The text with every learnt text in it replaced, the longest possible one at each place.
  std::string replacedIn(std::string_view text);

  /// Whether replacedIn would replace something.
  bool isAnyIn(std::string_view text);

  /// The texts that were learnt since the last call.
  StandIns takeNew();

  /// Gives up the stand-ins in which one of the others' texts is, so that they get new ones when
  /// they are needed again. Returns whether there were such stand-ins.
  bool giveUpThoseWith(StandIns& others);

private:
  struct Secret {
    SecretKind kind = SecretKind::identifier;
    std::string standIn; // empty until it is needed
  };
  using Secrets = std::map<std::string, Secret, std::less<>>;

  const std::string& assign(Secrets::value_type& entry);
  Secrets::value_type* longestAt(std::string_view text, std::size_t position);

  Secrets secrets_;
  std::vector<std::string_view> new_; // of the secrets
  /// The first bytes of the secrets, so that most places in a text need no search.
  std::unordered_set<std::string_view> beginnings_;
  std::array<std::uint64_t, 4> counts_{}; // by kind
  std::uint64_t digits_ = 0;
};

} // namespace tamberline
