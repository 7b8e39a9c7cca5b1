// KEST_TEST_OWN_C_LIBRARY: defined where the address or the thread sanitizer puts functions of its own in the place
// of the C library's. Theirs print without the check for "%n", and the thread sanitizer's operators new cannot be
// replaced. The undefined-behaviour sanitizer replaces nothing.
#pragma once

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define KEST_TEST_OWN_C_LIBRARY
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define KEST_TEST_OWN_C_LIBRARY
#endif
#endif
