// FdoPtr, FdoArray and the collections.
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <thread>
#include <vector>

#include "FdoCommon.h"
#include "port/live_allocations.h"

namespace {

// An object that counts how many of its kind are alive.
class Counted : public FdoIDisposable {
 public:
  static int alive;
  static Counted* Create(FdoString* name = L"") { return new Counted(name); }
  FdoString* GetName() { return m_name; }
  FdoBoolean CanSetName() { return true; }
  void SetName(FdoString* name) { m_name = name; }

 protected:
  explicit Counted(FdoString* name) : m_name(name) { ++alive; }
  ~Counted() override { --alive; }
  void Dispose() override { delete this; }

 private:
  FdoStringP m_name;
};

int Counted::alive = 0;

class CountedList : public FdoCollection<Counted, FdoException> {
 public:
  static CountedList* Create() { return new CountedList(); }

 protected:
  void Dispose() override { delete this; }
};

class NamedList : public FdoNamedCollection<Counted, FdoException> {
 public:
  static NamedList* Create(bool caseSensitive = true) { return new NamedList(caseSensitive); }

 protected:
  explicit NamedList(bool caseSensitive) : FdoNamedCollection(caseSensitive) {}
  void Dispose() override { delete this; }
};

template <class Call>
std::string MessageOf(Call call) {
  try {
    call();
  } catch (FdoException* caught) {
    FdoPtr<FdoException> failure(caught);
    return static_cast<char const*>(FdoStringP(failure->GetExceptionMessage()));
  }
  return "nothing thrown";
}

TEST(Ptr, RawPointersAreTakenOverAndCopiesAddAReference) {
  {
    FdoPtr<Counted> first = Counted::Create();
    EXPECT_EQ(first.p->GetRefCount(), 1);
    FdoPtr<Counted> second = first;
    EXPECT_EQ(first.p->GetRefCount(), 2);
    FdoPtr<FdoIDisposable> base = first;
    EXPECT_EQ(first.p->GetRefCount(), 3);
    second = Counted::Create();
    EXPECT_EQ(first.p->GetRefCount(), 2);
    EXPECT_EQ(Counted::alive, 2);
    second = first;
    EXPECT_EQ(Counted::alive, 1);
    FdoPtr<Counted> const& itself = second;
    second = itself;
    EXPECT_EQ(first.p->GetRefCount(), 3);
    second.Release();
    EXPECT_TRUE(!second);
  }
  EXPECT_EQ(Counted::alive, 0);
}

TEST(Ptr, DetachGivesTheReferenceAwayAndCopyToAddsOne) {
  FdoPtr<Counted> object = Counted::Create();
  Counted* copy = nullptr;
  EXPECT_TRUE(object.CopyTo(&copy));
  EXPECT_FALSE(object.CopyTo(nullptr));
  EXPECT_EQ(object.p->GetRefCount(), 2);
  FDO_SAFE_RELEASE(copy);
  EXPECT_EQ(copy, nullptr);
  Counted* raw = object.Detach();
  EXPECT_EQ(object.p, nullptr);
  EXPECT_EQ(FDO_SAFE_ADDREF(raw), raw);
  EXPECT_EQ(raw->Release(), 1);
  object.Attach(raw);
  EXPECT_EQ(Counted::alive, 1);
  object = nullptr;
  EXPECT_EQ(Counted::alive, 0);
}

TEST(ReferenceCount, IsExactOnManyThreadsWhenLockingIsEnabled) {
  FdoPtr<Counted> perObject = Counted::Create();
  perObject->EnableObjectThreadLocking(true);
  FdoPtr<Counted> global = Counted::Create();
  EXPECT_FALSE(FdoIDisposable::GetGlobalThreadLockingFlag());
  auto const hammer = [](Counted* object) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
      threads.emplace_back([object] {
        for (int n = 0; n < 20000; ++n) FdoPtr<Counted> hold = FDO_SAFE_ADDREF(object);
      });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(object->GetRefCount(), 1);
  };
  hammer(perObject.p);
  FdoIDisposable::EnableGlobalThreadLocking(true);
  hammer(global.p);
  FdoIDisposable::EnableGlobalThreadLocking(false);
}

