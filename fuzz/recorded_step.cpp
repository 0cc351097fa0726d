// The names of the folders in a recording: they tell what is a step, its number and its time.
#include "base/text.h"
#include "fuzz_target.h"
#include "platform/saved/recording.h"

namespace tamberline {

void tryInput(std::string_view input) {
  const auto time = timeOfStep(std::string(input));
  if (!time) {
    return;
  }
  require(time->time_since_epoch().count() >= 0, "nothing was recorded before the epoch");
  require(nameOfStep(7, *time) == "step-000007-" + std::string(split(input, '-')[2]),
          "a time is written as it is read");
}

} // namespace tamberline
