// A command that is counted while it lives.
#ifndef TESTING_RECORDING_PROVIDER_LIVE_COMMAND_H_
#define TESTING_RECORDING_PROVIDER_LIVE_COMMAND_H_

#include <string>

#include "testing/memory_provider/command_base.h"
#include "testing/recording_provider/connection.h"

namespace recording_provider {

template <class Command>
class LiveCommand final : public Command {
 public:
  explicit LiveCommand(Connection* connection) : Command(connection), live_(connection->SharedRecorder()) {}

  // A collection of the command that is still held when the command goes stays counted.
  ~LiveCommand() override {
    Recorder& recorder = *live_.Shared();
    recorder.Watch(this->parameters_.p);
    if constexpr (requires { this->properties_; }) recorder.Watch(this->properties_.p);
    if constexpr (requires { this->ordering_; }) recorder.Watch(this->ordering_.p);
    if constexpr (requires { this->values_; }) recorder.Watch(this->values_.p);
  }

 private:
  LiveObject live_;
};

// Gives: one reference.
template <class Command>
FdoICommand* MakeLive(Connection* connection) {
  return new LiveCommand<Command>(connection);
}

// " class=Schema:Class", as it was given.
inline std::wstring ClassSettingText(FdoIdentifier* className) {
  return className == nullptr ? std::wstring() : L" class=" + std::wstring(className->GetText());
}

// The name of a class without its schema.
inline std::wstring BareName(FdoIdentifier* className) {
  return className == nullptr ? std::wstring() : className->GetName();
}

}  // namespace recording_provider

#endif  // TESTING_RECORDING_PROVIDER_LIVE_COMMAND_H_
