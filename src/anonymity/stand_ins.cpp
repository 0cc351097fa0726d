#include "anonymity/stand_ins.h"

#include "base/text.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <utility>

namespace tamberline {
namespace {

constexpr std::size_t uuidLength = 36;

bool isHexadecimalDigit(char character) {
  return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'f') ||
         (character >= 'A' && character <= 'F');
}

bool isUuid(std::string_view text) {
  if (text.size() != uuidLength) {
    return false;
  }
  for (std::size_t index = 0; index < uuidLength; ++index) {
    const bool isDash = index == 8 || index == 13 || index == 18 || index == 23;
    if (isDash ? text[index] != '-' : !isHexadecimalDigit(text[index])) {
      return false;
    }
  }
  return true;
}

bool isHexadecimalNumber(std::string_view text) {
  return text.size() > 2 && text.starts_with("0x") &&
         std::all_of(text.begin() + 2, text.end(), isHexadecimalDigit);
}

/// Digits without a pattern: a counter would contain runs of zeros, which are serial numbers of
/// cheap devices.
std::string scrambledDigits(std::uint64_t number) {
  std::uint64_t mixed = (number + 1) * 0x9E3779B97F4A7C15U;
  mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
  mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
  mixed ^= mixed >> 31U;
  std::array<char, 17> digits{};
  std::snprintf(digits.data(), digits.size(), "%016llX", static_cast<unsigned long long>(mixed));
  return digits.data();
}

/// In the shape of the secret, because readers of reports expect it.
std::string identifierLike(std::string_view secret, std::uint64_t number) {
  const std::string digits = scrambledDigits(number);
  if (isUuid(secret)) {
    return digits.substr(0, 8) + "-" + digits.substr(8, 4) + "-4" + digits.substr(12, 3) + "-A" +
           digits.substr(1, 3) + "-" + digits.substr(4, 12);
  }
  return isHexadecimalNumber(secret) ? "0x" + digits : "SN" + digits.substr(0, 10);
}

std::string_view commonBeginning(std::string_view left, std::string_view right) {
  const auto difference = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
  return left.substr(0, static_cast<std::size_t>(difference.first - left.begin()));
}

std::string_view readableBeginning(SecretKind kind) {
  switch (kind) {
  case SecretKind::volumeName:
    return "Volume ";
  case SecretKind::mountPoint:
    return "/volumes/";
  case SecretKind::hostName:
    return "Host ";
  case SecretKind::identifier:
    break;
  }
  return "";
}

} // namespace

void StandIns::learn(std::string_view text, SecretKind kind) {
  if (trimmed(text).empty() || text == "/") {
    return;
  }
  const auto [entry, isNew] = secrets_.try_emplace(std::string(text), Secret{kind, {}});
  if (!isNew) {
    return;
  }
  new_.push_back(entry->first);
  if (text.size() >= minPartLength) {
    beginnings_.insert(std::string_view(entry->first).substr(0, minPartLength));
  }
}

void StandIns::learnUuidsIn(std::string_view text) {
  for (std::size_t start = 0; start + uuidLength <= text.size(); ++start) {
    if (isUuid(text.substr(start, uuidLength))) {
      learn(text.substr(start, uuidLength), SecretKind::identifier);
      start += uuidLength - 1;
    }
  }
}

std::string StandIns::standInFor(std::string_view text) {
  const auto found = secrets_.find(text);
  return found == secrets_.end() ? std::string(text) : assign(*found);
}

std::string StandIns::replacedIn(std::string_view text) {
  std::string replaced;
  for (std::size_t position = 0; position < text.size();) {
    Secrets::value_type* const secret = longestAt(text, position);
    if (secret == nullptr) {
      replaced += text[position++];
    } else {
      replaced += assign(*secret);
      position += secret->first.size();
    }
  }
  return replaced;
}

bool StandIns::isAnyIn(std::string_view text) {
  for (std::size_t position = 0; position < text.size(); ++position) {
    if (longestAt(text, position) != nullptr) {
      return true;
    }
  }
  return false;
}

StandIns StandIns::takeNew() {
  StandIns taken;
  for (const std::string_view text : std::exchange(new_, {})) {
    taken.learn(text, secrets_.find(text)->second.kind);
  }
  return taken;
}

bool StandIns::giveUpThoseWith(StandIns& others) {
  bool areAnyGivenUp = false;
  for (auto& [text, secret] : secrets_) {
    if (others.isAnyIn(secret.standIn)) {
      secret.standIn.clear();
      areAnyGivenUp = true;
    }
  }
  return areAnyGivenUp;
}

/// A stand-in that happens to contain a secret, such as "Volume 1" if a volume is called "Volume",
/// is given up for another one.
const std::string& StandIns::assign(Secrets::value_type& entry) {
  auto& [text, secret] = entry;
  if (!secret.standIn.empty()) {
    return secret.standIn;
  }
  const std::string_view beginning = readableBeginning(secret.kind);
  auto& count = counts_.at(static_cast<std::size_t>(secret.kind));
  secret.standIn = beginning.empty() ? identifierLike(text, digits_++)
                                     : std::string(beginning) + std::to_string(++count);
  constexpr int attempts = 8;
  for (int attempt = 0; attempt < attempts && isAnyIn(secret.standIn); ++attempt) {
    secret.standIn = identifierLike(text, digits_++);
  }
  return secret.standIn;
}

/// A secret with which a text starts comes before the text in their order, and the longest one
/// comes last. If the last secret before the text is none, one with which the text starts can only
/// be as long as what the two have in common.
StandIns::Secrets::value_type* StandIns::longestAt(std::string_view text, std::size_t position) {
  std::string_view rest = text.substr(position);
  if (!beginnings_.contains(rest.substr(0, minPartLength))) {
    return nullptr;
  }
  while (rest.size() >= minPartLength) {
    const auto after = secrets_.upper_bound(rest);
    if (after == secrets_.begin()) {
      return nullptr;
    }
    Secrets::value_type& last = *std::prev(after);
    if (rest.starts_with(last.first)) {
      return last.first.size() < minPartLength ? nullptr : &last;
    }
    rest = commonBeginning(rest, last.first);
  }
  return nullptr;
}

} // namespace tamberline
