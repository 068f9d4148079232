// Any bytes are a store, or an exception says why not. The file is opened, described and read to its end.
#include <cstdint>
#include <fstream>

#include "Fdo.h"
#include "sdk/providers/sqlite/connection.h"
#include "testing/scratch_directory.h"

namespace {

template <class Command>
FdoPtr<Command> Make(FdoIConnection* connection, FdoInt32 type) {
  return FdoPtr<Command>(static_cast<Command*>(connection->CreateCommand(type)));
}

// What fails of one is no reason not to look at the next.
template <class Body>
void Try(Body body) {
  try {
    body();
  } catch (FdoException* raised) {
    FdoPtr<FdoException> failure(raised);
  }
}

void ReadValue(FdoIFeatureReader* reader, FdoInt32 index, FdoPropertyDefinition* property) {
  if (reader->IsNull(index)) return;
  if (property->GetPropertyType() == FdoPropertyType_GeometricProperty) {
    FdoPtr<FdoByteArray> bytes = reader->GetGeometry(index);
    return;
  }
  switch (static_cast<FdoDataPropertyDefinition*>(property)->GetDataType()) {
    case FdoDataType_Boolean:
      reader->GetBoolean(index);
      break;
    case FdoDataType_Int64:
      reader->GetInt64(index);
      break;
    case FdoDataType_Double:
    case FdoDataType_Decimal:
      reader->GetDouble(index);
      break;
    case FdoDataType_DateTime:
      reader->GetDateTime(index);
      break;
    case FdoDataType_BLOB:
      FdoPtr<FdoLOBValue>(reader->GetLOB(index));
      break;
    default:
      reader->GetString(index);
  }
}

void ReadClass(FdoIConnection* connection, FdoClassDefinition* definition, FdoString* filter) {
  FdoPtr<FdoISelect> select = Make<FdoISelect>(connection, FdoCommandType_Select);
  select->SetFeatureClassName(definition->GetName());
  if (filter != nullptr) select->SetFilter(filter);
  FdoPtr<FdoIFeatureReader> reader = select->Execute();
  FdoPtr<FdoPropertyDefinitionCollection> properties = definition->GetProperties();
  // A damaged page may lead round in a circle.
  for (int row = 0; row < 1000 && reader->ReadNext(); ++row) {
    for (FdoInt32 i = 0; i < properties->GetCount(); ++i) {
      FdoPtr<FdoPropertyDefinition> property = properties->GetItem(i);
      Try([&] { ReadValue(reader, i, property); });
    }
  }
}

void ReadStore(FdoIConnection* connection) {
  FdoPtr<FdoIGetSpatialContexts> get =
      Make<FdoIGetSpatialContexts>(connection, FdoCommandType_GetSpatialContexts);
  FdoPtr<FdoISpatialContextReader> contexts = get->Execute();
  while (contexts->ReadNext()) contexts->GetCoordinateSystemWkt();
  FdoPtr<FdoIDescribeSchema> describe = Make<FdoIDescribeSchema>(connection, FdoCommandType_DescribeSchema);
  FdoPtr<FdoFeatureSchemaCollection> schemas = describe->Execute();
  FdoPtr<FdoFeatureSchema> schema = schemas->GetItem(0);
  FdoPtr<FdoClassCollection> classes = schema->GetClasses();
  for (FdoInt32 i = 0; i < classes->GetCount(); ++i) {
    FdoPtr<FdoClassDefinition> definition = classes->GetItem(i);
    Try([&] { ReadClass(connection, definition, nullptr); });
    if (definition->GetClassType() != FdoClassType_FeatureClass) continue;
    FdoPtr<FdoGeometricPropertyDefinition> geometry =
        static_cast<FdoFeatureClass*>(definition.p)->GetGeometryProperty();
    std::wstring const box = L"\"" + std::wstring(geometry->GetName()) +
                             L"\" ENVELOPEINTERSECTS GeomFromText('POLYGON ((0 0, 9 0, 9 9, 0 9, 0 0))')";
    Try([&] { ReadClass(connection, definition, box.c_str()); });
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  static fdo::ScratchDirectory const directory;
  std::ofstream(directory.Path() / "store.sqlite", std::ios::binary)
      .write(reinterpret_cast<char const*>(data), static_cast<std::streamsize>(size));
  FdoPtr<FdoIConnection> connection(new fdo_sqlite::Connection());
  Try([&] {
    connection->SetConnectionString(
        (L"File=\"" + directory.File("store.sqlite") + L"\";UseFdoMetadata=TRUE").c_str());
    connection->Open();
    ReadStore(connection);
  });
  Try([&] { connection->Close(); });
  return 0;
}
