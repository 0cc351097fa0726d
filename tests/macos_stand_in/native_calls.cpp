// Replaces the Objective-C sources of src/platform/macos/ for tests of the code that calls them.
#include "macos_stand_in/fake_mac.h"
#include "platform/macos/native_application.h"
#include "platform/macos/native_panel.h"

#include <utility>

namespace tamberline {
namespace {

void note(const char* call) {
  FakeMac::get().calls.emplace_back(call);
}

} // namespace

void prepareNativePanel(NativeView /*view*/) {
  note("prepare panel");
}

void orderNativePanelFront(NativeView /*view*/) {
  note("order panel front");
}

void hideActiveApplication() {
  note("hide application");
}

OutsideClicks::OutsideClicks(std::function<void()> clicked)
    : clicked_(std::move(clicked)), monitor_(&FakeMac::get()) {
  note("watch clicks");
  FakeMac::get().clickElsewhere = [this] {
    const auto handler = clicked_;
    handler();
  };
}

OutsideClicks::~OutsideClicks() {
  note("ignore clicks");
  static_cast<FakeMac*>(monitor_)->clickElsewhere = nullptr;
}

ReopenRequests::ReopenRequests(std::function<void()> requested)
    : requested_(std::move(requested)), receiver_(&FakeMac::get()) {
  note("watch reopening");
  FakeMac::get().reopen = [this] { requested_(); };
}

ReopenRequests::~ReopenRequests() {
  note("ignore reopening");
  static_cast<FakeMac*>(receiver_)->reopen = nullptr;
}

} // namespace tamberline
