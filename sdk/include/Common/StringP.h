// FdoStringP is a wide text held by value; copies share the characters.
#ifndef COMMON_STRINGP_H_
#define COMMON_STRINGP_H_

#include "Common/FdoTypes.h"

// Narrow text is UTF-8 throughout; what is not well formed becomes U+FFFD.
// Threads: copies of one text may be used on several threads, one object on one thread at a time.
class FDO_API_COMMON FdoStringP {
 public:
  static FdoStringP const mEmptyString;
  static FdoStringP const mNullString;

  FdoStringP();
  FdoStringP(FdoStringP const& oValue);
  // With bAttach the text, made with new wchar_t[], belongs to this object from now on. Null gives
  // the empty text.
  FdoStringP(FdoString* wValue, FdoBoolean bAttach = false);
  FdoStringP(char const* sValue);
  ~FdoStringP();

  FdoStringP& operator=(FdoStringP const& oString);
  FdoStringP& operator=(char const* sString);
  FdoStringP& operator=(FdoString* wString);

  FdoStringP const operator+(FdoString* str2) const;
  FdoStringP const operator+(FdoStringP const str2) const;
  FdoStringP operator+=(FdoString* str2);
  FdoStringP operator+=(FdoStringP const str2);

  bool operator>(FdoStringP const& str2) const;
  bool operator>=(FdoStringP const& str2) const;
  bool operator==(FdoStringP const& str2) const;
  bool operator==(FdoString* str2) const;
  bool operator!=(FdoString* str2) const;
  bool operator<=(FdoStringP const& str2) const;
  bool operator<(FdoStringP const& str2) const;
  // Without regard to case; only the sign of the result has a meaning.
  int ICompare(FdoStringP const& str2) const;

  // Borrowed: while this object holds the same text. Never null.
  operator FdoString*() const;
  operator char const*() const;

  std::size_t GetLength() const;

  // The text before the first delimiter, all of it when there is none; the text after the first
  // delimiter, empty when there is none.
  FdoStringP Left(FdoString* delimiter) const;
  FdoStringP Right(FdoString* delimiter) const;
  // Units: characters from 0, or bytes of the UTF-8 form with useUTF8.
  FdoStringP Mid(std::size_t first, std::size_t count, bool useUTF8 = false);
  FdoStringP Replace(FdoString* pOld, FdoString* pNew) const;
  FdoStringP Upper() const;
  FdoStringP Lower() const;
  bool Contains(FdoString* subString) const;

  // A number is an optional sign, digits, a point and an exponent, as in the C locale. The text before
  // anything else counts; without a number the result is 0.
  bool IsNumber() const;
  long ToLong() const;
  FdoInt64 ToInt64() const;
  FdoDouble ToDouble() const;
  // True for "true" and "yes", false for "false" and "no", whatever the case, and for a number whether
  // it is not 0; else the default.
  FdoBoolean ToBoolean(FdoBoolean defaultValue = false) const;

  // As swprintf; wide arguments are %ls.
  static FdoStringP Format(FdoString* wValue, ...);

  // Convert in_size units (to the end of the text in the forms without it) and end the output with 0.
  // Give the number of units written before that 0.
  // Errors: text that is not well formed or does not fit throws FdoException*, or gives 0.
  static int Utf8FromUnicode(wchar_t const* Wtext, int in_size, char* str_out, int out_max_size,
                             bool thrown_exception = true);
  static int Utf8ToUnicode(char const* str_in, int in_size, wchar_t* Wtext, int out_size,
                           bool thrown_exception = true);
  static int Utf8FromUnicode(wchar_t const* Wtext, char* str_out, int out_max_size,
                             bool thrown_exception = true);
  static int Utf8ToUnicode(char const* str_in, wchar_t* Wtext, int out_size, bool thrown_exception = true);
  // The number of characters, a lead byte counting as one.
  static int Utf8Len(char const* utf8String);

 private:
  struct Text;
  explicit FdoStringP(Text* text);

  Text* m_text;  // shared and never changed; null is the empty text
};

#endif  // COMMON_STRINGP_H_
