// The parts of every target, and helpers for it. The files of an input are separated by the
// character U+001E.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tamberline {

/// Handles one input; each target defines it. Returns if all promises were kept.
void tryInput(std::string_view input);

/// Aborts the program if a promise is broken, so that the fuzzer keeps the input.
void require(bool isKept, const char* promise);

/// The files of an input; missing ones are empty.
std::vector<std::string> partsOf(std::string_view input, std::size_t count);

} // namespace tamberline
