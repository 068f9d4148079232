// Whether a function is put into its caller, where the compiler's own choice costs too much to leave
// it to chance.
#ifndef PORT_INLINING_H_
#define PORT_INLINING_H_

#if defined(_MSC_VER)
#define QUILLON_ALWAYS_INLINE __forceinline
#define QUILLON_NEVER_INLINE __declspec(noinline)
#else
#define QUILLON_ALWAYS_INLINE inline __attribute__((always_inline))
#define QUILLON_NEVER_INLINE __attribute__((noinline))
#endif

#endif  // PORT_INLINING_H_
