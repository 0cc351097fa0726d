#include "panel/updated_text.h"
#include "scanner/scanner_fixture.h"
#include "support/counted_signal.h"
#include "support/language_scope.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace tamberline {
namespace {

using namespace std::chrono_literals;

class UpdatedTextTest : public ScannerFixture {
protected:
  void SetUp() override {
    ScannerFixture::SetUp();
    updated = std::make_unique<UpdatedText>(scanner, queue, [this] { return now; });
  }

  void pass(std::chrono::seconds duration) {
    for (; duration > 0s; duration -= 1s) {
      now += 1s;
      queue->advance(1s);
    }
  }

  std::string text() const { return updated->text().toStdString(); }

  std::unique_ptr<UpdatedText> updated;
};

TEST_F(UpdatedTextTest, IsEmptyBeforeTheFirstScan) {
  updated->setPanelVisible(true);
  EXPECT_EQ(text(), "");
  EXPECT_EQ(queue->delayedCount(), 0U);
}

TEST_F(UpdatedTextTest, GoesWithTheTime) {
  updated->setPanelVisible(true);
  scan();
  EXPECT_EQ(text(), "Updated just now");
  pass(25s);
  EXPECT_EQ(text(), "Updated 20 seconds ago");
  pass(60s);
  EXPECT_EQ(text(), "Updated 1 minute ago");
  pass(24h);
  EXPECT_EQ(text(), "Updated 1 day ago");
}

TEST_F(UpdatedTextTest, TellsOnlyWhenItReadsDifferently) {
  updated->setPanelVisible(true);
  scan();
  pass(61s);
  const CountedSignal changes(updated.get(), &UpdatedText::textChanged);
  pass(180s);
  EXPECT_EQ(text(), "Updated 4 minutes ago");
  EXPECT_EQ(changes.count(), 3);
  updated->setPanelVisible(true);
  EXPECT_EQ(changes.count(), 3);
}

TEST_F(UpdatedTextTest, BeginsAnewWithEveryScan) {
  updated->setPanelVisible(true);
  scan();
  pass(10s);
  scan();
  EXPECT_EQ(text(), "Updated just now");
}

TEST_F(UpdatedTextTest, SleepsWhileThePanelIsHidden) {
  updated->setPanelVisible(true);
  scan();
  updated->setPanelVisible(false);
  EXPECT_EQ(queue->delayedCount(), 0U);
  const CountedSignal changes(updated.get(), &UpdatedText::textChanged);
  pass(1h);
  scan();
  EXPECT_EQ(changes.count(), 0);
  EXPECT_EQ(queue->delayedCount(), 0U);
}

TEST_F(UpdatedTextTest, IsRightAtOnceWhenThePanelIsSeenAgain) {
  scan();
  pass(2h);
  EXPECT_EQ(text(), "");
  updated->setPanelVisible(true);
  EXPECT_EQ(text(), "Updated 2 hours ago");
}

TEST_F(UpdatedTextTest, WaitsForOneTickAtATime) {
  updated->setPanelVisible(true);
  scan();
  updated->setPanelVisible(true);
  updated->setPanelVisible(true);
  EXPECT_EQ(queue->delayedCount(), 1U);
}

TEST_F(UpdatedTextTest, SpeaksTheLanguageOfTheRun) {
  const struct {
    AppLanguage language;
    const char* text;
  } rows[] = {
      {AppLanguage::en, "Updated 2 minutes ago"},
      {AppLanguage::de, "Aktualisiert vor 2 Minuten"},
      {AppLanguage::fr, "Mis à jour il y a 2 minutes"},
      {AppLanguage::it, "Aggiornato 2 minuti fa"},
      {AppLanguage::es, "Actualizado hace 2 minutos"},
  };
  scan();
  pass(120s);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    const LanguageScope scope(row.language);
    updated->setPanelVisible(true);
    EXPECT_EQ(text(), row.text);
  }
}

TEST_F(UpdatedTextTest, LeavesNothingBehind) {
  updated->setPanelVisible(true);
  scan();
  updated.reset();
  EXPECT_EQ(queue->delayedCount(), 0U);
}

} // namespace
} // namespace tamberline
