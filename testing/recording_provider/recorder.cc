#include "testing/recording_provider/recorder.h"

#include <algorithm>
#include <stdexcept>

namespace recording_provider {

std::string Recorder::TakeLog() {
  FdoStringP const wide(log_.c_str());
  log_.clear();
  return static_cast<char const*>(wide);
}

void Recorder::ThrowAt(int n) {
  calls_ = 0;
  throwAt_ = n;
  threw_ = false;
}

std::wstring Recorder::MessageOfCall(int n) {
  return L"The provider fails at call " + std::to_wstring(n) + L".";
}

int Recorder::LiveObjects() {
  watched_.erase(std::remove_if(watched_.begin(), watched_.end(),
                                [](std::function<bool()> const& isLive) { return !isLive(); }),
                 watched_.end());
  auto const lent = std::count_if(elements_.begin(), elements_.end(), [](auto const& element) {
    return element.first->GetRefCount() > element.second;
  });
  return live_ + static_cast<int>(watched_.size()) + static_cast<int>(lent);
}

void Recorder::Called() {
  if (++calls_ != throwAt_) return;
  threw_ = true;
  throw FdoException::Create(MessageOfCall(calls_).c_str());
}

void Recorder::Note(std::wstring const& line) { log_ += line + L"\n"; }

// The caller holds one of the references, and only for the time of the call.
void Recorder::WatchClass(FdoClassDefinition& definition) {
  elements_.emplace(&definition, definition.GetRefCount() - 1);
  FdoPtr<FdoPropertyDefinitionCollection> properties = definition.GetProperties();
  for (FdoInt32 i = 0; i < properties->GetCount(); ++i) {
    FdoPtr<FdoPropertyDefinition> property = properties->GetItem(i);
    elements_.emplace(property.p, property->GetRefCount() - 1);
  }
}

FdoFeatureSchemaCollection* Recorder::Schemas(std::wstring const& name) {
  if (!answers.schemas) return nullptr;
  FdoPtr<FdoFeatureSchemaCollection> given = FdoFeatureSchemaCollection::Create(nullptr);
  for (FdoPtr<FdoFeatureSchema> const& schema : *answers.schemas) {
    if (!name.empty() && name != schema->GetName()) continue;
    elements_.emplace(schema.p, schema->GetRefCount());
    FdoPtr<FdoClassCollection> classes = schema->GetClasses();
    for (FdoInt32 i = 0; i < classes->GetCount(); ++i) {
      FdoPtr<FdoClassDefinition> definition = classes->GetItem(i);
      WatchClass(*definition);
    }
    given->Add(schema);
  }
  Watch(given.p);
  return given.Detach();
}

FdoClassDefinition* Recorder::ReaderDefinition(std::wstring const& className) {
  FdoPtr<FdoClassDefinition> definition;
  auto const stated = answers.readerDefinitions.find(className);
  if (stated != answers.readerDefinitions.end()) {
    definition = stated->second;
  } else if (answers.schemas) {
    for (FdoPtr<FdoFeatureSchema> const& schema : *answers.schemas) {
      FdoPtr<FdoClassCollection> classes = schema->GetClasses();
      definition = classes->FindItem(className.c_str());
      if (definition != nullptr) break;
    }
  }
  if (definition != nullptr) WatchClass(*definition);
  return definition.Detach();
}

int FailEveryCall(Recorder& recorder, std::function<void(int)> const& attempt) {
  for (int n = 1;; ++n) {
    recorder.ThrowAt(n);
    attempt(n);
    bool const threw = recorder.Threw();
    recorder.ThrowAt(0);
    if (!threw) return n - 1;
  }
}

}  // namespace recording_provider
