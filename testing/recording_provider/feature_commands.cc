// The commands that read and write features.
#include <utility>

#include "testing/recording_provider/commands.h"
#include "testing/recording_provider/live_command.h"
#include "testing/recording_provider/log_text.h"
#include "testing/recording_provider/reader.h"

namespace recording_provider {
namespace {

std::vector<std::wstring> NamesOf(FdoIdentifierCollection& identifiers) {
  std::vector<std::wstring> names;
  for (FdoInt32 i = 0; i < identifiers.GetCount(); ++i) {
    FdoPtr<FdoIdentifier> identifier = identifiers.GetItem(i);
    names.push_back(identifier->GetName());
  }
  return names;
}

// Both selects of features.
template <class Interface, FdoInt32 kType>
class SelectCommand : public memory_provider::FeatureSelectBase<Interface, Connection> {
 public:
  using memory_provider::FeatureSelectBase<Interface, Connection>::FeatureSelectBase;

  FdoIFeatureReader* Execute() override { return Answer(&MakeFeatureReader); }

 protected:
  template <class Reader>
  Reader* Answer(Reader* (*make)(std::shared_ptr<Recorder> const&, memory_provider::Result,
                                 FdoClassDefinition*)) {
    Recorder& recorder = this->connection_.p->Executing();
    recorder.Note(L"select " + std::to_wstring(kType) + ClassSettingText(this->className_) +
                  ListText(L"properties", *this->properties_) + FilterText(this->filter_) + OrderingText());
    if (recorder.answers.nullResults.count(kType) > 0) return nullptr;
    std::wstring const className = BareName(this->className_);
    auto const rows = recorder.answers.selects.find(className);
    memory_provider::Result result;
    if (rows != recorder.answers.selects.end())
      result = rows->second.Selected(recorder.answers.readersHaveAllColumns ? std::vector<std::wstring>()
                                                                            : NamesOf(*this->properties_));
    FdoPtr<FdoClassDefinition> definition = recorder.ReaderDefinition(className);
    return make(this->connection_.p->SharedRecorder(), std::move(result), definition);
  }

 private:
  std::wstring OrderingText() {
    return ListText(L"ordering", *this->ordering_, [this](FdoIdentifier& property) {
      return std::wstring(this->OptionOf(property.GetName()) == FdoOrderingOption_Descending ? L" descending"
                                                                                             : L"");
    });
  }
};

typedef memory_provider::WithOneOption<SelectCommand<FdoISelect, FdoCommandType_Select>> Select;
typedef SelectCommand<FdoIExtendedSelect, FdoCommandType_ExtendedSelect> RowsOfExtendedSelect;

class ExtendedSelect : public memory_provider::ExtendedSelectBase<RowsOfExtendedSelect> {
 public:
  using memory_provider::ExtendedSelectBase<RowsOfExtendedSelect>::ExtendedSelectBase;

  FdoIScrollableFeatureReader* ExecuteScrollable() override { return Answer(&MakeScrollableReader); }
};

typedef memory_provider::WithOneOption<memory_provider::SelectBase<FdoISelectAggregates, Connection>>
    AggregatesBase;

class SelectAggregates : public AggregatesBase {
 public:
  using AggregatesBase::WithOneOption;

  FdoIDataReader* Execute() override {
    Recorder& recorder = connection_.p->Executing();
    recorder.Note(L"aggregate 47" + ClassSettingText(className_) + ListText(L"properties", *properties_) +
                  FilterText(filter_) + ListText(L"grouping", *grouping_) +
                  ListText(L"ordering", *ordering_) + (distinct_ ? L" distinct" : L""));
    if (recorder.answers.nullResults.count(FdoCommandType_SelectAggregates) > 0) return nullptr;
    return MakeDataReader(connection_.p->SharedRecorder(),
                          recorder.answers.aggregates.Selected(NamesOf(*properties_)));
  }
  void SetDistinct(bool value) override { Take(distinct_, value); }
  bool GetDistinct() override { return Given(distinct_); }
  FdoIdentifierCollection* GetGrouping() override { return Shared(grouping_); }
  void SetGroupingFilter(FdoFilter* filter) override { Share(groupingFilter_, filter); }
  FdoFilter* GetGroupingFilter() override { return Shared(groupingFilter_); }

 private:
  bool distinct_ = false;
  FdoPtr<FdoIdentifierCollection> grouping_ = FdoIdentifierCollection::Create();
  FdoPtr<FdoFilter> groupingFilter_;
};

class Insert : public memory_provider::ClassCommandBase<FdoIInsert, Connection> {
 public:
  using memory_provider::ClassCommandBase<FdoIInsert, Connection>::ClassCommandBase;

  FdoPropertyValueCollection* GetPropertyValues() override { return Shared(values_); }
  FdoBatchParameterValueCollection* GetBatchParameterValues() override { return Shared(batch_); }
  FdoIFeatureReader* Execute() override {
    Recorder& recorder = connection_.p->Executing();
    recorder.Note(L"insert 1" + ClassSettingText(className_) + ValuesText(*values_));
    if (recorder.answers.nullResults.count(FdoCommandType_Insert) > 0) return nullptr;
    FdoPtr<FdoClassDefinition> definition = recorder.ReaderDefinition(BareName(className_));
    return MakeFeatureReader(connection_.p->SharedRecorder(), recorder.answers.inserted.Selected({}),
                             definition);
  }

 protected:
  FdoPtr<FdoPropertyValueCollection> values_ = FdoPropertyValueCollection::Create();

 private:
  FdoPtr<FdoBatchParameterValueCollection> batch_ = FdoBatchParameterValueCollection::Create();
};

class Update : public memory_provider::FeatureCommandBase<FdoIUpdate, Connection> {
 public:
  using memory_provider::FeatureCommandBase<FdoIUpdate, Connection>::FeatureCommandBase;

  FdoPropertyValueCollection* GetPropertyValues() override { return Shared(values_); }
  FdoInt32 Execute() override {
    Recorder& recorder = connection_.p->Executing();
    recorder.Note(L"update 3" + ClassSettingText(className_) + FilterText(filter_) + ValuesText(*values_));
    return recorder.answers.updated;
  }
  FdoILockConflictReader* GetLockConflicts() override {
    Enter();
    memory_provider::RefuseLocks();
  }

 protected:
  FdoPtr<FdoPropertyValueCollection> values_ = FdoPropertyValueCollection::Create();
};

class Delete : public memory_provider::FeatureCommandBase<FdoIDelete, Connection> {
 public:
  using memory_provider::FeatureCommandBase<FdoIDelete, Connection>::FeatureCommandBase;

  FdoInt32 Execute() override {
    Recorder& recorder = connection_.p->Executing();
    recorder.Note(L"delete 2" + ClassSettingText(className_) + FilterText(filter_));
    return recorder.answers.removed;
  }
  FdoILockConflictReader* GetLockConflicts() override {
    Enter();
    memory_provider::RefuseLocks();
  }
};

}  // namespace

FdoICommand* MakeSelect(Connection* connection) { return MakeLive<Select>(connection); }

FdoICommand* MakeExtendedSelect(Connection* connection) { return MakeLive<ExtendedSelect>(connection); }

FdoICommand* MakeSelectAggregates(Connection* connection) { return MakeLive<SelectAggregates>(connection); }

FdoICommand* MakeInsert(Connection* connection) { return MakeLive<Insert>(connection); }

FdoICommand* MakeUpdate(Connection* connection) { return MakeLive<Update>(connection); }

FdoICommand* MakeDelete(Connection* connection) { return MakeLive<Delete>(connection); }

}  // namespace recording_provider
