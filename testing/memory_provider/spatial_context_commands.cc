// The commands on spatial contexts.
#include "testing/memory_provider/command_base.h"
#include "testing/memory_provider/commands.h"

namespace memory_provider {
namespace {

std::wstring TextOf(FdoString* text) { return text == nullptr ? L"" : text; }

class CreateSpatialContext : public CommandBase<FdoICreateSpatialContext> {
 public:
  using CommandBase<FdoICreateSpatialContext>::CommandBase;

  FdoString* GetName() override { return context_.name.c_str(); }
  void SetName(FdoString* value) override { context_.name = TextOf(value); }
  FdoString* GetDescription() override { return context_.description.c_str(); }
  void SetDescription(FdoString* value) override { context_.description = TextOf(value); }
  FdoString* GetCoordinateSystem() override { return context_.coordinateSystem.c_str(); }
  void SetCoordinateSystem(FdoString* value) override { context_.coordinateSystem = TextOf(value); }
  FdoString* GetCoordinateSystemWkt() override { return context_.wkt.c_str(); }
  void SetCoordinateSystemWkt(FdoString* value) override { context_.wkt = TextOf(value); }
  FdoSpatialContextExtentType GetExtentType() override { return context_.extentType; }
  void SetExtentType(FdoSpatialContextExtentType value) override { context_.extentType = value; }
  FdoByteArray* GetExtent() override { return FDO_SAFE_ADDREF(context_.extent.p); }
  void SetExtent(FdoByteArray* value) override { context_.extent = FDO_SAFE_ADDREF(value); }
  double const GetXYTolerance() override { return context_.xyTolerance; }
  void SetXYTolerance(double const value) override { context_.xyTolerance = value; }
  double const GetZTolerance() override { return context_.zTolerance; }
  void SetZTolerance(double const value) override { context_.zTolerance = value; }
  bool const GetUpdateExisting() override { return updateExisting_; }
  void SetUpdateExisting(bool const value) override { updateExisting_ = value; }

  void Execute() override {
    Store& store = OpenedStore();
    if (context_.name.empty()) throw FdoCommandException::Create(L"A spatial context needs a name.");
    for (SpatialContext& present : store.spatialContexts) {
      if (present.name != context_.name) continue;
      if (!updateExisting_) {
        std::wstring const message = L"There is a spatial context \"" + context_.name + L"\" already.";
        throw FdoCommandException::Create(message.c_str());
      }
      present = context_;
      return;
    }
    store.spatialContexts.push_back(context_);
  }

 private:
  SpatialContext context_;
  bool updateExisting_ = false;
};

class SpatialContextReader : public FdoISpatialContextReader {
 public:
  explicit SpatialContextReader(std::vector<SpatialContext> contexts) : contexts_(std::move(contexts)) {}

  FdoString* GetName() override { return Current().name.c_str(); }
  FdoString* GetDescription() override { return Current().description.c_str(); }
  FdoString* GetCoordinateSystem() override { return Current().coordinateSystem.c_str(); }
  FdoString* GetCoordinateSystemWkt() override { return Current().wkt.c_str(); }
  FdoSpatialContextExtentType GetExtentType() override { return Current().extentType; }
  FdoByteArray* GetExtent() override { return FDO_SAFE_ADDREF(Current().extent.p); }
  double const GetXYTolerance() override { return Current().xyTolerance; }
  double const GetZTolerance() override { return Current().zTolerance; }
  // The first one is the active one.
  bool const IsActive() override { return &Current() == &contexts_.front(); }
  bool ReadNext() override {
    if (next_ <= contexts_.size()) ++next_;
    return next_ <= contexts_.size();
  }
  void Dispose() override { delete this; }

 private:
  SpatialContext& Current() {
    if (next_ == 0 || next_ > contexts_.size()) {
      throw FdoCommandException::Create(L"The reader stands on no spatial context.");
    }
    return contexts_[next_ - 1];
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
    std::vector<SpatialContext> contexts = OpenedStore().spatialContexts;
    if (activeOnly_ && contexts.size() > 1) contexts.resize(1);
    return new SpatialContextReader(contexts);
  }

 private:
  bool activeOnly_ = false;
};

}  // namespace

FdoICommand* MakeCreateSpatialContext(Connection* connection) { return new CreateSpatialContext(connection); }

FdoICommand* MakeGetSpatialContexts(Connection* connection) { return new GetSpatialContexts(connection); }

}  // namespace memory_provider
