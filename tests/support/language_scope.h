#pragma once

#include "i18n/app_language.h"

namespace tamberline {

/// Texts are in `language` until the scope ends, and then in English again.
class LanguageScope {
public:
  explicit LanguageScope(AppLanguage language) { AppLanguage::choose(language); }
  LanguageScope(const LanguageScope&) = delete;
  LanguageScope& operator=(const LanguageScope&) = delete;
  ~LanguageScope() { AppLanguage::choose(AppLanguage::en); }
};

} // namespace tamberline
