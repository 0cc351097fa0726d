#include "inspect/panel_document.h"
#include "support/language_scope.h"
#include "ui/panel_fixture.h"
#include "ui/samples.h"
#include "views/panel_inputs.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <set>

namespace tamberline {
namespace {

using Document = nlohmann::ordered_json;

/// Members that nobody reads: they choose a colour, a symbol, a component or an action.
bool isRead(const std::string& member, const Document& value) {
  static const std::set<std::string> unread = {"card", "color", "icon",       "id",
                                               "kind", "state", "mountPoint", "speedColor"};
  const bool isKindOfRow = member == "row" && value.is_string();
  return !unread.contains(member) && !isKindOfRow;
}

void collect(const Document& document, std::set<std::string>& texts) {
  if (document.is_string() && !document.get<std::string>().empty()) {
    texts.insert(document);
  }
  for (const auto& [member, value] : document.items()) {
    if (document.is_array() || (document.is_object() && isRead(member, value))) {
      collect(value, texts);
    }
  }
}

class DescribedTexts : public PanelFixture, public testing::WithParamInterface<SampleCase> {
protected:
  DescribedTexts() : language(GetParam().language) {}

  /// Everything that the panel describes, wherever it shows it.
  std::set<std::string> describedTexts() const {
    std::set<std::string> texts;
    collect(describe(describePanel(panelInputs(*scanner))), texts);
    return texts;
  }

  void hear(std::set<QString>& heard) {
    for (const AccessibleObject& object : objects()) {
      heard.insert(object.name());
      heard.insert(object.description());
    }
  }

  /// Names and descriptions of all objects, those included to which the list must be scrolled.
  std::set<QString> everythingHeard() {
    std::set<QString> heard;
    const double end = listView()->property("contentHeight").toDouble();
    for (double top = 0; top < end; top += 300) {
      listView()->setProperty("contentY", listView()->property("originY").toDouble() + top);
      settle();
      hear(heard);
    }
    return heard;
  }

  const LanguageScope language;
};

TEST_P(DescribedTexts, AllReachWhoListens) {
  useSample(GetParam().sample);
  openPanel({.isBoundByScreen = false});
  expandAll();
  const std::set<QString> heard = everythingHeard();
  const std::set<std::string> described = describedTexts();
  EXPECT_GT(described.size(), 5U);
  for (const std::string& text : described) {
    EXPECT_TRUE(std::any_of(heard.begin(), heard.end(), [&](const QString& one) {
      return one.contains(QString::fromStdString(text));
    })) << text;
  }
}

INSTANTIATE_TEST_SUITE_P(Samples, DescribedTexts, testing::ValuesIn(allSampleCases()),
                         nameOfSampleCase);

} // namespace
} // namespace tamberline
