// Copies of schemas: what a program gets and gives is its own, and changes nothing in the store.
#ifndef TESTING_MEMORY_PROVIDER_SCHEMA_COPY_H_
#define TESTING_MEMORY_PROVIDER_SCHEMA_COPY_H_

#include <string>
#include <vector>

#include "Fdo.h"

namespace memory_provider {

// Give: one reference. Errors: FdoSchemaException* for properties that are neither data nor geometry.
FdoPropertyDefinition* CopyProperty(FdoPropertyDefinition& property);

// Without the base class; its properties are among the copy's own with names, the selection is in order.
FdoClassDefinition* CopyClass(FdoClassDefinition& source, std::vector<std::wstring> const& names);

// With base classes, as far as they are in the same schema.
FdoFeatureSchema* CopySchema(FdoFeatureSchema& source);

}  // namespace memory_provider

#endif  // TESTING_MEMORY_PROVIDER_SCHEMA_COPY_H_
