// The integer type of the interface: identities, counts and whole numbers are 64 bits wide everywhere.
#ifndef FDO_INTEGER_H_
#define FDO_INTEGER_H_

#include <cstdint>

// Windows compilers bring __int64 with them. Elsewhere it is the same type as the platform's
// FdoInt64 (long on 64-bit Linux), so that identities pass between both interfaces without a cast.
#if !defined(_WIN32) && !defined(__int64)
using __int64 = std::int64_t;
#endif

static_assert(sizeof(__int64) == 8, "__int64 is the 64-bit signed integer of the interface");

#endif  // FDO_INTEGER_H_
