// The subcommands. Each returns the exit status; it needs an application object, and the language
// has been chosen.
#pragma once

#include "inspect_options.h"

namespace tamberline {

inline constexpr int exitFailure = 1;
/// Of the commands that answer a question with 0 and 1, and for wrong arguments.
inline constexpr int exitTrouble = 2;

int run(const SaveCommand& command, const InspectOptions& options);
int run(const CompareCommand& command, const InspectOptions& options);
int run(const ExpectCommand& command, const InspectOptions& options);
int run(const RecordCommand& command, const InspectOptions& options);
int run(const MetricsCommand& command, const InspectOptions& options);

} // namespace tamberline
