#include "Fdo/Expression/StringValue.h"

#include <cstddef>
#include <cstring>
#include <cwchar>
#include <new>

#include "Fdo/Expression/IExpressionProcessor.h"
#include "sdk/runtime/core/wide_text.h"
#include "sdk/runtime/expression/value_conversion.h"
#include "sdk/runtime/text/writer.h"

namespace {

// A program that writes many rows sets and empties the same value for each: the memory of its text stays
// while the value is null, unless it is more than this. Units: wide characters.
constexpr std::size_t kMostKept = 1024;

// The text lies behind the number of units that there is room for, without the 0 at its end.
static_assert(sizeof(std::size_t) % alignof(wchar_t) == 0, "the text follows a size");

wchar_t* NewRoom(std::size_t units) {
  void* const memory = ::operator new(sizeof units + (units + 1) * sizeof(wchar_t));
  std::memcpy(memory, &units, sizeof units);
  return reinterpret_cast<wchar_t*>(static_cast<char*>(memory) + sizeof units);
}

void* MemoryOf(wchar_t* text) { return reinterpret_cast<char*>(text) - sizeof(std::size_t); }

std::size_t RoomOf(wchar_t* text) {
  std::size_t units = 0;
  if (text != nullptr) std::memcpy(&units, MemoryOf(text), sizeof units);
  return units;
}

void FreeRoom(wchar_t*& text) {
  if (text != nullptr) ::operator delete(MemoryOf(text));
  text = nullptr;
}

}  // namespace

FdoStringValue::FdoStringValue() : m_data(nullptr) {}

FdoStringValue::FdoStringValue(FdoString* value) : m_data(nullptr) { SetString(value); }

FdoStringValue::~FdoStringValue() { FreeRoom(m_data); }

void FdoStringValue::Dispose() { delete this; }

FdoStringValue* FdoStringValue::Create() { return new FdoStringValue(); }

FdoStringValue* FdoStringValue::Create(FdoString* value) { return new FdoStringValue(value); }

FdoStringValue* FdoStringValue::Create(FdoDataValue* src, FdoBoolean nullIfIncompatible, FdoBoolean shift,
                                       FdoBoolean truncate) {
  return static_cast<FdoStringValue*>(
      fdo_sdk::ConvertValue(FdoDataType_String, src, {nullIfIncompatible, shift, truncate}));
}

FdoDataType FdoStringValue::GetDataType() { return FdoDataType_String; }

void FdoStringValue::SetNull() { SetString(nullptr); }

FdoString* FdoStringValue::GetString() { return m_isNull ? nullptr : m_data; }

void FdoStringValue::SetString(FdoString* value) {
  if (value == nullptr) {
    if (RoomOf(m_data) > kMostKept) FreeRoom(m_data);
    m_isNull = true;
    return;
  }
  std::size_t const size = std::wcslen(value) + 1;
  if (m_data == nullptr || RoomOf(m_data) < size - 1) {
    // The new text may be part of the old one, here and below.
    wchar_t* const room = NewRoom(size - 1);
    std::wmemcpy(room, value, size);
    FreeRoom(m_data);
    m_data = room;
  } else {
    std::wmemmove(m_data, value, size);
  }
  m_isNull = false;
}

void FdoStringValue::Process(FdoIExpressionProcessor* p) { p->ProcessStringValue(*this); }

FdoString* FdoStringValue::ToString() {
  return fdo_sdk::KeepText(m_toString, fdo_sdk::WriteExpression(*this));
}

FdoStringValue::operator wchar_t*() { return m_isNull ? nullptr : m_data; }