TEST(Array, GrowsAndKeepsItsElements) {
  long long const before = fdo::port::LiveAllocations();
  {
    FdoPtr<FdoIntArray> array = FdoIntArray::Create();
    EXPECT_EQ(array->GetCount(), 0);
    EXPECT_EQ(array->GetData(), nullptr);
    for (FdoInt32 i = 0; i < 1000; ++i) array = FdoIntArray::Append(array.Detach(), i);
    ASSERT_EQ(array->GetCount(), 1000);
    for (FdoInt32 i = 0; i < 1000; ++i) ASSERT_EQ((*array)[i], i);
    array = FdoIntArray::SetSize(array.Detach(), 2000);
    EXPECT_EQ((*array)[999], 999);
    EXPECT_EQ((*array)[1999], 0);
    array->Clear();
    EXPECT_EQ(array->GetCount(), 0);

    FdoPtr<FdoDoubleArray> reserved = FdoDoubleArray::Create(10);
    EXPECT_EQ(reserved->GetCount(), 0);
    EXPECT_NE(reserved->GetData(), nullptr);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(reserved->GetData()) % alignof(double), 0u);
  }
  EXPECT_EQ(fdo::port::LiveAllocations(), before);
}

TEST(Array, GrowingASharedArrayLeavesTheOthersTheirs) {
  FdoByte const bytes[] = {1, 2, 3};
  FdoPtr<FdoByteArray> first = FdoByteArray::Create(bytes, 3);
  FdoPtr<FdoByteArray> second = first;
  second = FdoByteArray::Append(second.Detach(), FdoByte{4});
  EXPECT_EQ(first->GetCount(), 3);
  EXPECT_EQ(first.p->GetRefCount(), 1);
  EXPECT_EQ(second->GetCount(), 4);
  EXPECT_EQ((*second)[3], 4);
}

TEST(Array, WrongIndexesAndSizesThrow) {
  FdoPtr<FdoByteArray> array = FdoByteArray::Create(3);
  EXPECT_NE(MessageOf([&] { (void)(*array)[0]; }), "nothing thrown");
  EXPECT_NE(MessageOf([&] { (void)(*array)[-1]; }), "nothing thrown");
  EXPECT_NE(MessageOf([&] { FdoByteArray::SetSize(array, -1); }), "nothing thrown");
  EXPECT_NE(MessageOf([] { FdoDoubleArray::Create(-5); }), "nothing thrown");
}

TEST(Collection, HoldsOneReferenceToEachItem) {
  FdoPtr<CountedList> list = CountedList::Create();
  FdoPtr<Counted> item = Counted::Create();
  EXPECT_EQ(list->Add(item), 0);
  EXPECT_EQ(item.p->GetRefCount(), 2);
  list->Insert(0, item);
  list->Insert(2, item);
  EXPECT_EQ(list->GetCount(), 3);
  FdoPtr<Counted> other = Counted::Create();
  list->SetItem(1, other);
  EXPECT_EQ(item.p->GetRefCount(), 3);
  EXPECT_EQ(list->IndexOf(other), 1);
  EXPECT_TRUE(list->Contains(item));
  list->Remove(item);
  EXPECT_EQ(list->IndexOf(other), 0);
  list->RemoveAt(0);
  EXPECT_FALSE(list->Contains(other));
  {
    FdoPtr<Counted> read = list->GetItem(0);
    EXPECT_EQ(read.p, item.p);
    EXPECT_EQ(item.p->GetRefCount(), 3);
  }
  list->Clear();
  EXPECT_EQ(item.p->GetRefCount(), 1);
  list = nullptr;
  item = nullptr;
  other = nullptr;
  EXPECT_EQ(Counted::alive, 0);
}

