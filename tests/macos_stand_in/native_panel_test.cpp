#include "macos_stand_in/fake_app_kit.h"
#include "platform/macos/native_panel.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

using Calls = std::vector<std::string>;

class MacPanel : public testing::Test {
protected:
  void SetUp() override { FakeAppKit::reset(); }

  FakeAppKit& kit = FakeAppKit::get();
};

TEST_F(MacPanel, TakesKeyboardFocusFromAnApplicationThatStaysActive) {
  prepareNativePanel(kit.viewInPanel());
  EXPECT_EQ(kit.calls,
            (Calls{"style 90", // the bit of a utility window, which Qt sets, stays
                   "stay when inactive", "level 25"}));
}

TEST_F(MacPanel, IsOnlyShownAfterItsApplicationIsUnhidden) {
  kit.isHidden = true;
  prepareNativePanel(kit.viewInPanel());
  EXPECT_EQ(kit.calls,
            (Calls{"unhide without activation", "style 90", "stay when inactive", "level 25"}));
}

TEST_F(MacPanel, ComesToTheFrontOfAllApplications) {
  orderNativePanelFront(kit.viewInPanel());
  EXPECT_EQ(kit.calls, Calls{"order front"});
}

TEST_F(MacPanel, IsNoOtherWindow) {
  kit.isHidden = true;
  prepareNativePanel(kit.viewInWindow());
  orderNativePanelFront(kit.viewInWindow());
  EXPECT_EQ(kit.calls, Calls{});
}

} // namespace
} // namespace tamberline
