// The commands on spatial contexts, which are the rows of spatial_ref_sys.
#include <algorithm>

#include "sdk/providers/sqlite/change_scope.h"
#include "sdk/providers/sqlite/command_base.h"
#include "sdk/providers/sqlite/commands.h"
#include "sdk/providers/sqlite/metadata_tables.h"

namespace fdo_sqlite {
namespace {

// Where the numbers begin of coordinate systems that have none of an authority.
constexpr std::int64_t kFirstOwnSrid = 50000;

// The parts of a coordinate system's name such as EPSG:4326. A name of another form is the authority alone.
struct AuthorityName {
  MetadataText authority, code;
};

AuthorityName AuthorityOf(std::wstring const& coordinateSystem) {
  std::string const name = fdo_sdk::Utf8FromWide(coordinateSystem);
  std::size_t const colon = name.rfind(':');
  if (name.empty()) return {};
  if (colon == std::string::npos || colon == 0 || colon + 1 == name.size()) return {name, std::nullopt};
  return {name.substr(0, colon), name.substr(colon + 1)};
}

// The authority's own number where it is one and free, else the next of our own.
std::int64_t FreeSrid(std::vector<SpatialContext> const& present, AuthorityName const& authority) {
  auto const taken = [&present](std::int64_t srid) {
    return std::any_of(present.begin(), present.end(),
                       [srid](SpatialContext const& context) { return context.srid == srid; });
  };
  std::string const code = authority.code.value_or("");
  bool const isNumber = !code.empty() && code.size() < 10 &&
                        code.find_first_not_of("0123456789") == std::string::npos && code[0] != '0';
  if (isNumber && !taken(std::stoll(code))) return std::stoll(code);
  std::int64_t srid = kFirstOwnSrid;
  while (taken(srid)) ++srid;
  return srid;
}

std::vector<SpatialContext>::const_iterator FindContext(std::vector<SpatialContext> const& contexts,
                                                        std::wstring const& name) {
  return std::find_if(contexts.begin(), contexts.end(),
                      [&name](SpatialContext const& context) { return context.name == name; });
}

class CreateSpatialContext : public CommandBase<FdoICreateSpatialContext> {
 public:
  using CommandBase<FdoICreateSpatialContext>::CommandBase;

  FdoString* GetName() override { return name_; }
  void SetName(FdoString* value) override { name_ = value; }
  FdoString* GetDescription() override { return description_; }
  void SetDescription(FdoString* value) override { description_ = value; }
  FdoString* GetCoordinateSystem() override { return coordinateSystem_; }
  void SetCoordinateSystem(FdoString* value) override { coordinateSystem_ = value; }
  FdoString* GetCoordinateSystemWkt() override { return wkt_; }
  void SetCoordinateSystemWkt(FdoString* value) override { wkt_ = value; }
  FdoSpatialContextExtentType GetExtentType() override { return extentType_; }
  void SetExtentType(FdoSpatialContextExtentType value) override { extentType_ = value; }
  FdoByteArray* GetExtent() override { return FDO_SAFE_ADDREF(extent_.p); }
  void SetExtent(FdoByteArray* value) override { extent_ = FDO_SAFE_ADDREF(value); }
  double const GetXYTolerance() override { return xyTolerance_; }
  void SetXYTolerance(double const value) override { xyTolerance_ = value; }
  double const GetZTolerance() override { return zTolerance_; }
  void SetZTolerance(double const value) override { zTolerance_ = value; }
  bool const GetUpdateExisting() override { return updateExisting_; }
  void SetUpdateExisting(bool const value) override { updateExisting_ = value; }

  // The name, the coordinate system's name and its WKT are kept; extent and tolerances have no place in the
  // file.
  void Execute() override;

 private:
  void Write(Database& database, std::vector<SpatialContext> const& present, SpatialContext const* existing);

