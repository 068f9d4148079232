// What an insert command may offer beside the published interface: a feature in one call. A program asks a
// command for it with dynamic_cast, and fills the command's property values where there is none.
#ifndef SDK_EXTENSIONS_DIRECT_INSERT_H_
#define SDK_EXTENSIONS_DIRECT_INSERT_H_

#include <Fdo.h>

#include "sdk/extensions/direct_cells.h"

namespace fdo_sdk {

// A value that is given. Of which kind it is depends on what the property's value object is:
//
//   Boolean                        kFlag
//   Byte, Int16, Int32, Int64      kInteger, within the range of the type
//   Single, Double, Decimal        kReal; of a Single, a number that it can hold
//   DateTime, String               kMoment, kText
//   BLOB, CLOB, geometry           kBytes, of 0 or more
//
// or kNull for any of them, and kNone for a property without a value object.
struct DirectValue {
  DirectKind kind;
  DirectCell cell;
};

class DirectInsert {
 public:
  // Does what FdoIInsert::Execute does when the value object of each property of the command's collection has
  // been set to the value in the same place. The objects themselves are neither read nor changed.
  // inserted: where the reader goes that Execute gives, with one reference; null where nobody wants it.
  // Borrowed: the values, until the call returns.
  // Requires: a value for each property. Since the collection was last changed no property has got another
  //   name or another object.
  // Errors: false, and nothing is done, where the caller is to use Execute, now and until the collection
  //   changes; what Execute throws.
  virtual bool ExecuteWith(DirectValue const* values, FdoIFeatureReader** inserted) = 0;

 protected:
  DirectInsert() = default;
  ~DirectInsert() = default;
};

}  // namespace fdo_sdk

#endif  // SDK_EXTENSIONS_DIRECT_INSERT_H_
