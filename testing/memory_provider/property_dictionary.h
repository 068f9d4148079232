// The settings of a connection or of a new data store, as a dictionary.
#ifndef TESTING_MEMORY_PROVIDER_PROPERTY_DICTIONARY_H_
#define TESTING_MEMORY_PROVIDER_PROPERTY_DICTIONARY_H_

#include <functional>
#include <string>

#include "Fdo.h"
#include "testing/memory_provider/connection_string.h"

namespace memory_provider {

// Implements either of the two dictionaries of the interface. The settings are read at the start, and each
// change is shown to the maker.
template <class Interface>
class PropertyDictionary : public Interface {
 public:
  typedef std::function<void(Settings const&)> Changed;

  PropertyDictionary(Settings const& settings, Changed changed)
      : settings_(settings), changed_(std::move(changed)) {}

  FdoString** GetPropertyNames(FdoInt32& count) override {
    count = 2;
    return names_;
  }
  FdoString* GetProperty(FdoString* name) override { return Existing(name).c_str(); }
  void SetProperty(FdoString* name, FdoString* value) override {
    Settings settings = settings_;
    Existing(name);
    *SettingNamed(settings, name) = value == nullptr ? L"" : value;
    changed_(settings);
    settings_ = settings;
  }
  FdoString* GetPropertyDefault(FdoString* name) override {
    Existing(name);
    return L"";
  }
  bool IsPropertyRequired(FdoString* name) override { return IsPropertyFileName(name); }
  bool IsPropertyProtected(FdoString* name) override { return Known(name, false); }
  bool IsPropertyEnumerable(FdoString* name) override { return Known(name, false); }
  FdoString** EnumeratePropertyValues(FdoString* name, FdoInt32& count) override {
    Existing(name);
    count = 0;
    return nullptr;
  }
  FdoString* GetLocalizedName(FdoString* name) override {
    return &Existing(name) == &settings_.file ? names_[0] : names_[1];
  }
  bool IsPropertyFileName(FdoString* name) override { return &Existing(name) == &settings_.file; }
  bool IsPropertyFilePath(FdoString* name) override { return Known(name, false); }
  bool IsPropertyDatastoreName(FdoString* name) override { return IsPropertyFileName(name); }

 protected:
  void Dispose() override { delete this; }

 private:
  std::wstring& Existing(FdoString* name) {
    std::wstring const text = name == nullptr ? L"" : name;
    std::wstring* setting = SettingNamed(settings_, text);
    if (setting == nullptr) {
      throw FdoConnectionException::Create((L"There is no setting \"" + text + L"\".").c_str());
    }
    return *setting;
  }
  bool Known(FdoString* name, bool answer) {
    Existing(name);
    return answer;
  }

  Settings settings_;
  Changed changed_;
  FdoString* names_[2] = {L"File", L"UseFdoMetadata"};
};

}  // namespace memory_provider

#endif  // TESTING_MEMORY_PROVIDER_PROPERTY_DICTIONARY_H_
