#pragma once

#include "i18n/app_language.h"

namespace tamberline {

/// Sets the language until the scope ends, and then English again.
class LanguageScope {
public:
  explicit LanguageScope(AppLanguage language) { AppLanguage::choose(language); }
  LanguageScope(const LanguageScope&) = delete;
  LanguageScope& operator=(const LanguageScope&) = delete;
  ~LanguageScope() { AppLanguage::choose(AppLanguage::en); }
};

} // namespace tamberline
