#include "app/manual_document.h"
#include "support/language_scope.h"
#include "support/temporary_folder.h"

#include <QDir>
#include <QFile>
#include <QPdfSelection>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace tamberline {
namespace {

std::string firstPageText(QPdfDocument& document) {
  return document.getAllText(0).text().toStdString();
}

/// A manual of one page, in English, German or Italian.
std::string shortManual(const std::string& language) {
  QFile file(MANUALS_FOLDER "/Manual-" + QString::fromStdString(language) + ".pdf");
  EXPECT_TRUE(file.open(QFile::ReadOnly)) << language;
  return file.readAll().toStdString();
}

class ManualFolder : public testing::Test {
protected:
  /// Relative to the parent of the installed program's folder, or "none".
  std::string found() const {
    const QString parent = QString::fromStdString(folder.path().string());
    const QString place = manualFolder(parent + "/bin");
    return place.isEmpty() ? "none" : QDir(parent).relativeFilePath(place).toStdString();
  }

  void install(const std::string& place, const std::string& language = "en") {
    std::filesystem::create_directories(folder.path() / place);
    folder.save(place + "/Manual-" + language + ".pdf", shortManual(language));
  }

  TemporaryFolder folder;
};

TEST_F(ManualFolder, IsTheShareFolderBesideTheProgram) {
  install("share/tamberline/manual");
  EXPECT_EQ(found(), "share/tamberline/manual");
}

TEST_F(ManualFolder, IsInTheResourcesOfABundle) {
  install("Resources");
  EXPECT_EQ(found(), "Resources");
}

TEST_F(ManualFolder, IsNoneWithoutAManual) {
  std::filesystem::create_directories(folder.path() / "share/tamberline/manual");
  EXPECT_EQ(found(), "none");
}

TEST_F(ManualFolder, HasAManualInTheLanguageOfTheRunOrTheEnglishOne) {
  install("share/tamberline/manual", "it");
  EXPECT_EQ(found(), "none");
  const LanguageScope italian(AppLanguage::it);
  EXPECT_EQ(found(), "share/tamberline/manual");
}

class ManualDocument : public testing::Test {
protected:
  /// The first line of the loaded manual, or "none".
  std::string loadedTitle() const {
    const auto document = loadDocument(QString::fromStdString(folder.path().string()));
    if (document == nullptr) {
      return "none";
    }
    const std::string text = firstPageText(*document);
    return text.substr(0, text.find_first_of("\r\n"));
  }

  /// Files that cannot be opened or have no page.
  static std::vector<std::string> uselessFiles() {
    std::string withoutPage = shortManual("it");
    const std::string_view kids = "[3 0 R] /Count 1";
    withoutPage.replace(withoutPage.find(kids), kids.size(), "[     ] /Count 0");
    std::string encrypted = shortManual("it");
    const std::string_view size = "/Size 8";
    encrypted.replace(encrypted.find(size), size.size(),
                      "/Size 8 /Encrypt << /Filter /Standard /V 1 /R 2 /P -4 /O <" +
                          std::string(64, '1') + "> /U <" + std::string(64, '2') +
                          "> >> /ID [<00> <00>]");
    return {"", "no document", withoutPage, encrypted};
  }

  TemporaryFolder folder;
  LanguageScope italian{AppLanguage::it};
};

TEST_F(ManualDocument, IsTheOneInTheLanguageOfTheRun) {
  folder.save("Manual-en.pdf", shortManual("en"));
  folder.save("Manual-it.pdf", shortManual("it"));
  EXPECT_EQ(loadedTitle(), "Manuale Tamberline");
}

TEST_F(ManualDocument, DoesNotNeedTheEnglishOne) {
  folder.save("Manual-it.pdf", shortManual("it"));
  EXPECT_EQ(loadedTitle(), "Manuale Tamberline");
}

TEST_F(ManualDocument, IsTheEnglishOneWithoutOneInTheLanguageOfTheRun) {
  folder.save("Manual-en.pdf", shortManual("en"));
  EXPECT_EQ(loadedTitle(), "Tamberline Manual");
}

TEST_F(ManualDocument, IsTheEnglishOneWhenTheOtherHasNoPages) {
  folder.save("Manual-en.pdf", shortManual("en"));
  for (const std::string& content : uselessFiles()) {
    folder.save("Manual-it.pdf", content);
    EXPECT_EQ(loadedTitle(), "Tamberline Manual") << content;
  }
}

TEST_F(ManualDocument, IsNoneWithoutAFolder) {
  EXPECT_EQ(loadDocument(QString()), nullptr);
}

TEST_F(ManualDocument, IsNoneWhenNothingOpens) {
  EXPECT_EQ(loadedTitle(), "none");
  for (const std::string& content : uselessFiles()) {
    folder.save("Manual-en.pdf", content);
    folder.save("Manual-it.pdf", content);
    EXPECT_EQ(loadedTitle(), "none") << content;
  }
}

} // namespace
} // namespace tamberline
