#include "panel/panel_fixture.h"
#include "panel/search_controller.h"
#include "support/counted_signal.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace tamberline {
namespace {

using namespace std::chrono_literals;

class SearchControllerTest : public PanelFixture {
protected:
  void SetUp() override {
    PanelFixture::SetUp();
    search = std::make_unique<SearchController>(scanner, queue, [this](const std::string& id) {
      scrolledTo += "[" + id + "]";
      return panel->rows()->indexOf(id);
    });
    scanADesk();
  }

  std::string found(const QString& text) {
    search->setSearchText(text);
    std::string names;
    for (int row = 0; row < search->suggestions()->rowCount(); ++row) {
      names += "[" + search->suggestions()->entryAt(row)->name + "]";
    }
    return names;
  }

  void jumpTo(const QString& text) {
    search->setSearchText(text);
    search->jumpToFirst();
  }

  std::optional<std::string> highlighted() const { return scanner->highlightedNodeID.get(); }

  std::unique_ptr<SearchController> search;
  std::string scrolledTo; // the rows that were looked up for scrolling to them
};

TEST_F(SearchControllerTest, FindsDevicesByNameOrMakerIgnoringCase) {
  const struct {
    const char* text;
    const char* found;
  } rows[] = {
      {"keys", "[Keys]"},
      {"QUARRY", "[Quarry SSD]"},
      {"letTERA", "[Keys]"},
      {"usb hub", "[USB Hub]"},
      {"h", "[Harbour Dock][USB Hub]"},
      {"hub_device", ""},
      {"nobody", ""},
      {"", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(found(row.text), row.found);
    EXPECT_EQ(search->hasSuggestions(), *row.found != '\0');
    EXPECT_EQ(search->isSearching(), *row.text != '\0');
  }
}

TEST_F(SearchControllerTest, ShowsNamesWithoutTheBlanksAroundThem) {
  machine->answer(Question::usb, R"({"SPUSBDataType": [{"_name": "USB31Bus", "_items": [
    {"_name": "USB3.1 Hub             ", "manufacturer": " Harbour ", "_items": [
      {"_name": " Keys "}]}]}]})");
  scan();

  EXPECT_EQ(found("hub"), "[USB3.1 Hub]");
  EXPECT_EQ(search->suggestions()->entryAt(0)->detail, "Harbour");
  EXPECT_EQ(found("keys"), "[Keys]");
  EXPECT_EQ(search->suggestions()->entryAt(0)->breadcrumb,
            "Thunderbolt Port 1 › Harbour Dock › USB 3.1 Bus › USB3.1 Hub");
}

TEST_F(SearchControllerTest, TellsWhenTheTextChanges) {
  const CountedSignal texts(search.get(), &SearchController::searchTextChanged);
  const CountedSignal suggestions(search.get(), &SearchController::suggestionsChanged);
  search->setSearchText("keys");
  search->setSearchText("keys");
  EXPECT_EQ(texts.count(), 1);
  EXPECT_EQ(suggestions.count(), 1);
  search->clear();
  EXPECT_EQ(search->searchText(), "");
  EXPECT_EQ(texts.count(), 2);
}

TEST_F(SearchControllerTest, LooksAgainWhenTheTreeChanges) {
  EXPECT_EQ(found("keys"), "[Keys]");
  answerWithTwoBarePorts();
  scan();
  EXPECT_EQ(search->suggestions()->rowCount(), 0);
  EXPECT_FALSE(search->hasSuggestions());
  scanADesk();
  EXPECT_EQ(search->suggestions()->rowCount(), 1);
}

TEST_F(SearchControllerTest, DoesNothingOnReturnWhenNothingWasFound) {
  jumpTo("nobody");
  EXPECT_EQ(search->searchText(), "nobody");
  search->jumpToSuggestion(-1);
  search->jumpToSuggestion(5);
  EXPECT_EQ(queue->delayedCount(), 0U);
  EXPECT_TRUE(scanner->expandedOverrideIDs.get().empty());
}