TEST(Collection, WrongPositionsThrowAndChangeNothing) {
  FdoPtr<CountedList> list = CountedList::Create();
  FdoPtr<Counted> item = Counted::Create();
  list->Add(item);
  EXPECT_EQ(MessageOf([&] { list->GetItem(1); }), "Position 1 is outside the collection (0 to 0).");
  EXPECT_EQ(MessageOf([&] { list->GetItem(-1); }), "Position -1 is outside the collection (0 to 0).");
  EXPECT_EQ(MessageOf([&] { list->Insert(2, item); }), "Position 2 is outside the collection (0 to 1).");
  EXPECT_EQ(MessageOf([&] { list->RemoveAt(1); }), "Position 1 is outside the collection (0 to 0).");
  EXPECT_EQ(MessageOf([&] { list->Remove(nullptr); }), "The item to remove is not in the collection.");
  EXPECT_EQ(item.p->GetRefCount(), 2);
}

TEST(NamedCollection, FindsByNameAndRefusesASecondItemOfAName) {
  FdoPtr<NamedList> list = NamedList::Create();
  FdoPtr<Counted> road = Counted::Create(L"road");
  FdoPtr<Counted> river = Counted::Create(L"river");
  FdoPtr<Counted> twin = Counted::Create(L"road");
  list->Add(road);
  list->Add(river);
  EXPECT_EQ(MessageOf([&] { list->Add(twin); }), "The collection has an item \"road\" already.");
  EXPECT_EQ(MessageOf([&] { list->Insert(0, twin); }), "The collection has an item \"road\" already.");
  EXPECT_EQ(MessageOf([&] { list->SetItem(1, twin); }), "The collection has an item \"road\" already.");
  list->SetItem(0, twin);
  EXPECT_EQ(list->GetCount(), 2);
  FdoPtr<Counted> found = list->GetItem(L"river");
  EXPECT_EQ(found.p, river.p);
  EXPECT_EQ(list->FindItem(L"lake"), nullptr);
  EXPECT_EQ(MessageOf([&] { list->GetItem(L"lake"); }), "There is no item \"lake\" in the collection.");
  EXPECT_EQ(MessageOf([&] { list->IndexOf(static_cast<FdoString*>(nullptr)); }),
            "The name to look for is null.");
  // Deliberate: Contains compares by name, IndexOf by identity.
  EXPECT_TRUE(list->Contains(road));
  EXPECT_EQ(list->IndexOf(road), -1);
  EXPECT_FALSE(list->Contains(L"Road"));
  list->SetCaseSensitive(false);
  EXPECT_TRUE(list->Contains(L"Road"));
  river->SetName(L"stream");
  EXPECT_EQ(list->IndexOf(L"stream"), 1);
  EXPECT_EQ(list->IndexOf(L"river"), -1);
}

TEST(StringCollection, SplitsJoinsAndSearches) {
  FdoPtr<FdoStringCollection> pieces = FdoStringCollection::Create(FdoStringP(L"a,b;;c"), L",;");
  ASSERT_EQ(pieces->GetCount(), 3);
  EXPECT_STREQ(pieces->ToString(), L"a, b, c");
  FdoPtr<FdoStringCollection> all = FdoStringCollection::Create(FdoStringP(L"a,b;;c"), L",;", true);
  EXPECT_STREQ(all->ToString(L"|"), L"a|b||c");
  EXPECT_EQ(pieces->IndexOf(FdoStringP(L"B")), -1);
  EXPECT_EQ(pieces->IndexOf(FdoStringP(L"B"), false), 1);
  FdoStringsP sum = FDO_SAFE_ADDREF(pieces.p);
  FdoStringsP const more = sum + FdoStringP(L"d");
  EXPECT_STREQ(more->ToString(), L"a, b, c, d");
  EXPECT_EQ(pieces->GetCount(), 3);
  sum += FdoStringP(L"e");
  EXPECT_EQ(pieces->GetCount(), 4);
  pieces->Append(*pieces.p);
  EXPECT_EQ(pieces->GetCount(), 8);
}

TEST(Dictionary, HoldsNamedValues) {
  FdoPtr<FdoDictionary> dictionary = FdoDictionary::Create();
  FdoPtr<FdoDictionaryElement> element = FdoDictionaryElement::Create(L"name", L"value");
  dictionary->Add(element);
  element->SetValue(L"changed");
  FdoPtr<FdoDictionaryElement> found = dictionary->GetItem(L"name");
  EXPECT_STREQ(found->GetValue(), L"changed");
}

}  // namespace
