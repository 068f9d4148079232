// Whether this is a build with the address sanitizer, which takes memory of its own for every block and
// variable: for tests that measure memory.
#ifndef PORT_ADDRESS_SANITIZER_H_
#define PORT_ADDRESS_SANITIZER_H_

namespace fdo::port {

#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kHasAddressSanitizer = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
inline constexpr bool kHasAddressSanitizer = true;
#else
inline constexpr bool kHasAddressSanitizer = false;
#endif
#else
inline constexpr bool kHasAddressSanitizer = false;
#endif

}  // namespace fdo::port

#endif  // PORT_ADDRESS_SANITIZER_H_
