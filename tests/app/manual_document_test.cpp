#include "app/manual_document.h"
#include "support/language_scope.h"
#include "support/temporary_folder.h"

#include <QFile>
#include <QPdfSelection>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamberline {
namespace {

std::string firstPageText(QPdfDocument& document) {
  return document.getAllText(0).text().toStdString();
}

std::string carriedManual(const std::string& language) {
  QFile file(QString(carriedManuals) + "/Manual-" + QString::fromStdString(language) + ".pdf");
  EXPECT_TRUE(file.open(QFile::ReadOnly)) << language;
  return file.readAll().toStdString();
}

TEST(CarriedManuals, AreThereInEveryLanguage) {
  struct Row {
    AppLanguage language;
    std::string title;
    std::string words;
  };
  const std::vector<Row> rows = {
      {AppLanguage::en, "Tamberline Manual", "Click the Tamberline icon in the system tray"},
      {AppLanguage::de, "Tamberline-Anleitung", "öffnet das Fenster"},
      {AppLanguage::fr, "Manuel Tamberline", "l’icône Tamberline"},
      {AppLanguage::it, "Manuale Tamberline", "la velocità dei collegamenti"},
      {AppLanguage::es, "Manual de Tamberline", "del área de notificación"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.title);
    const LanguageScope language(row.language);
    const auto document = loadDocument(carriedManuals);
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(document->pageCount(), 1);
    EXPECT_EQ(document->metaData(QPdfDocument::MetaDataField::Title).toString().toStdString(),
              row.title);
    EXPECT_EQ(firstPageText(*document).rfind(row.title, 0), 0U) << firstPageText(*document);
    EXPECT_NE(firstPageText(*document).find(row.words), std::string::npos)
        << firstPageText(*document);
    EXPECT_NE(carriedManual(std::string(row.language.code()))
                  .find("/Lang (" + std::string(row.language.code()) + ")"),
              std::string::npos);
  }
}

class ManualDocument : public testing::Test {
protected:
  /// The first line of the manual that is taken, or "none".
  std::string loadedTitle() const {
    const auto document = loadDocument(QString::fromStdString(folder.path().string()));
    if (document == nullptr) {
      return "none";
    }
    const std::string text = firstPageText(*document);
    return text.substr(0, text.find_first_of("\r\n"));
  }

  /// One that does not open, or that has nothing to show.
  static std::vector<std::string> uselessFiles() {
    std::string withoutPage = carriedManual("it");
    const std::string_view kids = "[3 0 R] /Count 1";
    withoutPage.replace(withoutPage.find(kids), kids.size(), "[     ] /Count 0");
    std::string encrypted = carriedManual("it");
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
  folder.save("Manual-en.pdf", carriedManual("en"));
  folder.save("Manual-it.pdf", carriedManual("it"));
  EXPECT_EQ(loadedTitle(), "Manuale Tamberline");
}

TEST_F(ManualDocument, IsTheEnglishOneWithoutOneInTheLanguageOfTheRun) {
  folder.save("Manual-en.pdf", carriedManual("en"));
  EXPECT_EQ(loadedTitle(), "Tamberline Manual");
}

TEST_F(ManualDocument, IsTheEnglishOneWhenTheOtherShowsNothing) {
  folder.save("Manual-en.pdf", carriedManual("en"));
  for (const std::string& content : uselessFiles()) {
    folder.save("Manual-it.pdf", content);
    EXPECT_EQ(loadedTitle(), "Tamberline Manual") << content;
  }
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
