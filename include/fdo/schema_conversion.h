#ifndef FDO_SCHEMA_CONVERSION_H_
#define FDO_SCHEMA_CONVERSION_H_

#include <fdo/export.h>
#include <fdo/schema.h>

class FdoClassDefinition;
class FdoFeatureSchema;

namespace fdo {

// Between this library's definitions and FDO's schema, in both directions. Data types and the mask of
// geometry kinds have the same numbers on both sides. A table's tag travels as the description of its
// identity property, in decimal; a column's coordinate system as the spatial context of that name.
//
// Errors: what FDO throws, such as FdoSchemaException* for a name that it refuses, passes.

// A new class: a feature class when the table has a geometry index, else a plain class. Each column
// becomes a data or geometric property of its name. The identity column becomes a generated property
// that is never null; a default value becomes its text, where it has one. Lengths, precisions and
// scales stay the provider's.
// Gives: one reference.
QUILLON_EXPORT FdoClassDefinition* TableDefToFdoClass(TableDef const& table);

// def becomes the schema: a table for each class, a column for each property.
// Deliberate: properties of other kinds than data and geometry become columns without name and type, so
// that positions are those of the properties (SchemaToDbDef.OtherPropertiesKeepTheirPlaces); only the first
// identity property counts; the class's own geometry property alone makes a geometry index, so that a
// class that is no feature class has none (SchemaToDbDef.OnlyTheDesignatedGeometryCounts).
// coordSys: those that columns are to have, by name; copied. A name that is not among them gives none.
QUILLON_EXPORT void SchemaToDbDef(DatabaseDef& def, FdoFeatureSchema* schema, CoordSys const* coordSys,
                                  int coordSysCount);

}  // namespace fdo

#endif  // FDO_SCHEMA_CONVERSION_H_
