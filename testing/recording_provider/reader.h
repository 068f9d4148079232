// Readers that count calls, over the memory provider's readers, which give the values and take back what
// they lent when they move.
#ifndef TESTING_RECORDING_PROVIDER_READER_H_
#define TESTING_RECORDING_PROVIDER_READER_H_

#include <memory>

#include "testing/recording_provider/live_object.h"

namespace recording_provider {

// Give: one reference. The definition may be null.
FdoIFeatureReader* MakeFeatureReader(std::shared_ptr<Recorder> const& recorder,
                                     memory_provider::Result result, FdoClassDefinition* definition);
FdoIScrollableFeatureReader* MakeScrollableReader(std::shared_ptr<Recorder> const& recorder,
                                                  memory_provider::Result result,
                                                  FdoClassDefinition* definition);
FdoIDataReader* MakeDataReader(std::shared_ptr<Recorder> const& recorder, memory_provider::Result result);
FdoISpatialContextReader* MakeSpatialContextReader(std::shared_ptr<Recorder> const& recorder,
                                                   std::vector<SpatialContext> contexts);

}  // namespace recording_provider

#endif  // TESTING_RECORDING_PROVIDER_READER_H_
