#include "i18n/app_language.h"
#include "registry/property_list.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace tamberline {
namespace {

namespace fs = std::filesystem;

const fs::path folder = MACOS_FOLDER;

std::string contentOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> languageCodes() {
  std::vector<std::string> codes;
  for (const AppLanguage language :
       {AppLanguage::en, AppLanguage::de, AppLanguage::fr, AppLanguage::it, AppLanguage::es}) {
    codes.emplace_back(language.code());
  }
  return codes;
}

class MacBundle : public testing::Test {
protected:
  void SetUp() override { ASSERT_TRUE(info.has_value()) << "it is no property list"; }

  PropertyListValue entry(const char* key) const { return info->root().member(key); }

  std::optional<PropertyList> info = PropertyList::decode(contentOf(INFO_PLIST));
};

TEST_F(MacBundle, IsAnApplicationOfTheMenuBarOnly) {
  EXPECT_EQ(entry("LSUIElement").boolean(), true);
  EXPECT_EQ(entry("CFBundlePackageType").text(), "APPL");
}

TEST_F(MacBundle, NamesItsProgramItsVersionAndTheOldestSystem) {
  EXPECT_EQ(entry("CFBundleExecutable").text(), "Tamberline");
  EXPECT_EQ(entry("CFBundleIdentifier").text(), "org.tamberline.Tamberline");
  EXPECT_EQ(entry("CFBundleShortVersionString").text(), TAMBERLINE_VERSION);
  EXPECT_EQ(entry("CFBundleVersion").text(), TAMBERLINE_VERSION);
  EXPECT_EQ(entry("LSMinimumSystemVersion").text(), "13.0");
}

TEST_F(MacBundle, HasAnIcon) {
  const fs::path icon = folder / (entry("CFBundleIconFile").text().value_or("") + ".icns");
  EXPECT_EQ(contentOf(icon).substr(0, 4), "icns");
}

TEST_F(MacBundle, SpeaksTheLanguagesOfTheProgram) {
  std::vector<std::string> languages;
  for (const PropertyListValue language : entry("CFBundleLocalizations").elements()) {
    languages.push_back(language.text().value_or(""));
  }
  EXPECT_EQ(languages, languageCodes());
}

TEST_F(MacBundle, SaysInEachLanguageWhyItUsesRemovableVolumes) {
  constexpr const char* key = "NSRemovableVolumesUsageDescription";
  const std::string english = entry(key).text().value_or("nothing");
  EXPECT_NE(contentOf(folder / "en.lproj/InfoPlist.strings").find("\"" + english + "\";"),
            std::string::npos);
  for (const std::string& code : languageCodes()) {
    SCOPED_TRACE(code);
    const std::string strings = contentOf(folder / (code + ".lproj") / "InfoPlist.strings");
    EXPECT_NE(strings.find("\"" + std::string(key) + "\" = \"Tamberline "), std::string::npos);
    EXPECT_EQ(strings.find(english) != std::string::npos, code == "en");
  }
}

} // namespace
} // namespace tamberline
