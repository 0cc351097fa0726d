#include "inspect/document_parts.h"
#include "support/language_scope.h"
#include "ui/drawn_items.h"
#include "ui/panel_fixture.h"
#include "ui/samples.h"
#include "ui/visible_items.h"
#include "views/panel_inputs.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <set>

namespace tamberline {
namespace {

using Document = nlohmann::ordered_json;

/// Members that are not text for users: they choose a colour, a symbol, a component or an action.
bool isRead(const std::string& member, const Document& value) {
  static const std::set<std::string> unread = {"card", "color", "icon",       "id",
                                               "kind", "state", "mountPoint", "speedColor"};
  const bool isKindOfRow = member == "row" && value.is_string();
  return !unread.contains(member) && !isKindOfRow;
}

/// Excludes members that are only shown on request: popovers and tooltips.
bool isDrawn(const std::string& member, const Document& value) {
  return isRead(member, value) && member != "speedNote" && member != "link" &&
         !member.ends_with("ooltip");
}

template <typename IsWanted>
void collect(const Document& document, IsWanted isWanted, std::set<std::string>& texts) {
  if (document.is_string() && !document.get<std::string>().empty()) {
    texts.insert(document);
  }
  for (const auto& [member, value] : document.items()) {
    if (document.is_array() || (document.is_object() && isWanted(member, value))) {
      collect(value, isWanted, texts);
    }
  }
}

/// A separator has an item of its own.
QString withoutSeparator(const std::string& text) {
  const QString whole = QString::fromStdString(text);
  return whole.startsWith("· ") ? whole.sliced(2) : whole;
}

void expectAll(const std::set<std::string>& texts, const std::set<QString>& found) {
  EXPECT_GE(texts.size(), 5U);
  for (const std::string& text : texts) {
    EXPECT_TRUE(std::any_of(found.begin(), found.end(), [&](const QString& one) {
      return one.contains(withoutSeparator(text));
    })) << text;
  }
}

class DescribedTexts : public PanelFixture, public testing::WithParamInterface<SampleCase> {
protected:
  DescribedTexts() : language(GetParam().language) {}

  /// The selected texts of the panel's description, wherever the panel shows them.
  template <typename IsWanted>
  std::set<std::string> describedTexts(IsWanted isWanted) const {
    std::set<std::string> texts;
    collect(describe(describePanel(panelInputs(*scanner))), isWanted, texts);
    return texts;
  }

  void meet() {
    for (const AccessibleObject& object : objects()) {
      heard.insert(object.name());
      heard.insert(object.description());
    }
    for (const QQuickItem* item : visibleItems(window())) {
      const QRectF place = placeInWindow(*item) & QRectF(0, 0, window().width(), window().height());
      if (item->inherits("QQuickText") && drawnOpacity(*item) == 1 && place.width() > 2 &&
          place.height() > 5) {
        seen.insert(item->property("text").toString());
      }
    }
  }

  /// Visits everything, including the rows to which the list must be scrolled.
  void meetEverything() {
    const double end = listView()->property("contentHeight").toDouble();
    for (double top = 0; top < end; top += 300) {
      listView()->setProperty("contentY", listView()->property("originY").toDouble() + top);
      settle();
      meet();
    }
  }

  std::set<QString> heard; // names and descriptions
  std::set<QString> seen;
  const LanguageScope language;
};

TEST_P(DescribedTexts, AreAllAccessibleAndDrawn) {
  useSample(GetParam().sample);
  openPanel({.isBoundByScreen = false});
  expandAll();
  meetEverything();
  expectAll(describedTexts(isRead), heard);
  expectAll(describedTexts(isDrawn), seen);
}

INSTANTIATE_TEST_SUITE_P(Samples, DescribedTexts, testing::ValuesIn(allSampleCases()),
                         nameOfSampleCase);

} // namespace
} // namespace tamberline
