// What every target consists of and may use. An input of several files has the character U+001E
// between them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tamberline {

/// Handles one input; each target defines it. Returns when everything was as promised.
void tryInput(std::string_view input);

/// Ends the program when a promise is broken, so that the fuzzer keeps the input.
void require(bool isKept, const char* promise);

/// The files of an input; those that it does not have are empty.
std::vector<std::string> partsOf(std::string_view input, std::size_t count);

} // namespace tamberline
