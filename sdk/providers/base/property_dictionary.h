// The settings of a connection or of a new data store, as a dictionary.
#ifndef SDK_PROVIDERS_BASE_PROPERTY_DICTIONARY_H_
#define SDK_PROVIDERS_BASE_PROPERTY_DICTIONARY_H_

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "Fdo.h"
#include "sdk/providers/base/connection_string.h"

namespace fdo_provider {

// Implements either of the two dictionaries of the interface. The settings are read at the start, and each
// change is shown to the maker, who may throw to refuse it.
template <class Interface>
class PropertyDictionary : public Interface {
 public:
  typedef std::function<void(Settings const&)> Changed;

  PropertyDictionary(Settings const& settings, Changed changed)
      : settings_(settings), changed_(std::move(changed)) {
    for (SettingInfo const& info : settings_.Known()) names_.push_back(info.name);
  }

  FdoString** GetPropertyNames(FdoInt32& count) override {
    count = static_cast<FdoInt32>(names_.size());
    return names_.data();
  }
  FdoString* GetProperty(FdoString* name) override { return settings_.Value(PlaceOf(name)).c_str(); }
  void SetProperty(FdoString* name, FdoString* value) override {
    Settings settings = settings_;
    settings.Set(PlaceOf(name), value == nullptr ? L"" : value);
    changed_(settings);
    settings_ = settings;
  }
  FdoString* GetPropertyDefault(FdoString* name) override { return Info(name).standard; }
  bool IsPropertyRequired(FdoString* name) override { return Info(name).required; }
  bool IsPropertyProtected(FdoString* name) override {
    PlaceOf(name);
    return false;
  }
  bool IsPropertyEnumerable(FdoString* name) override { return !Info(name).values.empty(); }
  FdoString** EnumeratePropertyValues(FdoString* name, FdoInt32& count) override {
    enumerated_ = Info(name).values;
    count = static_cast<FdoInt32>(enumerated_.size());
    return enumerated_.empty() ? nullptr : enumerated_.data();
  }
  FdoString* GetLocalizedName(FdoString* name) override { return Info(name).name; }
  bool IsPropertyFileName(FdoString* name) override { return Info(name).isFile; }
  bool IsPropertyFilePath(FdoString* name) override {
    PlaceOf(name);
    return false;
  }
  bool IsPropertyDatastoreName(FdoString* name) override { return Info(name).isFile; }

 protected:
  void Dispose() override { delete this; }

 private:
  std::size_t PlaceOf(FdoString* name) const { return settings_.PlaceOf(name == nullptr ? L"" : name); }
  SettingInfo const& Info(FdoString* name) const { return settings_.Known()[PlaceOf(name)]; }

  Settings settings_;
  Changed changed_;
  std::vector<FdoString*> names_;
  std::vector<FdoString*> enumerated_;
};

}  // namespace fdo_provider

#endif  // SDK_PROVIDERS_BASE_PROPERTY_DICTIONARY_H_
