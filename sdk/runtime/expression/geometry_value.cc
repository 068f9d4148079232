#include "Fdo/Expression/GeometryValue.h"

#include "Fdo/Expression/IExpressionProcessor.h"
#include "sdk/runtime/core/wide_text.h"
#include "sdk/runtime/text/writer.h"

FdoGeometryValue::FdoGeometryValue() = default;

FdoGeometryValue::FdoGeometryValue(FdoByteArray* geometry) : m_geometry(FDO_SAFE_ADDREF(geometry)) {}

FdoGeometryValue* FdoGeometryValue::Create() { return new FdoGeometryValue(); }

FdoGeometryValue* FdoGeometryValue::Create(FdoByteArray* geometry) { return new FdoGeometryValue(geometry); }

bool FdoGeometryValue::IsNull() { return m_geometry == nullptr; }

FdoByteArray* FdoGeometryValue::GetGeometry() { return FDO_SAFE_ADDREF(m_geometry.p); }

void FdoGeometryValue::SetGeometry(FdoByteArray* value) { m_geometry = FDO_SAFE_ADDREF(value); }

void FdoGeometryValue::SetNullValue() { m_geometry = nullptr; }

FdoLiteralValueType FdoGeometryValue::GetLiteralValueType() const { return FdoLiteralValueType_Geometry; }

FdoGeometryValue::~FdoGeometryValue() = default;

void FdoGeometryValue::Dispose() { delete this; }

void FdoGeometryValue::Process(FdoIExpressionProcessor* p) { p->ProcessGeometryValue(*this); }

FdoString* FdoGeometryValue::ToString() {
  return fdo_sdk::KeepText(m_toString, fdo_sdk::WriteExpression(*this));
}

FdoExpressionItemType FdoGeometryValue::GetExpressionType() { return FdoExpressionItemType_GeometryValue; }
