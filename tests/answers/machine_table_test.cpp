#include "answers/machine_table.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

namespace tamberline {
namespace {

std::vector<MachineCase> table() {
  return readMachineTable(MACHINE_TABLE);
}

TEST(MachineTable, EachMachineGetsExactlyItsAnswers) {
  for (const MachineCase& machineCase : table()) {
    if (machineCase.machine.empty()) {
      continue; // a folder or a recording, which the whole program reads
    }
    SCOPED_TRACE(machineCase.title);
    const DescribedMachine machine = describedMachine(machineCase.machine);
    EXPECT_EQ(answerLines(findAnswers(machine.inputs()), nodeNames(machine.tree)),
              machineCase.expected);
  }
}

TEST(MachineTable, HasManyMachinesAndAnArgumentForEach) {
  std::set<std::string> titles;
  int describedCount = 0;
  for (const MachineCase& machineCase : table()) {
    EXPECT_FALSE(machineCase.argument.empty()) << machineCase.title;
    EXPECT_FALSE(machineCase.expected.empty()) << machineCase.title;
    EXPECT_TRUE(titles.insert(machineCase.title).second) << machineCase.title;
    describedCount += machineCase.machine.empty() ? 0 : 1;
  }
  EXPECT_GE(describedCount, 60);
}

TEST(MachineTable, RejectsLinesThatItDoesNotKnow) {
  EXPECT_THROW(describedMachine({"bus 10", "  usb \"SSD\" 5 fast"}), std::runtime_error);
  EXPECT_THROW(describedMachine({"bus 10", "  disk \"SSD\" 5"}), std::runtime_error);
  EXPECT_THROW(describedMachine({"port"}), std::runtime_error);
}

TEST(MachineTable, AnUnchangedScanGetsEqualAnswers) {
  for (const MachineCase& machineCase : table()) {
    const DescribedMachine first = describedMachine(machineCase.machine);
    const DescribedMachine second = describedMachine(machineCase.machine);
    EXPECT_EQ(findAnswers(first.inputs()), findAnswers(second.inputs())) << machineCase.title;
  }
}

} // namespace
} // namespace tamberline
