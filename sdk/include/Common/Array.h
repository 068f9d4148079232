// FdoArray is a counted array of plain elements in one allocation.
#ifndef COMMON_ARRAY_H_
#define COMMON_ARRAY_H_

#include <cstddef>
#include <limits>
#include <new>
#include <type_traits>

#include "Common/Exception.h"

// The operations that may grow the array are static: they take the caller's reference over and give
// the reference to use from then on. When others hold references too, they keep the old elements.
template <class T>
class FdoArray {
  static_assert(std::is_trivially_copyable<T>::value, "elements are moved as bytes");
  static_assert(alignof(T) <= alignof(std::max_align_t), "elements follow the head of the allocation");

 public:
  // Give: one reference.
  static FdoArray<T>* Create() { return Allocate(0); }
  // Reserves room; GetCount() is 0.
  static FdoArray<T>* Create(FdoInt32 initialAlloc) { return Allocate(initialAlloc); }
  static FdoArray<T>* Create(T const* elements, FdoInt32 initialNumElements) {
    FdoArray<T>* array = Allocate(initialNumElements);
    if (initialNumElements > 0) {
      std::memcpy(array->Elements(), elements, sizeof(T) * static_cast<std::size_t>(initialNumElements));
    }
    array->m_count = initialNumElements;
    return array;
  }

  FdoInt32 AddRef() { return FdoInternal::ChangeReferenceCount(m_refCount, 1, false); }
  FdoInt32 Release() {
    FdoInt32 const left = FdoInternal::ChangeReferenceCount(m_refCount, -1, false);
    if (left == 0) ::operator delete(static_cast<void*>(this));
    return left;
  }
  FdoInt32 GetRefCount() { return m_refCount; }

  FdoInt32 GetCount() const { return m_count; }

  // Borrowed: until the array grows or ends. Null when nothing is allocated.
  T* GetData() { return m_capacity == 0 ? nullptr : Elements(); }
  T const* GetData() const { return m_capacity == 0 ? nullptr : Elements(); }

  // New elements are zero. Errors: throws FdoException*, and the reference stays the caller's.
  static FdoArray<T>* SetSize(FdoArray<T>* array, FdoInt32 numElements) {
    FdoInt32 const old = array->m_count;
    FdoArray<T>* result = Reserve(array, numElements);
    if (numElements > old) {
      std::memset(static_cast<void*>(result->Elements() + old), 0,
                  sizeof(T) * static_cast<std::size_t>(numElements - old));
    }
    result->m_count = numElements;
    return result;
  }

  // Requires: elements are not those of the array itself.
  static FdoArray<T>* Append(FdoArray<T>* array, FdoInt32 numElements, T* elements) {
    FdoInt32 const old = array->m_count;
    if (numElements < 0 || numElements > std::numeric_limits<FdoInt32>::max() - old) ThrowSize();
    FdoArray<T>* result = Reserve(array, old + numElements);
    if (numElements > 0) {
      std::memcpy(static_cast<void*>(result->Elements() + old), elements,
                  sizeof(T) * static_cast<std::size_t>(numElements));
    }
    result->m_count = old + numElements;
    return result;
  }
  static FdoArray<T>* Append(FdoArray<T>* array, T element) { return Append(array, 1, &element); }

  void Clear() { m_count = 0; }

  // Errors: throws FdoException* out of range.
  T const& operator[](int i) const {
    CheckIndex(i);
    return Elements()[i];
  }
  T& operator[](int i) {
    CheckIndex(i);
    return Elements()[i];
  }

 protected:
  explicit FdoArray(FdoInt32 capacity) : m_refCount(1), m_count(0), m_capacity(capacity) {}

 private:
  FdoArray(FdoArray<T> const&) = delete;
  FdoArray<T>& operator=(FdoArray<T> const&) = delete;

  static std::size_t HeadSize() {
    std::size_t const unit = alignof(T) > sizeof(FdoInt32) ? alignof(T) : sizeof(FdoInt32);
    return (sizeof(FdoArray<T>) + unit - 1) / unit * unit;
  }

  static FdoArray<T>* Allocate(FdoInt32 capacity) {
    if (capacity < 0 || static_cast<std::size_t>(capacity) >
                            (std::numeric_limits<std::size_t>::max() - HeadSize()) / sizeof(T)) {
      ThrowSize();
    }
    void* memory = ::operator new(HeadSize() + sizeof(T) * static_cast<std::size_t>(capacity));
    return new (memory) FdoArray<T>(capacity);
  }

  // Makes the array the caller's alone and roomy enough, by moving it when it is not.
  static FdoArray<T>* Reserve(FdoArray<T>* array, FdoInt32 needed) {
    if (needed >= 0 && needed <= array->m_capacity) return array;
    FdoInt32 const half = array->m_capacity / 2;
    FdoInt32 const grown = array->m_capacity <= std::numeric_limits<FdoInt32>::max() - half
                               ? array->m_capacity + half
                               : std::numeric_limits<FdoInt32>::max();
    FdoArray<T>* moved = Allocate(needed < 0 || needed > grown ? needed : grown);
    if (array->m_count > 0) {
      std::memcpy(static_cast<void*>(moved->Elements()), array->Elements(),
                  sizeof(T) * static_cast<std::size_t>(array->m_count));
    }
    moved->m_count = array->m_count;
    array->Release();
    return moved;
  }

  void CheckIndex(int i) const {
    if (i < 0 || i >= m_count) throw FdoException::Create(L"The index is outside the array.");
  }

  [[noreturn]] static void ThrowSize() {
    throw FdoException::Create(L"The size of an array is negative or too large.");
  }

  T* Elements() { return reinterpret_cast<T*>(reinterpret_cast<char*>(this) + HeadSize()); }
  T const* Elements() const {
    return reinterpret_cast<T const*>(reinterpret_cast<char const*>(this) + HeadSize());
  }

  FdoInt32 m_refCount;
  FdoInt32 m_count;     // elements in use
  FdoInt32 m_capacity;  // elements that fit behind the head
};

typedef FdoArray<FdoByte> FdoByteArray;
typedef FdoArray<FdoDouble> FdoDoubleArray;
typedef FdoArray<FdoInt32> FdoIntArray;

#endif  // COMMON_ARRAY_H_
