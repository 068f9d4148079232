#include "Fdo/Expression/Identifier.h"

#include <string>
#include <vector>

#include "Fdo/Expression/IExpressionProcessor.h"
#include "sdk/runtime/core/wide_text.h"
#include "sdk/runtime/text/identifier_text.h"
#include "sdk/runtime/text/writer.h"

struct FdoIdentifier::Parts {
  explicit Parts(FdoString* value)
      : text(value == nullptr ? L"" : value), names(fdo_sdk::SplitIdentifier(text)) {
    std::size_t const first = HasSchema() ? 1 : 0;
    for (std::size_t i = first; i + 1 < names.size(); ++i) scope.push_back(names[i].name.c_str());
  }

  bool HasSchema() const { return names.size() > 1 && names[1].separator == L':'; }

  std::wstring text;
  std::vector<fdo_sdk::IdentifierPart> names;
  std::vector<FdoString*> scope;  // into names
};

FdoIdentifier::FdoIdentifier() : FdoIdentifier(nullptr) {}

FdoIdentifier::FdoIdentifier(FdoString* text) : m_parts(new Parts(text)) {}

FdoIdentifier::~FdoIdentifier() { delete m_parts; }

void FdoIdentifier::Dispose() { delete this; }

FdoIdentifier* FdoIdentifier::Create() { return new FdoIdentifier(); }

FdoIdentifier* FdoIdentifier::Create(FdoString* text) { return new FdoIdentifier(text); }

FdoString* FdoIdentifier::GetText() { return m_parts->text.c_str(); }

void FdoIdentifier::SetText(FdoString* value) {
  auto* parts = new Parts(value);
  delete m_parts;
  m_parts = parts;
}

FdoString* FdoIdentifier::GetName() { return m_parts->names.back().name.c_str(); }

FdoString** FdoIdentifier::GetScope(FdoInt32& length) {
  length = static_cast<FdoInt32>(m_parts->scope.size());
  return m_parts->scope.data();
}

FdoString* FdoIdentifier::GetSchemaName() {
  return m_parts->HasSchema() ? m_parts->names.front().name.c_str() : L"";
}

void FdoIdentifier::Process(FdoIExpressionProcessor* p) { p->ProcessIdentifier(*this); }

FdoString* FdoIdentifier::ToString() {
  return fdo_sdk::KeepText(m_toString, fdo_sdk::WriteExpression(*this));
}

FdoExpressionItemType FdoIdentifier::GetExpressionType() { return FdoExpressionItemType_Identifier; }
