// QUILLON_EXPORT marks what libquillon offers to other programs; everything else stays inside it.
//
// QUILLON_BUILDING is defined while the library is compiled, QUILLON_STATIC in a program that links
// the library's objects instead of importing them. A user of the shared library defines neither.
#ifndef FDO_EXPORT_H_
#define FDO_EXPORT_H_

#if defined(_WIN32)
#if defined(QUILLON_BUILDING)
#define QUILLON_EXPORT __declspec(dllexport)
#elif defined(QUILLON_STATIC)
#define QUILLON_EXPORT
#else
#define QUILLON_EXPORT __declspec(dllimport)
#endif
#else
#define QUILLON_EXPORT __attribute__((visibility("default")))
#endif

#endif  // FDO_EXPORT_H_
