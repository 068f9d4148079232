#include "tools/quillon/row_copier.h"

#include "tools/quillon/cell_text.h"
#include "tools/quillon/geometry_text.h"
#include "tools/quillon/target_definition.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

namespace {

// Text and bytes are borrowed, for the time of one Insert.
void Borrow(Value& to, Value const& from) {
  switch (from.Type() & ~Value::kBorrowed) {
    case Value::kString:
      to.Reset(Text(from), /*copy=*/false);
      break;
    case Value::kBlob:
      to.Reset(from.AsBlob(), from.BlobLen(), /*copy=*/false);
      break;
    case Value::kUndef:
      to.Reset();
      break;
    default:
      to.CopyFrom(from);
  }
}

void WriteAsText(Value& to, Value const& geometry) {
  std::string text;
  std::wstring wide;
  bool const hasText = IsBytes(geometry) && AppendGeometryText(text, geometry.AsBlob(),
                                                               static_cast<std::size_t>(geometry.BlobLen()));
  if (hasText && WideFromUtf8(text, wide)) {
    to.Reset(wide.c_str(), /*copy=*/true);
  } else {
    to.Reset();
  }
}

}  // namespace

CopiedRows CopyRows(Table& source, BoundSelection const& selection, std::vector<int> const& columns,
                    Table& target, bool geometryAsText, CopyEvents const& events) {
  TableDef const& sourceDef = *source.Def();
  TableDef const& targetDef = *target.Def();
  Row written(&targetDef);
  for (int i = 0; i < targetDef.ColumnCount(); ++i) written[i].Reset();

  std::vector<int> const fields = FieldsOf(targetDef);
  CopiedRows rows;
  constexpr bool kStoreMakesId = true;
  selection.Query(source);
  target.BeginWrite();
  while (Row const* const row = source.Next()) {
    auto field = fields.begin();
    for (int column : columns) {
      Value const& cell = (*row)[column];
      if (column != sourceDef.IndexOfGeom()) {
        Borrow(written[*field++], cell);
      } else if (geometryAsText) {
        WriteAsText(written[*field++], cell);
      } else {
        Borrow(written[targetDef.IndexOfGeom()], cell);
      }
    }
    if (target.Insert(written, nullptr, kStoreMakesId)) {
      ++rows.written;
    } else {
      rows.refused.push_back(rows.read);
      ++rows.reasons[events.whyRefused()];
    }
    ++rows.read;
    events.copied(rows);
  }
  events.allRead();
  target.CommitWrite();
  source.EndQuery();
  return rows;
}

}  // namespace fdo::tool
