#include "platform/linux/sysfs/read/usb_texts.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <string>

namespace tamberline::sysfs {
namespace {

using namespace std::chrono_literals;

UsbStringCache::Device device(const std::string& name, int bus, bool isHub = false) {
  return {.identity = name, .folder = name, .bus = bus, .isHub = isHub};
}

/// Devices that answer with their folder's name, except "mute" ones, which wait for `release`.
class DevicesThatAnswer : public testing::Test {
protected:
  ~DevicesThatAnswer() override {
    if (!isReleased) {
      release();
    }
  }

  UsbStringCache keeper(std::chrono::milliseconds patience) {
    return UsbStringCache(patience, [released = released, asked = asked](const auto& folder) {
      ++*asked;
      if (folder.string().starts_with("mute")) {
        released.wait();
      }
      return UsbTexts{.product = folder.string()};
    });
  }

  void release() {
    isReleased = true;
    releasing.set_value();
  }

  std::promise<void> releasing;
  std::shared_future<void> released = releasing.get_future().share();
  bool isReleased = false;
  std::shared_ptr<std::atomic<int>> asked = std::make_shared<std::atomic<int>>(0);
};

TEST_F(DevicesThatAnswer, AreAskedOnce) {
  UsbStringCache texts = keeper(60s);
  EXPECT_EQ(texts.textsOf({device("mouse", 1), device("key", 2)}).at("mouse").product, "mouse");
  EXPECT_EQ(texts.textsOf({device("mouse", 1), device("key", 2)}).at("key").product, "key");
  EXPECT_EQ(*asked, 2);
}

TEST_F(DevicesThatAnswer, AreForgottenWhenUnplugged) {
  UsbStringCache texts = keeper(60s);
  texts.textsOf({device("mouse", 1)});
  EXPECT_TRUE(texts.textsOf({}).empty());
  texts.textsOf({device("mouse", 1)});
  EXPECT_EQ(*asked, 2);
}

TEST_F(DevicesThatAnswer, DoNotWaitForOneThatDoesNot) {
  UsbStringCache texts = keeper(0ms);
  texts.textsOf({device("mute hub", 1, true), device("mouse", 1), device("key", 2)});
  EXPECT_TRUE(texts.waitFor("mouse", 60s)); // although the hub comes before it
  EXPECT_TRUE(texts.waitFor("key", 60s));
  const auto known = texts.textsOf({device("mute hub", 1, true), device("mouse", 1)});
  EXPECT_TRUE(known.contains("mouse"));
  EXPECT_FALSE(known.contains("mute hub"));
}

TEST_F(DevicesThatAnswer, AreKnownAfterALateAnswer) {
  UsbStringCache texts = keeper(0ms);
  texts.textsOf({device("mute hub", 1, true)});
  release();
  EXPECT_TRUE(texts.waitFor("mute hub", 60s));
  EXPECT_EQ(texts.textsOf({device("mute hub", 1, true)}).at("mute hub").product, "mute hub");
  EXPECT_EQ(*asked, 1);
}

TEST_F(DevicesThatAnswer, AreNotAwaitedTwice) {
  UsbStringCache texts = keeper(0ms);
  texts.textsOf({device("mute hub", 1, true)});
  // The second time there is nothing to wait for, however long the caller would wait.
  UsbStringCache patient = keeper(60s);
  EXPECT_TRUE(patient.textsOf({device("mouse", 1)}).contains("mouse"));
  EXPECT_TRUE(texts.textsOf({device("mute hub", 1, true)}).empty());
}

TEST_F(DevicesThatAnswer, MayOutliveTheirKeeper) {
  {
    UsbStringCache texts = keeper(0ms);
    texts.textsOf({device("mute hub", 1, true)});
  }
  release();
}

} // namespace
} // namespace tamberline::sysfs
