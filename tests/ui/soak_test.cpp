#include "platform/process_resources.h"
#include "support/build_kind.h"
#include "ui/machines.h"
#include "ui/panel_fixture.h"

#include <QMouseEvent>
#include <QQmlEngine>
#include <QtGlobal>

#include <cstdint>
#include <iostream>
#include <malloc.h>
#include <random>

namespace tamberline {
namespace {

/// The resources that a panel must not accumulate when it runs for days.
struct Resources {
  std::size_t heapBytes = 0;
  std::uint64_t residentBytes = 0;
  std::size_t descriptorCount = 0;
};

Resources resourcesNow() {
  malloc_trim(0);
  return {.heapBytes = mallinfo2().uordblks,
          .residentBytes = residentBytes(),
          .descriptorCount = openDescriptors().size()};
}

/// A machine that looks different in every scan, in an open panel in use.
class Soak : public PanelFixture {
protected:
  static constexpr std::size_t roundCount = 5;
  static constexpr std::size_t warmUpRounds = 2;

  /// A few hundred in the tests; scripts/soak asks for more.
  static std::size_t rescanCount() {
    bool isGiven = false;
    const int count = qEnvironmentVariableIntValue("TAMBERLINE_SOAK_RESCANS", &isGiven);
    return isGiven ? static_cast<std::size_t>(count) : 400;
  }

  bool inOneOf(std::uint64_t count) { return generator() % count == 0; }

  void changeMachine() {
    std::vector<ReportedDevice> devices;
    for (int number = 0; number < 20; ++number) {
      if (inOneOf(2)) {
        const std::string name = "Device " + std::to_string(number);
        devices.push_back({name, R"("serial_num": ")" + name + R"(", "bus_power_used": ")" +
                                     std::to_string(generator() % 900) +
                                     R"(", "Media": [{"volumes": [{"_name": "Data",
                                     "mount_point": "/Volumes/)" +
                                     name + R"("}]}])"});
      }
    }
    answerWithDevices(*machine, devices);
    if (inOneOf(20)) {
      machine->answerOnce(Question::usb, "half a rep");
    }
  }

  void useThePanel() {
    if (inOneOf(10)) {
      collapseAll();
      expandAll();
    }
    if (inOneOf(20)) {
      typeText("dev");
      typeKey(Qt::Key_Escape);
    }
    if (inOneOf(5)) {
      moveMouse({20.0 + static_cast<double>(generator() % 350),
                 20.0 + static_cast<double>(generator() % 300)});
    }
  }

  /// While the mouse rests, Qt records the items below it again in each frame, until the mouse
  /// moves.
  void moveMouse(QPointF position) {
    QMouseEvent move(QEvent::MouseMove, position, position, Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(&window(), &move);
    settle();
  }

  std::size_t scanCount() const { return machine->askCount(Question::power); }

  /// Runs until there were this many scans, and then for a while without any.
  void runRound(std::size_t untilScanCount) {
    while (scanCount() < untilScanCount) {
      changeMachine();
      events->changeRegistry();
      advance(std::chrono::milliseconds(400 + 150)); // one scan, and another one 2 s later
      useThePanel();
      machine->forgetQuestions();
    }
    answerWithDisk(*machine);
    rescan();
    advance(std::chrono::seconds(10));
    machine->forgetQuestions();
    moveMouse({20, 20});
    qmlEngine(listView())->collectGarbage(); // otherwise objects that wait for it would count
    settle();
  }

  std::mt19937_64 generator{20'260'101};
};

TEST_F(Soak, LeavesThePanelAsItWas) {
  openPanel();
  expandAll();
  Resources afterWarmUp;
  for (std::size_t round = 1; round <= roundCount; ++round) {
    runRound(rescanCount() * round / roundCount);
    const Resources present = resourcesNow();
    std::cout << scanCount() << " scans: heap " << present.heapBytes / 1'000 << " kB, resident "
              << present.residentBytes / 1'000 << " kB, " << present.descriptorCount
              << " descriptors\n";
    if (round == warmUpRounds) {
      afterWarmUp = present;
    }
  }
  const Resources atTheEnd = resourcesNow();
  EXPECT_EQ(atTheEnd.descriptorCount, afterWarmUp.descriptorCount);
  EXPECT_EQ(warnings.text(), "");
  EXPECT_EQ(rows().rowCount(), 2);
  if (isSanitized) {
    GTEST_SKIP()
        << "the sanitizer's allocator keeps what was freed and does not tell how much is in use";
  }
  EXPECT_LT(atTheEnd.heapBytes, afterWarmUp.heapBytes + 100'000);
  EXPECT_LT(atTheEnd.residentBytes, afterWarmUp.residentBytes + 8'000'000);
}

} // namespace
} // namespace tamberline
