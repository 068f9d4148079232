// Between the library's wide text and UTF-8.
//
// The rules are simple on purpose and the same on every platform: text on the wide side counts as
// UTF-16 code units, each of which is encoded by itself, so a character above U+FFFF is two
// three-byte sequences (six bytes). Where wchar_t has 32 bits such a character is one wide character
// here, encoded as its two surrogates would be, and joined again when it is decoded; what lies above
// U+10FFFF is no character and is encoded as U+FFFD. Sizes are bytes.
// Threads: any.
#ifndef FDO_TEXT_CONVERSION_H_
#define FDO_TEXT_CONVERSION_H_

#include <fdo/export.h>

#include <string>

namespace fdo {

// Encodes until sourceBytes or a 0 character, and ends the output with a 0 byte.
// Gives: the bytes written, without the terminator. With a null destination it only counts.
// Errors: -1 when the output would not fit; what fitted is there, terminated.
// Requires: destination is null or has destinationBytes > 0 bytes.
QUILLON_EXPORT int WideToUtf8(wchar_t const* source, int sourceBytes, char* destination,
                              int destinationBytes);

// Decodes until sourceBytes or a 0 byte, and ends the output with a 0 character. Sequences of two and
// three bytes are known; every other byte from 0x80 up is read as the lead of a two-byte sequence.
// A sequence that the source's end cuts short is read as if 0 bytes followed.
// Gives: the bytes written, without the terminator.
// Errors: -1 when the output would not fit; a terminator stands where it stopped.
// Requires: destination has destinationBytes >= sizeof(wchar_t) bytes.
QUILLON_EXPORT int Utf8ToWide(char const* source, int sourceBytes, wchar_t* destination,
                              int destinationBytes);

// The same conversions of whole texts; these stop at an embedded 0, too. A null pointer gives "".
QUILLON_EXPORT std::string ToUtf8(wchar_t const* text);
QUILLON_EXPORT std::wstring ToWide(char const* text);

}  // namespace fdo

#endif  // FDO_TEXT_CONVERSION_H_
