#pragma once

#include "answers/answer.h"
#include "scanner/port_scanner.h"

#include <vector>

namespace tamberline {

/// The answers to the scanner's current state, including the results of speed tests.
std::vector<Answer> answersOf(const PortScanner& scanner);

} // namespace tamberline