TEST_F(SearchControllerTest, OpensTheWayAtOnceThenHighlightsThenScrolls) {
  const std::string id = idOf("Keys");
  jumpTo("keys");
  EXPECT_EQ(search->searchText(), "");
  EXPECT_FALSE(search->hasSuggestions());
  EXPECT_NE(indexOf("Keys"), -1);
  EXPECT_TRUE(scanner->expandedOverrideIDs.get().contains(id));
  EXPECT_EQ(indexOf("Quarry SSD"), -1) << "nothing but the way";
  queue->advance(29ms);
  EXPECT_EQ(highlighted(), std::nullopt);
  queue->advance(1ms);
  EXPECT_EQ(highlighted(), id);
  EXPECT_EQ(pulseOf("Keys"), "Throbbing");
  queue->advance(149ms);
  EXPECT_EQ(scrolledTo, "");
  queue->advance(1ms);
  EXPECT_EQ(scrolledTo, "[" + id + "]");
  queue->advance(10s);
  EXPECT_EQ(highlighted(), std::nullopt);
  EXPECT_EQ(scrolledTo, "[" + id + "]");
}

TEST_F(SearchControllerTest, KeepsOpenWhatWasOpen) {
  scanner->expandedOverrideIDs.set({"/port2"});
  jumpTo("keys");
  EXPECT_TRUE(scanner->expandedOverrideIDs.get().contains("/port2"));
}

TEST_F(SearchControllerTest, JumpsToTheSuggestionThatWasChosen) {
  search->setSearchText("h");
  search->jumpToSuggestion(1);
  queue->advance(30ms);
  EXPECT_EQ(highlighted(), idOf("USB Hub"));
}

TEST_F(SearchControllerTest, TakesTheHighlightBackBeforeItGivesItAgain) {
  jumpTo("keys");
  queue->advance(2s);
  std::vector<std::optional<std::string>> written;
  const Observation observation =
      scanner->highlightedNodeID.observe([&] { written.push_back(highlighted()); });
  jumpTo("keys");
  queue->advance(30ms);
  EXPECT_EQ(written, (std::vector<std::optional<std::string>>{std::nullopt, idOf("Keys")}));
  queue->advance(4999ms);
  EXPECT_EQ(pulseOf("Keys"), "Throbbing") << "from the beginning";
}

TEST_F(SearchControllerTest, LetsANewJumpTakeThePlaceOfOneThatIsUnderWay) {
  jumpTo("keys");
  queue->advance(20ms);
  jumpTo("quarry");
  queue->advance(29ms);
  EXPECT_EQ(highlighted(), std::nullopt);
  queue->advance(1ms);
  EXPECT_EQ(highlighted(), idOf("Quarry SSD"));
  queue->advance(100ms);
  jumpTo("keys");
  queue->advance(1s);
  EXPECT_EQ(scrolledTo, "[" + idOf("Keys") + "]");
  EXPECT_EQ(highlighted(), idOf("Keys"));
}

TEST_F(SearchControllerTest, JumpsToADeviceThatIsUnpluggedMeanwhile) {
  jumpTo("keys");
  answerWithTwoBarePorts();
  scan();
  queue->advance(1s);
  EXPECT_NE(scrolledTo, "");
  EXPECT_EQ(indexOf("Keys"), -1);
}

TEST_F(SearchControllerTest, GoesOnWithWhatIsTypedOnThePanel) {
  QQuickItem field;
  search->setField(&field);
  EXPECT_EQ(search->field(), &field);
  search->type("k");
  search->type("e");
  EXPECT_EQ(search->searchText(), "ke");
  EXPECT_EQ(search->suggestions()->rowCount(), 1);
  EXPECT_TRUE(field.hasFocus());
}

TEST_F(SearchControllerTest, TakesWhatIsTypedWithoutAField) {
  search->type("keys");
  EXPECT_EQ(search->searchText(), "keys");
}

TEST_F(SearchControllerTest, LeavesNothingBehindInTheMiddleOfAJump) {
  jumpTo("keys");
  search.reset();
  EXPECT_EQ(queue->delayedCount(), 0U);
}

} // namespace
} // namespace tamberline
