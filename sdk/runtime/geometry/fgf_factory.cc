#include <algorithm>
#include <memory>
#include <vector>

#include "FdoGeometry.h"
#include "sdk/runtime/geometry/fgf_geometry.h"
#include "sdk/runtime/geometry/wkb_reader.h"
#include "sdk/runtime/geometry/wkb_writer.h"

using fdo_sdk::AsFgfBacked;
using fdo_sdk::FgfBacked;
using fdo_sdk::FgfBuilder;
using fdo_sdk::MakeGeometry;
using fdo_sdk::ThrowFailure;

// Arrays that wait for their next use.
struct FdoFgfGeometryFactory::Pool {
  std::size_t limit;
  std::vector<FdoPtr<FdoByteArray>> arrays;
};

FdoFgfGeometryFactory::FdoFgfGeometryFactory() : m_pool(nullptr) {}

FdoFgfGeometryFactory::~FdoFgfGeometryFactory() { delete m_pool; }

void FdoFgfGeometryFactory::Dispose() { delete this; }

FdoFgfGeometryFactory* FdoFgfGeometryFactory::GetInstance() {
  // Never released, so that code that runs at the end of the program may still use it.
  static FdoFgfGeometryFactory* const shared = [] {
    auto* const factory = new FdoFgfGeometryFactory();
    factory->EnableObjectThreadLocking(true);
    return factory;
  }();
  return FDO_SAFE_ADDREF(shared);
}

FdoFgfGeometryFactory* FdoFgfGeometryFactory::GetPrivateInstance(FdoInt32 numGeometries, FdoInt32, FdoInt32,
                                                                 FdoInt32, FdoInt32) {
  FdoPtr<FdoFgfGeometryFactory> factory = new FdoFgfGeometryFactory();
  factory.p->m_pool = new Pool{static_cast<std::size_t>(std::max(numGeometries, 0)), {}};
  return factory.Detach();
}

FdoIGeometry* FdoFgfGeometryFactory::CreateGeometryFromFgf(FdoByteArray* byteArray) {
  if (byteArray == nullptr) ThrowFailure(L"There is no array to read.");
  FdoByte const* const data = byteArray->GetData();
  return MakeGeometry({data, static_cast<std::size_t>(byteArray->GetCount()), FDO_SAFE_ADDREF(byteArray)});
}

FdoByteArray* FdoFgfGeometryFactory::GetFgf(FdoIGeometry* geometry) {
  FgfBacked const* const own = AsFgfBacked(geometry);
  if (own == nullptr) ThrowFailure(L"The geometry was not made by this factory.");
  FdoByteArray* const array = own->Bytes().array;
  auto const size = static_cast<FdoInt32>(own->Bytes().size);
  bool const isAllOfArray =
      array != nullptr && own->Bytes().data == array->GetData() && size == array->GetCount();
  return isAllOfArray ? FDO_SAFE_ADDREF(array) : FdoByteArray::Create(own->Bytes().data, size);
}

FdoIGeometry* FdoFgfGeometryFactory::CreateGeometryFromWkb(FdoByteArray* byteArray) {
  if (byteArray == nullptr) ThrowFailure(L"There is no array to read.");
  FgfBuilder fgf;
  fdo_sdk::ReadWkb(byteArray->GetData(), static_cast<std::size_t>(byteArray->GetCount()), fgf);
  FdoPtr<FdoByteArray> array = fgf.ToArray();
  return CreateGeometryFromFgf(array);
}

FdoByteArray* FdoFgfGeometryFactory::GetWkb(FdoIGeometry* geometry) {
  FgfBacked const* const own = AsFgfBacked(geometry);
  if (own == nullptr) ThrowFailure(L"The geometry was not made by this factory.");
  FgfBuilder wkb;
  fdo_sdk::WriteWkb(own->Bytes().data, own->Bytes().size, wkb);
  return wkb.ToArray();
}

FdoByteArray* FdoFgfGeometryFactory::GetByteArray() {
  if (m_pool == nullptr || m_pool->arrays.empty()) return FdoByteArray::Create();
  FdoPtr<FdoByteArray> array = m_pool->arrays.back();
  m_pool->arrays.pop_back();
  return array.Detach();
}

void FdoFgfGeometryFactory::TakeReleasedByteArray(FdoByteArray* byteArray) {
  FdoPtr<FdoByteArray> array(byteArray);
  // An array that others still hold must keep its bytes.
  if (array == nullptr || m_pool == nullptr || array.p->GetRefCount() > 1) return;
  if (m_pool->arrays.size() >= m_pool->limit) return;
  array->Clear();
  m_pool->arrays.push_back(array);
}
