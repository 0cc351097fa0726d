#pragma once

#include "i18n/app_language.h"

#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <string>
#include <vector>

namespace tamberline {

/// One of the sample machines in one of the languages.
struct SampleCase {
  std::string sample = {};
  AppLanguage language = AppLanguage::en;
};

inline void PrintTo(const AppLanguage& language, std::ostream* out) {
  *out << language.code();
}

inline void PrintTo(const SampleCase& sample, std::ostream* out) {
  *out << sample.sample << " in " << sample.language.code();
}

inline constexpr std::array<AppLanguage, AppLanguage::count> allLanguages = {
    AppLanguage::en, AppLanguage::de, AppLanguage::fr, AppLanguage::it, AppLanguage::es};

inline std::vector<SampleCase> allSampleCases() {
  std::vector<SampleCase> cases;
  for (const char* sample :
       {"bare", "desk", "desktop", "laptop", "not-charging", "road", "slow", "studio"}) {
    for (const AppLanguage language : allLanguages) {
      cases.push_back({sample, language});
    }
  }
  return cases;
}

inline std::string nameOfSampleCase(const testing::TestParamInfo<SampleCase>& info) {
  std::string name = info.param.sample + "_" + std::string(info.param.language.code());
  std::erase(name, '-');
  return name;
}

inline std::string nameOfLanguage(const testing::TestParamInfo<AppLanguage>& info) {
  return std::string(info.param.code());
}

} // namespace tamberline
