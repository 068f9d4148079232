#include "Common/StringCollection.h"

#include <algorithm>

FdoStringElement::FdoStringElement() = default;

FdoStringElement::FdoStringElement(FdoStringP src) : m_string(src) {}

FdoStringElement::~FdoStringElement() = default;

FdoStringElement* FdoStringElement::Create(FdoStringP src) { return new FdoStringElement(src); }

FdoStringElement& FdoStringElement::operator=(FdoStringP const& src) {
  m_string = src;
  return *this;
}

FdoStringElement& FdoStringElement::operator=(FdoString* wString) {
  m_string = wString;
  return *this;
}

FdoStringP FdoStringElement::GetString() { return m_string; }

FdoStringCollection::FdoStringCollection() = default;

FdoStringCollection::~FdoStringCollection() = default;

void FdoStringCollection::Dispose() { delete this; }

FdoStringCollection* FdoStringCollection::Create() { return new FdoStringCollection(); }

FdoStringCollection* FdoStringCollection::Create(FdoStringCollection const& src) {
  FdoPtr<FdoStringCollection> copy = new FdoStringCollection();
  copy->Append(src);
  return copy.Detach();
}

FdoStringCollection* FdoStringCollection::Create(FdoStringCollection const* src) {
  return src == nullptr ? Create() : Create(*src);
}

FdoStringCollection* FdoStringCollection::Create(FdoStringP const& inString, FdoString* delimiters,
                                                 bool bNullTokens) {
  FdoPtr<FdoStringCollection> pieces = new FdoStringCollection();
  std::wstring const text(static_cast<FdoString*>(inString));
  std::wstring const ends(delimiters == nullptr ? L"" : delimiters);
  for (std::size_t from = 0; from <= text.size();) {
    std::size_t const end = std::min(text.find_first_of(ends, from), text.size());
    if (bNullTokens || end > from) pieces->Add(FdoStringP(text.substr(from, end - from).c_str()));
    from = end + 1;
  }
  return pieces.Detach();
}

FdoString* FdoStringCollection::GetString(int index) const {
  FdoPtr<FdoStringElement> element = GetItem(index);
  return element->m_string;
}

void FdoStringCollection::Append(FdoStringCollection const& src) {
  FdoInt32 const count = src.GetCount();  // once: src may be this collection
  for (FdoInt32 i = 0; i < count; ++i) Add(FdoStringP(src.GetString(i)));
}

int FdoStringCollection::Add(FdoStringP src) {
  FdoPtr<FdoStringElement> element = FdoStringElement::Create(src);
  return Add(static_cast<FdoStringElement*>(element));
}

FdoInt32 FdoStringCollection::IndexOf(FdoStringP value, FdoBoolean caseSensitive) const {
  FdoInt32 const count = GetCount();
  for (FdoInt32 i = 0; i < count; ++i) {
    FdoPtr<FdoStringElement> element = GetItem(i);
    if (caseSensitive ? element->m_string == value : element->m_string.ICompare(value) == 0) return i;
  }
  return -1;
}

FdoStringP FdoStringCollection::ToString(FdoString* separator) {
  std::wstring joined;
  FdoInt32 const count = GetCount();
  for (FdoInt32 i = 0; i < count; ++i) {
    if (i > 0 && separator != nullptr) joined += separator;
    joined += GetString(i);
  }
  return FdoStringP(joined.c_str());
}

FdoStringsP::FdoStringsP() = default;

FdoStringsP::FdoStringsP(FdoStringCollection* strings) : FdoPtr<FdoStringCollection>(strings) {}

FdoStringsP FdoStringsP::operator+(FdoStringsP const strings) const {
  FdoStringsP sum = FdoStringCollection::Create(p);
  return sum += strings;
}

FdoStringsP FdoStringsP::operator+(FdoStringP const string) const {
  FdoStringsP sum = FdoStringCollection::Create(p);
  return sum += string;
}

FdoStringsP FdoStringsP::operator+=(FdoStringsP const strings) {
  if (p == nullptr) p = FdoStringCollection::Create();
  if (strings.p != nullptr) p->Append(*strings.p);
  return *this;
}

FdoStringsP FdoStringsP::operator+=(FdoStringP const string) {
  if (p == nullptr) p = FdoStringCollection::Create();
  p->Add(string);
  return *this;
}
