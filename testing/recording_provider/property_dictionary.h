// The dictionary of a connection or of a new data store: it takes every name.
#ifndef TESTING_RECORDING_PROVIDER_PROPERTY_DICTIONARY_H_
#define TESTING_RECORDING_PROVIDER_PROPERTY_DICTIONARY_H_

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "testing/recording_provider/live_object.h"

namespace recording_provider {

typedef std::map<std::wstring, std::wstring> Settings;

// Implements either of the two dictionaries of the interface. The settings are shared with their owner.
template <class Interface>
class PropertyDictionary : public Interface {
 public:
  PropertyDictionary(std::shared_ptr<Recorder> recorder, std::shared_ptr<Settings> settings)
      : live_(std::move(recorder)), settings_(std::move(settings)) {}

  FdoString** GetPropertyNames(FdoInt32& count) override {
    live_.Called();
    names_.clear();
    for (auto const& setting : *settings_) names_.push_back(setting.first.c_str());
    count = static_cast<FdoInt32>(names_.size());
    return names_.data();
  }
  FdoString* GetProperty(FdoString* name) override {
    live_.Called();
    auto const setting = settings_->find(name == nullptr ? L"" : name);
    return setting == settings_->end() ? L"" : setting->second.c_str();
  }
  void SetProperty(FdoString* name, FdoString* value) override {
    live_.Called();
    (*settings_)[name == nullptr ? L"" : name] = value == nullptr ? L"" : value;
  }
  FdoString* GetPropertyDefault(FdoString*) override { return Answer(L""); }
  bool IsPropertyRequired(FdoString*) override { return Answer(false); }
  bool IsPropertyProtected(FdoString*) override { return Answer(false); }
  bool IsPropertyEnumerable(FdoString*) override { return Answer(false); }
  FdoString** EnumeratePropertyValues(FdoString*, FdoInt32& count) override {
    live_.Called();
    count = 0;
    return nullptr;
  }
  FdoString* GetLocalizedName(FdoString* name) override { return Answer(name); }
  bool IsPropertyFileName(FdoString*) override { return Answer(false); }
  bool IsPropertyFilePath(FdoString*) override { return Answer(false); }
  bool IsPropertyDatastoreName(FdoString*) override { return Answer(false); }

 protected:
  void Dispose() override { delete this; }

 private:
  template <class Result>
  Result Answer(Result result) {
    live_.Called();
    return result;
  }

  LiveObject live_;
  std::shared_ptr<Settings> settings_;
  std::vector<FdoString*> names_;
};

}  // namespace recording_provider

#endif  // TESTING_RECORDING_PROVIDER_PROPERTY_DICTIONARY_H_
