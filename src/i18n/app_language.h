#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamberline {

/// One of the languages in which every text is available.
class AppLanguage {
public:
  enum Case : std::uint8_t { en, de, fr, it, es };
  static constexpr std::size_t count = 5;

  explicit(false) constexpr AppLanguage(Case language) : case_(language) {}
  explicit(false) constexpr operator Case() const { return case_; }

  /// The language of this run, English by default. `main` chooses it once, before the first text is
  /// read; main thread only.
  static AppLanguage current();
  static void choose(AppLanguage language);

  /// Only the first entry counts (such as "de-CH" or "pt_BR.UTF-8"): a user whose first choice is
  /// not available gets English, whatever the second choice is.
  static AppLanguage forPreferredLanguages(const std::vector<std::string>& preferredLanguages);

  /// Absent unless the code is exactly one of "en", "de", "fr", "it", "es".
  static std::optional<AppLanguage> forCode(std::string_view code);

  std::string_view code() const;

private:
  Case case_;
};

} // namespace tamberline
