// Text rules shared by every layer. All of them work on bytes, know only ASCII letters, digits and
// white space, and ignore the process's locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamberline {

bool contains(std::string_view text, std::string_view part);

std::string_view trimmed(std::string_view text);

/// The pieces between the separators, empty ones included; never an empty list.
std::vector<std::string_view> split(std::string_view text, char separator);

/// The same without the empty pieces; an empty list if nothing is left.
std::vector<std::string_view> splitNonEmpty(std::string_view text, char separator);

std::string joined(const std::vector<std::string>& pieces, std::string_view separator);

std::string replacedAll(std::string_view text, std::string_view from, std::string_view to);

/// An optional sign and digits and nothing else; absent for anything else or if it does not fit.
std::optional<std::int64_t> parseDecimal(std::string_view text);
std::optional<std::int64_t> parseHexadecimal(std::string_view text);

/// Digits with optional decimals after a point, and nothing else; absent for anything else, or with
/// more than twelve digits before or after the point.
std::optional<double> parseNumber(std::string_view text);

/// Fixed notation with a decimal point, whatever the locale: 7.25 with 1 decimal is "7.2".
std::string fixedText(double value, int decimals);

/// The shortest notation of up to six significant digits: "10", "5", "0.48".
std::string generalText(double value);

} // namespace tamberline
