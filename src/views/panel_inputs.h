#pragma once

#include "answers/find_answers.h"
#include "scanner/port_scanner.h"
#include "views/panel.h"

namespace tamberline {

/// The part of the scanner's current state that the panel's list shows.
PanelInputs panelInputs(const PortScanner& scanner);

/// The part of it from which answers are found. Refers to the scanner.
AnswerInputs answerInputs(const PortScanner& scanner);

} // namespace tamberline
