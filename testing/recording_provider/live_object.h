// Counts the objects of a provider that are alive.
#ifndef TESTING_RECORDING_PROVIDER_LIVE_OBJECT_H_
#define TESTING_RECORDING_PROVIDER_LIVE_OBJECT_H_

#include <memory>
#include <utility>

#include "testing/recording_provider/recorder.h"

namespace recording_provider {

// A member of what is counted.
class LiveObject {
 public:
  explicit LiveObject(std::shared_ptr<Recorder> recorder) : recorder_(std::move(recorder)) {
    recorder_->Count(1);
  }
  ~LiveObject() { recorder_->Count(-1); }
  LiveObject(LiveObject const&) = delete;
  LiveObject& operator=(LiveObject const&) = delete;

  // The recorder, after it has counted a call. Errors: FdoException* at the call that fails.
  Recorder& Called() const {
    recorder_->Called();
    return *recorder_;
  }
  std::shared_ptr<Recorder> const& Shared() const { return recorder_; }

 private:
  std::shared_ptr<Recorder> recorder_;
};

}  // namespace recording_provider

#endif  // TESTING_RECORDING_PROVIDER_LIVE_OBJECT_H_
