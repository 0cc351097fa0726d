#include "platform/linux/udisks/asked_calls.h"

#include <dlfcn.h>
#include <mutex>
#include <utility>

namespace tamberline {
namespace {

/// Records what is passed to the bus library.
class CallRecorder {
public:
  void record(const AskedCall& call) {
    const std::lock_guard lock(mutex_);
    if (call.method != "Hello") {
      calls_.push_back(call);
    }
  }

  std::vector<AskedCall> take() {
    const std::lock_guard lock(mutex_);
    return std::exchange(calls_, {});
  }

private:
  std::mutex mutex_;
  std::vector<AskedCall> calls_;
};

CallRecorder& recorder() {
  static CallRecorder recorder;
  return recorder;
}

using GetMember = const char* (*)(void* message);
using SendWithReply = unsigned (*)(void* connection, void* message, void** pendingCall, int limit);

} // namespace

std::vector<AskedCall> takeAskedCalls() {
  return recorder().take();
}

} // namespace tamberline

/// Overrides the bus library's function, which Qt calls.
extern "C" unsigned dbus_connection_send_with_reply(void* connection, void* message,
                                                    void** pendingCall, int limit) {
  using namespace tamberline;
  static const auto getMember =
      reinterpret_cast<GetMember>(dlsym(RTLD_NEXT, "dbus_message_get_member"));
  static const auto send =
      reinterpret_cast<SendWithReply>(dlsym(RTLD_NEXT, "dbus_connection_send_with_reply"));
  recorder().record({getMember(message), limit});
  return send(connection, message, pendingCall, limit);
}
