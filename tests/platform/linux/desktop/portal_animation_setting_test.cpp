#include "platform/linux/desktop/portal_animation_setting.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

PortalSettings gnome(const QVariant& value) {
  return {{"org.gnome.desktop.interface", {{"enable-animations", value}}}};
}

PortalSettings plasma(const QVariant& value) {
  return {{"org.kde.kdeglobals.KDE", {{"AnimationDurationFactor", value}}}};
}

TEST(PortalAnimationSetting, IsForbiddenByEitherDesktop) {
  const struct {
    const char* description;
    PortalSettings settings;
    bool isAllowed;
  } rows[] = {
      {"nothing known", {}, true},
      {"GNOME, on", gnome(true), true},
      {"GNOME, off", gnome(false), false},
      {"GNOME, of another type", gnome("false"), true},
      {"Plasma, normal", plasma("1.0"), true},
      {"Plasma, slow", plasma("2"), true},
      {"Plasma, off", plasma("0"), false},
      {"Plasma, off as a number", plasma(0.0), false},
      {"Plasma, nonsense", plasma("fast"), true},
      {"other groups", {{"org.freedesktop.appearance", {{"enable-animations", false}}}}, true},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(allowsAnimation(row.settings), row.isAllowed) << row.description;
  }
}

} // namespace
} // namespace tamberline
