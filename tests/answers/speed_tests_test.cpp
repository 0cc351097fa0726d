#include "answers/answer_text.h"
#include "answers/speed_tests.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamberline {
namespace {

struct FigureCase {
  double gbps;
  double readMBps;
  std::string kind; // empty for no answer
};

const TreeNode& driveNode() {
  static const TreeNode& node = *new TreeNode(TreeNode::USBDeviceEntry{});
  return node;
}

/// The answer to a drive whose slowest link has this speed.
std::string kindFor(const FigureCase& figure, const SpeedTests& tests, bool isTunneled = false) {
  const USBDevice drive{
      .name = "SSD", .volumes = {{"A", "/a"}, {"B", "/b"}}, .isTunneledDrive = isTunneled};
  const USBLink link{.node = &driveNode(), .device = &drive, .gbps = figure.gbps};
  AnswerList list;
  findSpeedTestAnswers(driveNode(), drive, link, tests, list);
  const std::vector<Answer> answers = list.take({&driveNode(), 1});
  return answers.empty() ? "" : std::string(nameOf(answers.at(0).kind));
}

SpeedTests reading(double megabytes) {
  return {{"/a", {BenchmarkPhase::Done{1, megabytes}}}};
}

TEST(SpeedTests, CompareFiguresWithWhatTheLinkCarries) {
  const std::vector<FigureCase> cases = {
      {0.012, 1.3, "impossibleFigure"},
      {0.012, 0.95, "linkIsTheLimit"},
      {0.48, 53.3, "impossibleFigure"},
      {0.48, 53.2, "linkIsTheLimit"},
      {0.48, 36, "linkIsTheLimit"},
      {0.48, 35.9, ""},
      {0.48, 20, ""},
      {0.48, 19.9, "driveIsTheLimit"},
      {5, 501, "impossibleFigure"},
      {5, 405, "linkIsTheLimit"},
      {5, 404, ""},
      {5, 224, "driveIsTheLimit"},
      {10, 1213, "impossibleFigure"},
      {10, 945, "linkIsTheLimit"},
      {10, 524, "driveIsTheLimit"},
      {20, 2425, "impossibleFigure"},
      {20, 1800, "linkIsTheLimit"},
      {20, 999, "driveIsTheLimit"},
      {7, 100, ""},
      {0, 100, ""},
  };
  for (const FigureCase& one : cases) {
    EXPECT_EQ(kindFor(one, reading(one.readMBps)), one.kind)
        << one.readMBps << " MB/s on " << one.gbps << " Gb/s";
  }
}

TEST(SpeedTests, OnlyTheMaxOfAThunderboltLinkIsKnown) {
  EXPECT_EQ(kindFor({40, 5001, ""}, reading(5001), /*isTunneled=*/true), "impossibleFigure");
  EXPECT_EQ(kindFor({40, 4999, ""}, reading(4999), /*isTunneled=*/true), "");
  EXPECT_EQ(kindFor({40, 10, ""}, reading(10), /*isTunneled=*/true), "");
}

TEST(SpeedTests, TheBestFigureOfAllVolumesCounts) {
  const SpeedTests tests = {{"/a", {BenchmarkPhase::Done{10, 12}}},
                            {"/b", {BenchmarkPhase::Done{38, 15}}}};
  EXPECT_EQ(kindFor({0.48, 0, ""}, tests), "linkIsTheLimit");
}

TEST(SpeedTests, UnfinishedAndFailedTestsShowNothing) {
  EXPECT_EQ(kindFor({0.48, 0, ""}, {{"/a", {BenchmarkPhase::Running{"Reading…"}}}}), "");
  EXPECT_EQ(kindFor({0.48, 0, ""}, {{"/a", {BenchmarkPhase::Failed{"No room"}}}}), "");
  EXPECT_EQ(kindFor({0.48, 0, ""}, {{"/other", {BenchmarkPhase::Done{50, 50}}}}), "");
  EXPECT_EQ(kindFor({0.48, 0, ""}, {{"/a", {BenchmarkPhase::Done{0, 0}}}}), "");
}

} // namespace
} // namespace tamberline
