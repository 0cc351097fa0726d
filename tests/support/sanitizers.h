// Whether the tests run under a sanitizer that makes everything many times slower and keeps memory
// in an allocator of its own.
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

} // namespace tamberline
