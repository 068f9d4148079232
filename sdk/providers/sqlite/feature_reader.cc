#include "sdk/providers/sqlite/feature_reader.h"

#include "sdk/extensions/direct_cells.h"
#include "sdk/providers/base/reads_by_name.h"
#include "sdk/providers/sqlite/class_description.h"

namespace fdo_sqlite {
namespace {

[[noreturn]] void RefuseObjects() {
  throw FdoCommandException::Create(L"The SQLite provider has no object properties.");
}

// A property for a computed column.
FdoPropertyDefinition* DescribeComputed(ResultColumn const& column) {
  if (column.type == kGeometryColumn) {
    FdoPtr<FdoGeometricPropertyDefinition> geometry =
        FdoGeometricPropertyDefinition::Create(column.name.c_str(), nullptr);
    geometry->SetReadOnly(true);
    return geometry.Detach();
  }
  FdoPtr<FdoDataPropertyDefinition> data = FdoDataPropertyDefinition::Create(column.name.c_str(), nullptr);
  data->SetDataType(static_cast<FdoDataType>(column.type));
  data->SetReadOnly(true);
  return data.Detach();
}

class FeatureReader : public ReaderBase<FdoIFeatureReader>, public fdo_sdk::DirectCells {
 public:
  FeatureReader(Connection* connection, ResultCursor&& cursor, FeatureShapePtr shape)
      : ReaderBase<FdoIFeatureReader>(connection, std::move(cursor)), shape_(std::move(shape)) {}

  // Few programs ask for it: it is made when one does.
  FdoClassDefinition* GetClassDefinition() override {
    if (definition_ == nullptr) {
      std::vector<int> stored;
      for (int const place : shape_->places) {
        if (place >= 0) stored.push_back(place);
      }
      FdoPtr<FdoClassDefinition> definition = DescribeClass(*shape_->storeClass, stored);
      FdoPtr<FdoPropertyDefinitionCollection> properties = definition->GetProperties();
      for (std::size_t i = 0; i < shape_->places.size(); ++i) {
        if (shape_->places[i] >= 0) continue;
        FdoInt32 const position = static_cast<FdoInt32>(i);
        FdoPtr<FdoPropertyDefinition> computed = DescribeComputed(shape_->columns->At(position));
        properties->Insert(position, computed);
      }
      definition_ = definition;
    }
    return FDO_SAFE_ADDREF(definition_.p);
  }
  FdoInt32 GetDepth() override { return 0; }

  ResultCursor& Cursor() { return cursor_; }

  // Before the row of that id. Requires: the reader is of a generated id.
  void BeginAgain(std::int64_t id) {
    cursor_.BeginAgain(id);
    definition_ = nullptr;
  }
  using ReaderBase<FdoIFeatureReader>::GetGeometry;
  FdoByte const* GetGeometry(FdoString* name, FdoInt32* count) override {
    return GetGeometry(cursor_.IndexOf(name), count);
  }
  FdoByte const* GetGeometry(FdoInt32 index, FdoInt32* count) override {
    GeometryBytes const fgf = cursor_.Geometry(index);
    *count = static_cast<FdoInt32>(fgf.size);
    return fgf.data;
  }
  fdo_sdk::DirectKind ReadCell(FdoInt32 index, FdoInt32 type, fdo_sdk::DirectCell& cell) override {
    return cursor_.ReadDirectly(index, type, cell);
  }
  FdoIFeatureReader* GetFeatureObject(FdoString*) override { RefuseObjects(); }
  FdoIFeatureReader* GetFeatureObject(FdoInt32) override { RefuseObjects(); }

 private:
  FeatureShapePtr shape_;
  FdoPtr<FdoClassDefinition> definition_;
};

}  // namespace

ResultColumn ResultColumnOf(StoreColumn const& column) {
  bool const isGeometry = column.kind == StoreColumn::Kind::kGeometry;
  return ResultColumn{column.name, isGeometry ? kGeometryColumn : column.type, column.format};
}

ResultColumn ComputedColumn(std::wstring name, SqlValue const& value) {
  bool const isGeometry = value.kind == SqlKind::kGeometry;
  return ResultColumn{std::move(name), isGeometry ? kGeometryColumn : value.type, GeometryFormat::kFgf};
}

FeatureShapePtr ShapeOf(StoreClassPtr storeClass, std::vector<int> places) {
  std::vector<ResultColumn> columns;
  for (int const place : places) {
    columns.push_back(ResultColumnOf(storeClass->columns[static_cast<std::size_t>(place)]));
  }
  auto shape = std::make_shared<FeatureShape>();
  shape->storeClass = std::move(storeClass);
  shape->places = std::move(places);
  shape->columns = std::make_shared<ResultColumns const>(std::move(columns));
  return shape;
}

FdoIFeatureReader* MakeFeatureReader(Connection* connection, ResultCursor&& cursor, FeatureShapePtr shape) {
  return new fdo_provider::ReadsByName<FeatureReader>(connection, std::move(cursor), std::move(shape));
}

LentRow::LentRow(Connection* connection, FeatureShapePtr shape)
    : reader_(MakeFeatureReader(connection, ResultCursor(shape->columns), shape)),
      cursor_(static_cast<FeatureReader*>(reader_.p)->Cursor()) {}

FdoIFeatureReader* IdentityReaders::Of(Connection* connection, std::int64_t id,
                                       FeatureShapePtr const& shape) {
  if (last_ != nullptr && last_->GetRefCount() == 1) {
    static_cast<FeatureReader*>(last_.p)->BeginAgain(id);
  } else {
    last_ = MakeFeatureReader(connection, ResultCursor(id, shape->columns), shape);
  }
  return FDO_SAFE_ADDREF(last_.p);
}

}  // namespace fdo_sqlite
