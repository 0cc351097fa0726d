// The table of machines and the answers that each must get (machines.txt).
#pragma once

#include "answers/answer.h"
#include "answers/find_answers.h"

#include <map>
#include <string>
#include <vector>

namespace tamberline {

/// An entry of the table.
struct MachineCase {
  std::string title = {};
  /// Why these answers are right, in one line.
  std::string argument = {};
  /// The machine as indented lines; empty if the title names a folder or a recording.
  std::vector<std::string> machine = {};
  /// As `answerLines` writes them, or "none".
  std::vector<std::string> expected = {};
};

/// Throws std::runtime_error with the number of the line if the table is malformed.
std::vector<MachineCase> readMachineTable(const std::string& fileName);

/// A machine of the table with everything that answers are found from.
struct DescribedMachine {
  std::vector<TreeNode> tree;
  std::vector<HPMPort> hpmPorts;
  ChargingState charging;
  std::map<std::string, BenchmarkPhase> benchmarks;

  AnswerInputs inputs() const;
};

/// Throws std::runtime_error if a line is malformed.
DescribedMachine describedMachine(const std::vector<std::string>& lines);

/// Names of nodes by identifier: that of the device, "port 1", "bus", or "charging only".
using NodeNames = std::map<std::string, std::string>;
NodeNames nodeNames(const std::vector<TreeNode>& tree);

/// What an answer says, such as "attention slowHub Quarry SSD: node of Hub". `kind`, `weight` and
/// `part` are the names in the document.
struct AnswerLine {
  std::string weight = {};
  std::string kind = {};
  std::string node = {};
  std::string part = {};
  std::string limit = {}; // empty if none
  std::vector<std::string> others = {};

  std::string text() const;
};

/// "none" without answers.
std::vector<std::string> answerLines(const std::vector<Answer>& answers, const NodeNames& names);

} // namespace tamberline
