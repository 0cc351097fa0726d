// await_window COMMAND [ARGUMENT...]: starts the command and waits until one of its windows shows
// more than one colour. Prints the microseconds since before the fork, and the process identifier
// of the command, which keeps running.

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <signal.h>
#include <span>
#include <thread>
#include <unistd.h>
#include <vector>
#include <xcb/xcb.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds pause{1};
constexpr std::chrono::seconds patience{20};

struct Freeing {
  void operator()(void* memory) const { std::free(memory); }
};
template <typename Value>
using Reply = std::unique_ptr<Value, Freeing>;

struct Disconnecting {
  void operator()(xcb_connection_t* display) const { xcb_disconnect(display); }
};
using Display = std::unique_ptr<xcb_connection_t, Disconnecting>;

xcb_window_t rootOf(xcb_connection_t* display) {
  return xcb_setup_roots_iterator(xcb_get_setup(display)).data->root;
}

/// From now on the server reports every window that becomes visible.
void followNewWindows(xcb_connection_t* display) {
  const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
  xcb_change_window_attributes(display, rootOf(display), XCB_CW_EVENT_MASK, &events);
  const Reply<xcb_get_input_focus_reply_t> roundTrip(
      xcb_get_input_focus_reply(display, xcb_get_input_focus(display), nullptr));
}

void collectNewWindows(xcb_connection_t* display, std::vector<xcb_window_t>& windows) {
  while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(display)}) {
    if ((event->response_type & 0x7f) == XCB_MAP_NOTIFY) {
      windows.push_back(reinterpret_cast<const xcb_map_notify_event_t*>(event.get())->window);
    }
  }
}

/// Toolkits also map tiny windows for internal purposes.
bool isLarge(const xcb_get_geometry_reply_t& geometry) {
  constexpr int least = 64;
  return geometry.width >= least && geometry.height >= least;
}

bool showsSomething(xcb_connection_t* display, xcb_window_t window) {
  const Reply<xcb_get_geometry_reply_t> geometry(
      xcb_get_geometry_reply(display, xcb_get_geometry(display, window), nullptr));
  if (!geometry || !isLarge(*geometry)) {
    return false;
  }
  const auto request = xcb_get_image(display, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0,
                                     geometry->width, geometry->height, ~0U);
  const Reply<xcb_get_image_reply_t> image(xcb_get_image_reply(display, request, nullptr));
  if (!image) {
    return false; // the window is invisible, or extends beyond the edge of the screen
  }
  const std::span bytes(xcb_get_image_data(image.get()),
                        static_cast<std::size_t>(xcb_get_image_data_length(image.get())));
  constexpr std::size_t pixel = 4;
  return bytes.size() > pixel &&
         !std::equal(bytes.begin() + pixel, bytes.end(), bytes.begin()); // each pixel and the next
}

bool waitForContent(xcb_connection_t* display, Clock::time_point deadline) {
  std::vector<xcb_window_t> windows;
  while (Clock::now() < deadline) {
    collectNewWindows(display, windows);
    if (std::any_of(windows.begin(), windows.end(),
                    [&](xcb_window_t window) { return showsSomething(display, window); })) {
      return true;
    }
    std::this_thread::sleep_for(pause);
  }
  return false;
}

pid_t start(char** command) {
  const pid_t process = fork();
  if (process == 0) {
    dup2(STDERR_FILENO, STDOUT_FILENO); // ours ends with the figures, whatever the command does
    execvp(command[0], command);
    std::perror(command[0]);
    _exit(127);
  }
  return process;
}

int complain(const char* message) {
  std::fprintf(stderr, "await_window: %s\n", message);
  return EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fputs("usage: await_window COMMAND [ARGUMENT...]\n", stderr);
    return 2;
  }
  const Display display(xcb_connect(nullptr, nullptr));
  if (xcb_connection_has_error(display.get()) != 0) {
    return complain("there is no display");
  }
  followNewWindows(display.get());
  const Clock::time_point begin = Clock::now();
  const pid_t process = start(argv + 1);
  if (process < 0) {
    return complain("cannot start the command");
  }
  const bool isSeen = waitForContent(display.get(), begin + patience);
  const Clock::time_point end = Clock::now();
  if (!isSeen) {
    kill(process, SIGKILL);
    return complain("the command showed nothing");
  }
  const std::chrono::microseconds taken =
      std::chrono::duration_cast<std::chrono::microseconds>(end - begin);
  std::printf("%lld %d\n", static_cast<long long>(taken.count()), process);
  return EXIT_SUCCESS;
}
