#include "inspect/document_parts.h"
#include "inspect/sample_scans.h"

#include <gtest/gtest.h>

#include <string>

namespace tamberline {
namespace {

Answer slowHub() {
  return {.kind = AnswerKind::slowHub,
          .weight = AnswerWeight::attention,
          .nodeID = "/port1/usb:SSD",
          .limitingNodeID = "/port1/usb:Hub",
          .limitingPart = LimitingPart::nodeOrConnection,
          .otherNodeIDs = {"/port1/usb:Disk"},
          .facts = {.actualGbps = 0.48, .possibleGbps = 10, .count = 2},
          .headline = "Hub slows 2 devices",
          .reason = "Because.",
          .advice = "Do."};
}

TEST(AnswerDocument, HasEveryField) {
  EXPECT_EQ(jsonText(describe(slowHub())), normalized(R"({
    "kind": "slowHub", "weight": "attention", "nodeId": "/port1/usb:SSD",
    "limitingNodeId": "/port1/usb:Hub", "limitingPart": "nodeOrConnection",
    "otherNodeIds": ["/port1/usb:Disk"],
    "facts": {"actualGbps": 0.48, "possibleGbps": 10.0, "actualWatts": null, "possibleWatts": null,
              "measuredMBps": null, "linkMBps": null, "chargePercent": null, "count": 2},
    "headline": "Hub slows 2 devices", "reason": "Because.", "advice": "Do."
  })"));
}

TEST(AnswerDocument, HasNullWithoutALimit) {
  const Document document = describe(Answer{.kind = AnswerKind::notCharging});
  EXPECT_EQ(document["limitingNodeId"], nullptr);
  EXPECT_EQ(document["limitingPart"], "none");
}

TEST(AnswerDocument, EachRowHasTheFirstAnswerThatConcernsIt) {
  Document panel = Document::parse(R"({"cards": [{"rows": [
    {"id": "/port1/usb:SSD", "children": []},
    {"id": "/port1/usb:Hub", "children": [{"id": "/port1/usb:Disk", "children": []}]}
  ]}, {"card": "charger"}]})");
  Answer second = slowHub();
  second.headline = "Second";
  addAnswersToRows({slowHub(), second}, panel);
  EXPECT_EQ(at(panel, "/cards/0/rows/0/answer/headline"), "Hub slows 2 devices");
  EXPECT_EQ(at(panel, "/cards/0/rows/1/answer"), nullptr);
  EXPECT_EQ(at(panel, "/cards/0/rows/1/children/0/answer/kind"), "slowHub");
  EXPECT_FALSE(panel["cards"][1].contains("answer"));
}

TEST(AnswerDocument, IsPartOfTheWhole) {
  const Document document = deskDocument();
  EXPECT_EQ(at(document, "/answers/0/kind"), "powerWithoutData");
  EXPECT_EQ(at(document, "/answers/0/nodeId"), "/port4/chargeonly");
}

} // namespace
} // namespace tamberline
