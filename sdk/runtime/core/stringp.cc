#include "Common/StringP.h"

#include <algorithm>
#include <atomic>
#include <charconv>
#include <cstdarg>
#include <cwctype>
#include <string>
#include <vector>

#include "Common/Exception.h"
#include "sdk/runtime/core/utf8.h"

struct FdoStringP::Text {
  explicit Text(std::wstring text) : wide(std::move(text)) {}
  ~Text() { delete narrow.load(); }

  std::atomic<int> references{1};
  std::wstring const wide;
  std::atomic<std::string*> narrow{nullptr};  // the UTF-8 form, made when it is first asked for
};

FdoStringP const FdoStringP::mEmptyString;
FdoStringP const FdoStringP::mNullString;

namespace {

std::wstring MapCase(FdoString* text, std::wint_t (*map)(std::wint_t)) {
  std::wstring mapped(text);
  for (wchar_t& unit : mapped) unit = static_cast<wchar_t>(map(static_cast<std::wint_t>(unit)));
  return mapped;
}

// The longest number at the start of a text after blanks; the end of it in *end.
// Errors: false when there is none.
template <class Number>
bool LeadingNumber(std::string const& text, Number& number, std::size_t* end) {
  std::size_t at = text.find_first_not_of(" \t\r\n");
  if (at == std::string::npos) return false;
  if (text[at] == '+' && at + 1 < text.size() && text[at + 1] != '-') ++at;  // from_chars takes no plus
  char const* const first = text.data() + at;
  // "inf" and "nan" are words, not numbers.
  if (std::isalpha(static_cast<unsigned char>(*first)) ||
      (*first == '-' && std::isalpha(static_cast<unsigned char>(first[1])))) {
    return false;
  }
  auto const result = std::from_chars(first, text.data() + text.size(), number);
  if (end != nullptr) *end = static_cast<std::size_t>(result.ptr - text.data());
  return result.ec == std::errc();
}

int Report(wchar_t const* message, bool thrown) {
  if (thrown) throw FdoException::Create(message);
  return 0;
}

// Copies the converted text with its final 0.
template <class Unit>
int Deliver(std::basic_string<Unit> const& converted, bool malformed, Unit* out, int room, bool thrown) {
  if (malformed) return Report(L"The text to convert is not well formed.", thrown);
  if (out == nullptr || room < 0 || converted.size() >= static_cast<std::size_t>(room)) {
    return Report(L"The converted text does not fit.", thrown);
  }
  std::copy_n(converted.c_str(), converted.size() + 1, out);
  return static_cast<int>(converted.size());
}

}  // namespace

FdoStringP::FdoStringP() : m_text(nullptr) {}

FdoStringP::FdoStringP(Text* text) : m_text(text) {}

FdoStringP::FdoStringP(FdoStringP const& oValue) : m_text(oValue.m_text) {
  if (m_text != nullptr) m_text->references.fetch_add(1, std::memory_order_relaxed);
}

FdoStringP::FdoStringP(FdoString* wValue, FdoBoolean bAttach)
    : m_text(wValue == nullptr || *wValue == 0 ? nullptr : new Text(wValue)) {
  if (bAttach) delete[] wValue;
}

FdoStringP::FdoStringP(char const* sValue)
    : m_text(sValue == nullptr || *sValue == 0 ? nullptr : new Text(fdo_sdk::WideFromUtf8(sValue))) {}

FdoStringP::~FdoStringP() {
  if (m_text != nullptr && m_text->references.fetch_sub(1, std::memory_order_acq_rel) == 1) delete m_text;
}

FdoStringP& FdoStringP::operator=(FdoStringP const& oString) {
  FdoStringP copy(oString);
  std::swap(m_text, copy.m_text);
  return *this;
}

FdoStringP& FdoStringP::operator=(char const* sString) { return *this = FdoStringP(sString); }

FdoStringP& FdoStringP::operator=(FdoString* wString) { return *this = FdoStringP(wString); }

