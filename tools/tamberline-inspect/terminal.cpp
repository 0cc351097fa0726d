#include "terminal.h"

#include "base/text.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <string_view>
#include <sys/ioctl.h>
#include <unistd.h>

namespace tamberline {
namespace {

std::string_view environmentText(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

bool wantsColors() {
  return environmentText("NO_COLOR").empty() && environmentText("TERM") != "dumb";
}

std::optional<int> columnsOfWindow() {
  winsize size{};
  const bool isKnown = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return isKnown ? std::optional<int>(size.ws_col) : std::nullopt;
}

std::optional<int> columnsOfTerminal() {
  const std::optional<std::int64_t> told = parseDecimal(environmentText("COLUMNS"));
  if (told && *told > 0) {
    constexpr std::int64_t most = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(*told, most));
  }
  return columnsOfWindow();
}

} // namespace

TextStyle styleOfStandardOutput() {
  if (isatty(STDOUT_FILENO) == 0) {
    return {};
  }
  return {wantsColors(), columnsOfTerminal()};
}

} // namespace tamberline
