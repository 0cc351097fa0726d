#include "ui/layout_check.h"
#include "ui/machines.h"
#include "ui/panel_fixture.h"
#include "ui/visible_items.h"

namespace tamberline {
namespace {

constexpr const char* markup = R"(<img src=\"file:///etc/passwd\"><b>x</b>)";

/// Malicious names.
class UntrustedNames : public PanelFixture {
protected:
  void openWithDevice(const std::string& name) {
    answerWithDevices(
        *machine, {{name, R"("device_speed": "high_speed", "manufacturer": ")" + name +
                              R"(", "bus_power_used": "100", "Media": [{"volumes": [{"_name": ")" +
                              name + R"(", "mount_point": "/Volumes/x"}]}])"}});
    openPanel();
    expandAll();
  }

  void expectNoFaults() {
    for (const std::string& fault : layoutFaults(window())) {
      ADD_FAILURE() << fault;
    }
  }

  /// Checks every text item of the window, visible or not, and returns how many there are.
  int expectPlainText(const QQuickItem* item) {
    int count = 0;
    if (item->inherits("QQuickText")) {
      EXPECT_EQ(item->property("textFormat").toInt(), Qt::PlainText);
      ++count;
    }
    for (const QQuickItem* child : item->childItems()) {
      count += expectPlainText(child);
    }
    return count;
  }

  QString textsAndNames() {
    QString all;
    for (const AccessibleObject& object : objects()) {
      all += object.name() + object.description();
    }
    for (const QQuickItem* item : visibleItems(window())) {
      all += item->property("text").toString();
    }
    return all;
  }
};

TEST_F(UntrustedNames, AreShownAsTheyAre) {
  openWithDevice(markup);
  const QString name = R"(<img src="file:///etc/passwd"><b>x</b>)";
  EXPECT_TRUE(isTextShown(name));
  EXPECT_GE(indexOfRowNamed(name), 0);
  expectNoFaults();
}

TEST_F(UntrustedNames, AreShownAsTheyAreInSuggestions) {
  openWithDevice(markup);
  typeText("passwd");
  EXPECT_TRUE(isTextShown(R"(<img src="file:///etc/passwd"><b>x</b>)"));
  expectNoFaults();
}

TEST_F(UntrustedNames, ArePlainTextEverywhere) {
  useSample("desk");
  openPanel({.isBoundByScreen = false});
  expandAll();
  typeText("e");
  EXPECT_GT(expectPlainText(window().contentItem()), 100);
}

TEST_F(UntrustedNames, ShowNoDisturbingCharacters) {
  openWithDevice("a\\u0007b\\u001b[31mc\\nd\\u202egnp.\\u2066e\\u200bf\\u2028g");
  const QString all = textsAndNames();
  ASSERT_TRUE(all.contains(QChar(0xFFFD)));
  for (const QChar character : all) {
    EXPECT_FALSE(character.category() == QChar::Other_Control);
    EXPECT_FALSE(character.unicode() >= 0x2028 && character.unicode() <= 0x202E);
    EXPECT_FALSE(character.unicode() >= 0x2066 && character.unicode() <= 0x2069);
    EXPECT_NE(character.unicode(), 0x200B);
  }
  expectNoFaults();
}

TEST_F(UntrustedNames, NeedNoMoreRoomWhenTheyAreAMegabyteLong) {
  openWithDevice("Keys");
  const int height = window().height();
  closePanel();
  scanner->expandedOverrideIDs.set({});
  openWithDevice(std::string(1 << 20, 'W'));
  EXPECT_EQ(window().height(), height);
  EXPECT_LT(textsAndNames().size(), 20'000);
  expectNoFaults();
  typeText("www");
  expectNoFaults();
}

TEST_F(UntrustedNames, MayBeEmpty) {
  openWithDevice("");
  EXPECT_EQ(rows().rowCount(), 2);
  expectNoFaults();
}

} // namespace
} // namespace tamberline