FdoStringP const FdoStringP::operator+(FdoString* str2) const {
  std::wstring joined(static_cast<FdoString*>(*this));
  if (str2 != nullptr) joined += str2;
  return joined.empty() ? FdoStringP() : FdoStringP(new Text(std::move(joined)));
}

FdoStringP const FdoStringP::operator+(FdoStringP const str2) const {
  return *this + static_cast<FdoString*>(str2);
}

FdoStringP FdoStringP::operator+=(FdoString* str2) { return *this = *this + str2; }

FdoStringP FdoStringP::operator+=(FdoStringP const str2) { return *this = *this + str2; }

bool FdoStringP::operator>(FdoStringP const& str2) const { return str2 < *this; }

bool FdoStringP::operator>=(FdoStringP const& str2) const { return !(*this < str2); }

bool FdoStringP::operator==(FdoStringP const& str2) const { return *this == static_cast<FdoString*>(str2); }

bool FdoStringP::operator==(FdoString* str2) const {
  return std::wcscmp(*this, str2 == nullptr ? L"" : str2) == 0;
}

bool FdoStringP::operator!=(FdoString* str2) const { return !(*this == str2); }

bool FdoStringP::operator<=(FdoStringP const& str2) const { return !(str2 < *this); }

bool FdoStringP::operator<(FdoStringP const& str2) const {
  return std::wcscmp(*this, static_cast<FdoString*>(str2)) < 0;
}

int FdoStringP::ICompare(FdoStringP const& str2) const {
  return MapCase(*this, std::towlower).compare(MapCase(str2, std::towlower));
}

FdoStringP::operator FdoString*() const { return m_text == nullptr ? L"" : m_text->wide.c_str(); }

FdoStringP::operator char const*() const {
  if (m_text == nullptr) return "";
  std::string* known = m_text->narrow.load(std::memory_order_acquire);
  if (known == nullptr) {
    auto* made = new std::string(fdo_sdk::Utf8FromWide(m_text->wide));
    if (m_text->narrow.compare_exchange_strong(known, made, std::memory_order_acq_rel)) {
      known = made;
    } else {
      delete made;  // another thread's copy of this text was first
    }
  }
  return known->c_str();
}

std::size_t FdoStringP::GetLength() const { return m_text == nullptr ? 0 : m_text->wide.size(); }

FdoStringP FdoStringP::Left(FdoString* delimiter) const {
  FdoString* text = *this;
  FdoString* found = delimiter == nullptr ? nullptr : std::wcsstr(text, delimiter);
  return found == nullptr ? *this : FdoStringP(std::wstring(text, found).c_str());
}

FdoStringP FdoStringP::Right(FdoString* delimiter) const {
  FdoString* found = delimiter == nullptr ? nullptr : std::wcsstr(*this, delimiter);
  return found == nullptr ? FdoStringP() : FdoStringP(found + std::wcslen(delimiter));
}

FdoStringP FdoStringP::Mid(std::size_t first, std::size_t count, bool useUTF8) {
  if (useUTF8) {
    std::string const bytes(static_cast<char const*>(*this));
    return first >= bytes.size() ? FdoStringP() : FdoStringP(bytes.substr(first, count).c_str());
  }
  if (first >= GetLength()) return FdoStringP();
  return FdoStringP(m_text->wide.substr(first, count).c_str());
}

FdoStringP FdoStringP::Replace(FdoString* pOld, FdoString* pNew) const {
  if (pOld == nullptr || *pOld == 0) return *this;
  std::wstring const text(static_cast<FdoString*>(*this));
  std::wstring const old(pOld);
  std::wstring result;
  std::size_t from = 0;
  for (std::size_t at; (at = text.find(old, from)) != std::wstring::npos; from = at + old.size()) {
    result.append(text, from, at - from).append(pNew == nullptr ? L"" : pNew);
  }
  return FdoStringP(result.append(text, from, std::wstring::npos).c_str());
}

FdoStringP FdoStringP::Upper() const { return FdoStringP(MapCase(*this, std::towupper).c_str()); }

