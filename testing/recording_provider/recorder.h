// A provider for tests of what talks to providers. It does nothing with data: it gives the answers that a
// test states, writes down what it is asked, fails at the call that a test names, and counts what was not
// released.
//
//   std::shared_ptr<Recorder> recorder = std::make_shared<Recorder>();
//   recorder->answers.selects[L"parcels"] = Rows({Id(L"id")}).Add({7});
//   FdoPtr<FdoIConnection> connection = NewConnection(recorder);
//   ...
//   EXPECT_EQ(recorder->TakeLog(), "open\nmake 53\nselect 53 class=Land:parcels properties=[id]\n");
//   connection = nullptr;
//   EXPECT_EQ(recorder->LiveObjects(), 0);
//
// The library quillon_recording_provider, which holds all this, is a provider too: its CreateConnection gives
// connections of the recorder that SetLibraryRecorder names. In CMake, use_recording_provider(TEST) links a
// test with it and registers it for the test under kProviderName.
//
// Threads: a recorder and what is made from it belong to one thread at a time.
#ifndef TESTING_RECORDING_PROVIDER_RECORDER_H_
#define TESTING_RECORDING_PROVIDER_RECORDER_H_

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "testing/recording_provider/answers.h"

namespace recording_provider {

class Recorder {
 public:
  Answers answers;

  // What was done since the last TakeLog, a line for each, in order and in UTF-8. Properties that are at
  // their default are left out:
  //   connection string File="a";       open, close, flush, close reader
  //   configuration <xml>               CreateCommand:  make 53
  //   select 53 class=S:c properties=[id,Count() AS n] filter=id = 5 ordering=[name descending,id]
  //   aggregate 47 class=c properties=[Count() AS TheCount] filter=... grouping=[a] distinct
  //   insert 1 class=c values=[name='x',shape=NULL]      update 3 class=c filter=... values=[...]
  //   delete 2 class=c filter=...                        describe 4 schema=S
  //   apply 6 ignoring states schema=S classes=[c{id:Int64 identity generated,shape:geometry 15 in WGS84}]
  //   context 9 name=N system=C wkt=W                    contexts 11
  //   store 48 File=a UseFdoMetadata=TRUE
  std::string TakeLog();

  // Calls of operations that this provider implements, each once, since the last ThrowAt; an FdoException* is
  // thrown by the nth, before it does or records anything. With n = 0 none is.
  void ThrowAt(int n);
  int Calls() const { return calls_; }
  bool Threw() const { return threw_; }
  static std::wstring MessageOfCall(int n);  // "The provider fails at call 7."

  // Connections, commands, readers, dictionaries, the collections and definitions that these gave and the
  // described elements, as far as somebody else still holds references to them.
  int LiveObjects();

  // For the parts of the provider.
  void Called();  // counts; Errors: FdoException* at the call that the test named
  void Note(std::wstring const& line);
  void Count(int objects) { live_ += objects; }

  // Counts the object as live as long as somebody beside this recorder holds it. Object has GetRefCount().
  template <class Object>
  void Watch(Object* object) {
    FdoPtr<Object> held(FDO_SAFE_ADDREF(object));
    watched_.push_back([held] { return held.p->GetRefCount() > 1; });
  }

  // The schema of a name, or all of them. Gives: one reference, or null when there is no list.
  FdoFeatureSchemaCollection* Schemas(std::wstring const& name);
  // The definition that readers of a class give. Gives: one reference, or null.
  FdoClassDefinition* ReaderDefinition(std::wstring const& className);

 private:
  void WatchClass(FdoClassDefinition& definition);

  std::wstring log_;
  int calls_ = 0;
  int throwAt_ = 0;
  bool threw_ = false;
  int live_ = 0;
  std::vector<std::function<bool()>> watched_;  // whether each is live
  // The elements of the answers that were given once, with the references that they had then.
  std::map<FdoSchemaElement*, FdoInt32> elements_;
};

// Registered for tests that use_recording_provider was called for.
inline constexpr wchar_t kProviderName[] = L"Quillon.Recording.1.0";

// Gives: one reference to a connection that is closed.
FdoIConnection* NewConnection(std::shared_ptr<Recorder> const& recorder);

// Whose connections CreateConnection gives from now on; without one it gives null.
void SetLibraryRecorder(std::shared_ptr<Recorder> const& recorder);

// Runs the operation with every call failing in turn, until it ends without reaching the failing one.
// attempt(n) does the whole from a new connection to the last release, and checks what the caller sees;
// afterwards nothing may be live. Gives: how many calls were made to fail.
int FailEveryCall(Recorder& recorder, std::function<void(int)> const& attempt);

}  // namespace recording_provider

#endif  // TESTING_RECORDING_PROVIDER_RECORDER_H_
