// The commands on spatial contexts.
#include "testing/memory_provider/commands.h"
#include "testing/memory_provider/spatial_context_base.h"

namespace memory_provider {
namespace {

class CreateSpatialContext : public CreateSpatialContextBase<> {
 public:
  using CreateSpatialContextBase<>::CreateSpatialContextBase;

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
};

class GetSpatialContexts : public GetSpatialContextsBase<> {
 public:
  using GetSpatialContextsBase<>::GetSpatialContextsBase;

  FdoISpatialContextReader* Execute() override {
    std::vector<SpatialContext> contexts = OpenedStore().spatialContexts;
    if (activeOnly_ && contexts.size() > 1) contexts.resize(1);
    return new SpatialContextReader(contexts);
  }
};

}  // namespace

FdoICommand* MakeCreateSpatialContext(Connection* connection) { return new CreateSpatialContext(connection); }

FdoICommand* MakeGetSpatialContexts(Connection* connection) { return new GetSpatialContexts(connection); }

}  // namespace memory_provider