FdoStringP FdoStringP::Lower() const { return FdoStringP(MapCase(*this, std::towlower).c_str()); }

bool FdoStringP::Contains(FdoString* subString) const {
  return subString != nullptr && std::wcsstr(*this, subString) != nullptr;
}

bool FdoStringP::IsNumber() const {
  std::string const text(static_cast<char const*>(*this));
  double number = 0;
  std::size_t end = 0;
  return LeadingNumber(text, number, &end) && text.find_first_not_of(" \t\r\n", end) == std::string::npos;
}

long FdoStringP::ToLong() const {
  long number = 0;
  return LeadingNumber(static_cast<char const*>(*this), number, nullptr) ? number : 0;
}

FdoInt64 FdoStringP::ToInt64() const {
  FdoInt64 number = 0;
  return LeadingNumber(static_cast<char const*>(*this), number, nullptr) ? number : 0;
}

FdoDouble FdoStringP::ToDouble() const {
  double number = 0;
  return LeadingNumber(static_cast<char const*>(*this), number, nullptr) ? number : 0;
}

FdoBoolean FdoStringP::ToBoolean(FdoBoolean defaultValue) const {
  FdoStringP const lower = Lower();
  if (lower == L"true" || lower == L"yes") return true;
  if (lower == L"false" || lower == L"no") return false;
  return IsNumber() ? ToDouble() != 0 : defaultValue;
}

FdoStringP FdoStringP::Format(FdoString* wValue, ...) {
  if (wValue == nullptr) return FdoStringP();
  // vswprintf does not tell how much room it needs, and fails alike for text it cannot convert.
  constexpr std::size_t kLongest = 1 << 24;
  for (std::vector<wchar_t> room(256); room.size() <= kLongest; room.resize(room.size() * 4)) {
    std::va_list arguments;
    va_start(arguments, wValue);
    int const written = std::vswprintf(room.data(), room.size(), wValue, arguments);
    va_end(arguments);
    if (written >= 0) return FdoStringP(room.data());
  }
  throw FdoException::Create(L"The text could not be formatted.");
}

int FdoStringP::Utf8FromUnicode(wchar_t const* Wtext, int in_size, char* str_out, int out_max_size,
                                bool thrown_exception) {
  if (Wtext == nullptr || in_size < 0) return Report(L"There is no text to convert.", thrown_exception);
  bool malformed = false;
  std::string const bytes =
      fdo_sdk::Utf8FromWide(std::wstring_view(Wtext, static_cast<std::size_t>(in_size)), &malformed);
  return Deliver(bytes, malformed, str_out, out_max_size, thrown_exception);
}

int FdoStringP::Utf8ToUnicode(char const* str_in, int in_size, wchar_t* Wtext, int out_size,
                              bool thrown_exception) {
  if (str_in == nullptr || in_size < 0) return Report(L"There is no text to convert.", thrown_exception);
  bool malformed = false;
  std::wstring const wide =
      fdo_sdk::WideFromUtf8(std::string_view(str_in, static_cast<std::size_t>(in_size)), &malformed);
  return Deliver(wide, malformed, Wtext, out_size, thrown_exception);
}

int FdoStringP::Utf8FromUnicode(wchar_t const* Wtext, char* str_out, int out_max_size,
                                bool thrown_exception) {
  int const length = Wtext == nullptr ? -1 : static_cast<int>(std::wcslen(Wtext));
  return Utf8FromUnicode(Wtext, length, str_out, out_max_size, thrown_exception);
}

int FdoStringP::Utf8ToUnicode(char const* str_in, wchar_t* Wtext, int out_size, bool thrown_exception) {
  int const length = str_in == nullptr ? -1 : static_cast<int>(std::strlen(str_in));
  return Utf8ToUnicode(str_in, length, Wtext, out_size, thrown_exception);
}

int FdoStringP::Utf8Len(char const* utf8String) {
  if (utf8String == nullptr) return 0;
  std::string_view const bytes(utf8String);
  return static_cast<int>(std::count_if(bytes.begin(), bytes.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
  }));
}
