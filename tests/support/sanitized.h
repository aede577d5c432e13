// Whether the tests run under the address sanitizer, which takes memory and time of its own.

#ifndef TESTS_SUPPORT_SANITIZED_H
#define TESTS_SUPPORT_SANITIZED_H

#if defined(__SANITIZE_ADDRESS__)
#define SUPPORT_IS_SANITIZED true
#elif defined(__has_feature)
#define SUPPORT_IS_SANITIZED __has_feature(address_sanitizer)
#else
#define SUPPORT_IS_SANITIZED false
#endif

namespace support
{

inline constexpr bool kIsSanitized = SUPPORT_IS_SANITIZED;

} // namespace support

#undef SUPPORT_IS_SANITIZED

#endif
