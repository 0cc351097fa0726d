#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <span>
#include <system_error>

namespace tamberline {
namespace {

constexpr std::string_view asciiWhiteSpace = " \t\n\v\f\r";

std::optional<std::int64_t> parseInteger(std::string_view text, int base) {
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) {
      return std::nullopt;
    }
  }
  std::int64_t value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value, base);
  if (error != std::errc() || stop != end) {
    return std::nullopt;
  }
  return value;
}

/// Absent if there is anything but digits, or more than twelve.
std::optional<std::int64_t> digitsOnly(std::string_view text) {
  constexpr std::size_t maxDigits = 12;
  const bool areDigits = text.find_first_not_of("0123456789") == std::string_view::npos;
  return areDigits && text.size() <= maxDigits ? parseInteger(text, 10) : std::nullopt;
}

/// The output of a call that may have run out of room; empty after an error.
std::string_view written(std::span<const char> room, int length) {
  const auto wanted = static_cast<std::size_t>(std::max(length, 0));
  return {room.data(), std::min(wanted, room.size() - 1)};
}

/// The number with a point as its decimal separator. In the output of the process's locale, the
/// separator is whatever is not a digit, a sign or a letter.
std::string withDecimalPoint(std::string_view number) {
  constexpr std::string_view others = "0123456789+-abcdefghijklmnopqrstuvwxyz";
  const std::size_t point = std::min(number.find_first_not_of(others), number.size());
  const std::size_t decimals = std::min(number.find_first_of(others, point), number.size());
  std::string text(number.substr(0, point));
  if (decimals > point) {
    text += '.';
  }
  return text += number.substr(decimals);
}

} // namespace

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(asciiWhiteSpace);
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(asciiWhiteSpace) - first + 1);
}

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> pieces;
  std::size_t start = 0;
  for (std::size_t end = text.find(separator); end != std::string_view::npos;
       end = text.find(separator, start)) {
    pieces.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  pieces.push_back(text.substr(start));
  return pieces;
}

std::vector<std::string_view> splitNonEmpty(std::string_view text, char separator) {
  std::vector<std::string_view> pieces = split(text, separator);
  std::erase_if(pieces, [](std::string_view piece) { return piece.empty(); });
  return pieces;
}

std::string joined(const std::vector<std::string>& pieces, std::string_view separator) {
  std::string text;
  for (const std::string& piece : pieces) {
    if (&piece != &pieces.front()) {
      text += separator;
    }
    text += piece;
  }
  return text;
}

std::string replacedAll(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  std::size_t start = 0;
  for (std::size_t hit = text.find(from); hit != std::string_view::npos;
       hit = text.find(from, start)) {
    result += text.substr(start, hit - start);
    result += to;
    start = hit + from.size();
  }
  result += text.substr(start);
  return result;
}

std::optional<std::int64_t> parseDecimal(std::string_view text) {
  return parseInteger(text, 10);
}

std::optional<std::int64_t> parseHexadecimal(std::string_view text) {
  return parseInteger(text, 16);
}

std::optional<double> parseNumber(std::string_view text) {
  const std::vector<std::string_view> parts = split(text, '.');
  const std::optional<std::int64_t> whole = digitsOnly(parts.front());
  const auto decimals =
      parts.size() == 2 ? digitsOnly(parts.back()) : std::optional<std::int64_t>(0);
  if (!whole || !decimals || parts.size() > 2) {
    return std::nullopt;
  }
  const auto decimalPlaces = static_cast<double>(parts.back().size());
  return static_cast<double>(*whole) +
         static_cast<double>(*decimals) / std::pow(10.0, decimalPlaces);
}

std::string fixedText(double value, int decimals) {
  std::array<char, 512> text{}; // the max double has 309 digits before its decimals
  const int length = std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
  return withDecimalPoint(written(text, length));
}

std::string generalText(double value) {
  std::array<char, 32> text{};
  const int length = std::snprintf(text.data(), text.size(), "%g", value);
  return withDecimalPoint(written(text, length));
}

} // namespace tamberline
