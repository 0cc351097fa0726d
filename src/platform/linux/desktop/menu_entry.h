#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace tamberline {

struct MenuEntry {
  QString text;
  std::function<void()> chosen;
};
using MenuEntries = std::vector<MenuEntry>;

} // namespace tamberline
