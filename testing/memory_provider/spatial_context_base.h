// What commands on spatial contexts have in common among providers for tests, and their reader.
#ifndef TESTING_MEMORY_PROVIDER_SPATIAL_CONTEXT_BASE_H_
#define TESTING_MEMORY_PROVIDER_SPATIAL_CONTEXT_BASE_H_

#include <utility>
#include <vector>

#include "testing/memory_provider/command_base.h"

namespace memory_provider {

template <class ConnectionType = Connection>
class CreateSpatialContextBase : public CommandBase<FdoICreateSpatialContext, ConnectionType> {
 public:
  using CommandBase<FdoICreateSpatialContext, ConnectionType>::CommandBase;

  FdoString* GetName() override { return this->Lent(context_.name); }
  void SetName(FdoString* value) override { this->Copy(context_.name, value); }
  FdoString* GetDescription() override { return this->Lent(context_.description); }
  void SetDescription(FdoString* value) override { this->Copy(context_.description, value); }
  FdoString* GetCoordinateSystem() override { return this->Lent(context_.coordinateSystem); }
  void SetCoordinateSystem(FdoString* value) override { this->Copy(context_.coordinateSystem, value); }
  FdoString* GetCoordinateSystemWkt() override { return this->Lent(context_.wkt); }
  void SetCoordinateSystemWkt(FdoString* value) override { this->Copy(context_.wkt, value); }
  FdoSpatialContextExtentType GetExtentType() override { return this->Given(context_.extentType); }
  void SetExtentType(FdoSpatialContextExtentType value) override { this->Take(context_.extentType, value); }
  FdoByteArray* GetExtent() override { return this->Shared(context_.extent); }
  void SetExtent(FdoByteArray* value) override { this->Share(context_.extent, value); }
  double const GetXYTolerance() override { return this->Given(context_.xyTolerance); }
  void SetXYTolerance(double const value) override { this->Take(context_.xyTolerance, value); }
  double const GetZTolerance() override { return this->Given(context_.zTolerance); }
  void SetZTolerance(double const value) override { this->Take(context_.zTolerance, value); }
  bool const GetUpdateExisting() override { return this->Given(updateExisting_); }
  void SetUpdateExisting(bool const value) override { this->Take(updateExisting_, value); }

 protected:
  SpatialContext context_;
  bool updateExisting_ = false;
};

template <class ConnectionType = Connection>
class GetSpatialContextsBase : public CommandBase<FdoIGetSpatialContexts, ConnectionType> {
 public:
  using CommandBase<FdoIGetSpatialContexts, ConnectionType>::CommandBase;

  bool const GetActiveOnly() override { return this->Given(activeOnly_); }
  void SetActiveOnly(bool const value) override { this->Take(activeOnly_, value); }

 protected:
  bool activeOnly_ = false;
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

}  // namespace memory_provider

#endif  // TESTING_MEMORY_PROVIDER_SPATIAL_CONTEXT_BASE_H_
