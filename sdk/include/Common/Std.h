// What every header of the FDO interface starts from: the export macros and the standard headers that
// programs have come to expect from it.
//
// FDO_SDK_BUILDING is defined while the SDK's library is compiled, FDO_SDK_STATIC in a program that
// links the SDK's objects instead of importing them. A user of the shared library defines neither.
#ifndef COMMON_STD_H_
#define COMMON_STD_H_

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <cwchar>

#if defined(_WIN32)
#if defined(FDO_SDK_BUILDING)
#define FDO_API_COMMON __declspec(dllexport)
#elif defined(FDO_SDK_STATIC)
#define FDO_API_COMMON
#else
#define FDO_API_COMMON __declspec(dllimport)
#endif
#else
#define FDO_API_COMMON __attribute__((visibility("default")))
#endif

// One library holds every part of the interface, so the parts share one meaning.
#define FDO_API FDO_API_COMMON
#define FDO_GEOM_API FDO_API_COMMON
#define FDO_SPATIAL_API FDO_API_COMMON

#define FDO_DEPRECATED

#endif  // COMMON_STD_H_
