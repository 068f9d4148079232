// QUILLON_EXPORT marks what libquillon offers to other programs; everything else stays inside it.
//
// QUILLON_BUILDING is defined while the library is compiled, QUILLON_STATIC in a program that links
// the library's objects instead of importing them. A user of the shared library defines neither.
//
// QUILLON_LOCAL marks a class inside of an exported one that stays inside the library all the same, so that its
// calls are direct.
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

#if defined(_WIN32)
#define QUILLON_LOCAL
#else
#define QUILLON_LOCAL __attribute__((visibility("hidden")))
#endif

#endif  // FDO_EXPORT_H_
