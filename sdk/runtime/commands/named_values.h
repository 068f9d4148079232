// The search by name that the collections of values have in common.
#ifndef SDK_RUNTIME_COMMANDS_NAMED_VALUES_H_
#define SDK_RUNTIME_COMMANDS_NAMED_VALUES_H_

#include <cwchar>
#include <string>

#include "Fdo/Commands/CommandException.h"

namespace fdo_sdk {

// Gives: one reference, or null. nameOf gives the name of an item, or null; it is borrowed until the
// next call.
template <class Item, class NameOf>
Item* FindNamed(FdoCollection<Item, FdoCommandException> const& items, FdoString* name, NameOf nameOf) {
  if (name == nullptr) return nullptr;
  FdoInt32 const count = items.GetCount();
  for (FdoInt32 i = 0; i < count; ++i) {
    FdoPtr<Item> item = items.GetItem(i);
    FdoString* itemName = item == nullptr ? nullptr : nameOf(*item);
    if (itemName != nullptr && std::wcscmp(itemName, name) == 0) return item.Detach();
  }
  return nullptr;
}

[[noreturn]] inline void ThrowNoItem(FdoString* what, FdoString* name) {
  std::wstring const message = std::wstring(L"There is no ") + what + L" \"" +
                               (name == nullptr ? L"" : name) + L"\" in the collection.";
  throw FdoCommandException::Create(message.c_str());
}

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_COMMANDS_NAMED_VALUES_H_