  FdoStringP name_, description_, coordinateSystem_, wkt_;
  FdoSpatialContextExtentType extentType_ = FdoSpatialContextExtentType_Dynamic;
  FdoPtr<FdoByteArray> extent_;
  double xyTolerance_ = 0, zTolerance_ = 0;
  bool updateExisting_ = false;
};

void CreateSpatialContext::Execute() {
  Database& database = OpenedDatabase();
  if (name_.GetLength() == 0) throw FdoCommandException::Create(L"A spatial context needs a name.");
  connection_.p->SettleWrites();
  std::vector<SpatialContext> const present = Schema().SpatialContexts();
  std::wstring const name = static_cast<FdoString*>(name_);
  auto const existing = FindContext(present, name);
  if (existing != present.end() && !updateExisting_) {
    throw FdoCommandException::Create((L"There is a spatial context \"" + name + L"\" already.").c_str());
  }
  ChangeScope change(database);
  Write(database, present, existing == present.end() ? nullptr : &*existing);
  Schema().Forget();
  std::vector<SpatialContext> const& written = Schema().SpatialContexts();
  if (FindContext(written, name) == written.end()) {
    Schema().Forget();
    std::wstring const message = L"The name \"" + name +
                                 L"\" of a spatial context cannot be kept without UseFdoMetadata=TRUE; it "
                                 L"would be that of its coordinate system.";
    throw FdoCommandException::Create(message.c_str());
  }
  change.Finish();
}

void CreateSpatialContext::Write(Database& database, std::vector<SpatialContext> const& present,
                                 SpatialContext const* existing) {
  bool const useFdoMetadata = Schema().UsesFdoMetadata();
  CreateMetadataTables(database, useFdoMetadata);
  if (useFdoMetadata && !HasColumn(database, kSpatialRefSys, kContextNameColumn)) {
    // Other programs take the column as it comes.
    database.Execute(std::string("ALTER TABLE spatial_ref_sys ADD COLUMN ") + kContextNameColumn + " TEXT");
  }
  AuthorityName const authority = AuthorityOf(static_cast<FdoString*>(coordinateSystem_));
  std::int64_t const srid = existing != nullptr ? existing->srid : FreeSrid(present, authority);
  MetadataText const name =
      useFdoMetadata ? MetadataText(fdo_sdk::Utf8FromWide(static_cast<FdoString*>(name_))) : std::nullopt;
  MetadataValues const values = {
      {"srid", std::to_string(srid)}, {"auth_name", authority.authority},
      {"auth_srid", authority.code},  {"srtext", fdo_sdk::Utf8FromWide(static_cast<FdoString*>(wkt_))},
      {kContextNameColumn, name},
  };
  if (existing == nullptr) {
    InsertMetadata(database, kSpatialRefSys, values);
  } else {
    UpdateMetadata(database, kSpatialRefSys, values, "srid = " + std::to_string(srid));
  }
}

class DestroySpatialContext : public CommandBase<FdoIDestroySpatialContext> {
 public:
  using CommandBase<FdoIDestroySpatialContext>::CommandBase;

  FdoString* GetName() override { return name_; }
  void SetName(FdoString* value) override { name_ = value; }

  // A context that a geometric property has stays.
  void Execute() override {
    Database& database = OpenedDatabase();
    connection_.p->SettleWrites();
    std::wstring const name = static_cast<FdoString*>(name_);
    std::vector<SpatialContext> const present = Schema().SpatialContexts();
    auto const found = FindContext(present, name);
    if (found == present.end()) {
      throw FdoCommandException::Create((L"There is no spatial context \"" + name + L"\".").c_str());
    }
    for (StoreClassPtr const& storeClass : Schema().Classes()) {
      for (StoreColumn const& column : storeClass->columns) {
        if (column.spatialContext != name) continue;
        std::wstring const message = L"The spatial context \"" + name +
                                     L"\" cannot be removed: the property \"" + column.name + L"\" of \"" +
                                     storeClass->name + L"\" has it.";
        throw FdoCommandException::Create(message.c_str());
      }
    }
    ChangeScope change(database);
    database.Execute("DELETE FROM spatial_ref_sys WHERE srid = " + std::to_string(found->srid));
    Schema().Forget();
    change.Finish();
  }

 private:
  FdoStringP name_;
};

class SpatialContextReader : public FdoISpatialContextReader {
 public:
  explicit SpatialContextReader(std::vector<SpatialContext> contexts) : contexts_(std::move(contexts)) {}

  FdoString* GetName() override { return Current().name.c_str(); }
  FdoString* GetDescription() override {
    Current();
    return L"";
  }
  FdoString* GetCoordinateSystem() override { return Current().coordinateSystem.c_str(); }
  FdoString* GetCoordinateSystemWkt() override { return Current().wkt.c_str(); }
  FdoSpatialContextExtentType GetExtentType() override {
    Current();
    return FdoSpatialContextExtentType_Dynamic;
  }
  // Null: no extent is kept.
  FdoByteArray* GetExtent() override {
    Current();
    return nullptr;
  }
  double const GetXYTolerance() override { return Tolerance(); }
  double const GetZTolerance() override { return Tolerance(); }
  // The first one is the active one.
  bool const IsActive() override { return &Current() == &contexts_.front(); }
  bool ReadNext() override {
    if (next_ <= contexts_.size()) ++next_;
    return next_ <= contexts_.size();
  }
  void Dispose() override { delete this; }

 private:
  SpatialContext const& Current() const {
    if (next_ != 0 && next_ <= contexts_.size()) return contexts_[next_ - 1];
    throw FdoCommandException::Create(L"The reader stands on no spatial context.");
  }
  double Tolerance() const {
    Current();
    return 0;
  }

  std::vector<SpatialContext> contexts_;
  std::size_t next_ = 0;
};

class GetSpatialContexts : public CommandBase<FdoIGetSpatialContexts> {
 public:
  using CommandBase<FdoIGetSpatialContexts>::CommandBase;

  bool const GetActiveOnly() override { return activeOnly_; }
  void SetActiveOnly(bool const value) override { activeOnly_ = value; }
  FdoISpatialContextReader* Execute() override {
    std::vector<SpatialContext> contexts = Schema().SpatialContexts();
    if (activeOnly_ && contexts.size() > 1) contexts.resize(1);
    return new SpatialContextReader(contexts);
  }

 private:
  bool activeOnly_ = false;
};

}  // namespace

FdoICommand* MakeCreateSpatialContext(Connection* connection) { return new CreateSpatialContext(connection); }
FdoICommand* MakeDestroySpatialContext(Connection* connection) {
  return new DestroySpatialContext(connection);
}
FdoICommand* MakeGetSpatialContexts(Connection* connection) { return new GetSpatialContexts(connection); }

}  // namespace fdo_sqlite
