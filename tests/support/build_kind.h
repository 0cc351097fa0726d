// How the kind of build affects the tests: sanitizers use their own allocator, and both they and
// line counting make everything many times slower.
#pragma once

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define TAMBERLINE_IS_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define TAMBERLINE_IS_SANITIZED 1
#endif
#endif
#ifndef TAMBERLINE_IS_SANITIZED
#define TAMBERLINE_IS_SANITIZED 0
#endif

namespace tamberline {

inline constexpr bool isSanitized = TAMBERLINE_IS_SANITIZED == 1;

#ifdef TAMBERLINE_COUNTS_LINES
inline constexpr bool isSlow = true;
#else
inline constexpr bool isSlow = isSanitized;
#endif

} // namespace tamberline
