// The shape of the data, independent of any back end: coordinate systems, columns, tables and the
// schema that holds them.
//
// Names are wide text, compared exactly, case included. Accessors lend pointers into the object that
// stay valid until it is next initialized, copied into, cleaned up or destroyed. Nothing here reports
// an error: unknown names, null among them, give -1 or null, positions are not checked. A definition is built whole and
// replaced whole; there is no way to add a single column or table.
// Threads: look-ups by name remember the last hit, so even const use must not be shared.
#ifndef FDO_SCHEMA_H_
#define FDO_SCHEMA_H_

#include <fdo/export.h>
#include <fdo/value.h>

#include <string>

namespace fdo {

namespace internal {
class NameIndex;
}

// A coordinate system: the name it is known by in its store, its code, and its well-known text.
class QUILLON_EXPORT CoordSys {
 public:
  CoordSys() = default;
  // A null pointer leaves that text empty.
  CoordSys(wchar_t const* name, wchar_t const* code, wchar_t const* wkt);

  wchar_t const* Name() const { return name_.c_str(); }
  wchar_t const* Code() const { return code_.c_str(); }
  wchar_t const* Wkt() const { return wkt_.c_str(); }

 private:
  std::wstring name_;
  std::wstring code_;
  std::wstring wkt_;
};

// A list of coordinate systems, found by name.
class QUILLON_EXPORT CoordSysDef {
 public:
  CoordSysDef() = default;
  CoordSysDef(CoordSysDef const&) = delete;
  CoordSysDef& operator=(CoordSysDef const&) = delete;
  ~CoordSysDef();

  // Replaces the list by copies of those systems.
  void Initialize(CoordSys const* systems, int count);
  void Cleanup();

  int Count() const { return count_; }
  // The position, or -1.
  int IndexOf(wchar_t const* name) const;
  // Requires: 0 <= i && i < Count()
  CoordSys const& operator[](int i) const { return systems_[i]; }
  CoordSys& operator[](int i) { return systems_[i]; }
  // Null when there is no system of that name.
  CoordSys const* operator[](wchar_t const* name) const;

 private:
  CoordSys* systems_ = nullptr;  // owned
  int count_ = 0;
  internal::NameIndex* index_ = nullptr;  // owned; absent while the list is empty
};

// One column of a table.
class QUILLON_EXPORT ColumnDef {
 public:
  // From kBoolean on the numbers are those of FdoDataType. A type that no operation handles is kUnset.
  enum DataType : int {
    kUnset = -2,
    kGeometry = -1,
    kBoolean = 0,
    kByte = 1,
    kDateTime = 2,
    kDecimal = 3,
    kDouble = 4,
    kInt16 = 5,
    kInt32 = 6,
    kInt64 = 7,
    kSingle = 8,
    kString = 9,
    kBlob = 10,
    kClob = 11,
  };

  ColumnDef() = default;
  ColumnDef(ColumnDef const& other);
  ColumnDef& operator=(ColumnDef const& other);
  ~ColumnDef();

  // geomTypes: for a geometry column the mask of what it accepts (1 points, 2 curves, 4 surfaces,
  // 8 solids, 0 unknown), else 0. The coordinate system is copied and may be null.
  void Initialize(wchar_t const* name, DataType type, int geomTypes, Value const& defaultValue,
                  CoordSys const* srs);
  // Deliberate: the default value does not travel; the column keeps the one it has
  // (ColumnDef.CopiesKeepTheirOwnDefaultValue).
  void CopyFrom(ColumnDef const& other);
  // Replaces the column's private copy; null removes it.
  void SetCoordSys(CoordSys const* srs);

  wchar_t const* Name() const { return name_.c_str(); }
  char const* NameUTF8() const { return nameUtf8_.c_str(); }
  DataType Type() const { return type_; }
  int GeomTypes() const { return geomTypes_; }
  CoordSys const* SRS() const { return srs_; }  // null without one
  Value const& DefaultValue() const { return defaultValue_; }

 private:
  std::wstring name_;
  std::string nameUtf8_;
  DataType type_ = kUnset;
  int geomTypes_ = 0;
  CoordSys* srs_ = nullptr;  // owned
  Value defaultValue_;
};

// A table, or feature class: its columns in order, and which of them hold identity and geometry.
class QUILLON_EXPORT TableDef {
 public:
  TableDef() = default;
  TableDef(TableDef const& other);
  TableDef& operator=(TableDef const& other);
  ~TableDef();

  // Replaces the definition by copies of those columns; their default values do not travel (see
  // ColumnDef::CopyFrom). A null schema name keeps the old one. idIndex and geomIndex are positions,
  // -1 for none; the tag is the caller's own number.
  void Initialize(wchar_t const* schemaName, wchar_t const* name, ColumnDef const* columns, int count,
                  int idIndex, int geomIndex, int tag);
  void Initialize(wchar_t const* schemaName, wchar_t const* name, ColumnDef const* const* columns, int count,
                  int idIndex, int geomIndex, int tag);
  void CopyFrom(TableDef const& other);

  wchar_t const* Name() const { return name_.c_str(); }
  wchar_t const* SchemaName() const { return schemaName_.c_str(); }
  int Tag() const { return tag_; }
  int ColumnCount() const { return count_; }

  int IndexOfID() const { return idIndex_; }
  int IndexOfGeom() const { return geomIndex_; }
  bool HasID() const { return idIndex_ >= 0; }
  bool HasGeom() const { return geomIndex_ >= 0; }
  // Requires: HasID()
  ColumnDef const& ID() const { return columns_[idIndex_]; }
  // Requires: HasGeom()
  ColumnDef const& Geom() const { return columns_[geomIndex_]; }

  // Requires: 0 <= i && i < ColumnCount()
  ColumnDef const& operator[](int i) const { return columns_[i]; }
  ColumnDef& operator[](int i) { return columns_[i]; }
  // The position, or -1. Of columns with one name the first is found.
  int IndexOf(wchar_t const* name) const;
  // Null when there is no column of that name.
  ColumnDef const* operator[](wchar_t const* name) const;

 private:
  template <class ColumnAt>
  void SetColumns(int count, ColumnAt columnAt);
  void Discard();

  internal::NameIndex* index_ = nullptr;  // owned; keys point into the columns' names
  ColumnDef* columns_ = nullptr;          // owned
  int count_ = 0;
  int idIndex_ = -1;
  int geomIndex_ = -1;
  int tag_ = 0;
  std::wstring name_;
  std::wstring schemaName_;
};

// A schema: a list of tables.
class QUILLON_EXPORT DatabaseDef {
 public:
  DatabaseDef() = default;
  DatabaseDef(DatabaseDef const&) = delete;
  DatabaseDef& operator=(DatabaseDef const&) = delete;
  ~DatabaseDef();

  // Replaces the schema. A null name gives "".
  // Owns: tables, from now on.
  // Requires: tables was made by new TableDef[n] with n >= count, or is null and count is 0.
  void Initialize(wchar_t const* name, TableDef* tables, int count);
  // Replaces the schema by copies of the other's tables.
  void CopyFrom(DatabaseDef const& other);
  void Cleanup();

  wchar_t const* Name() const { return name_.c_str(); }
  int Count() const { return count_; }

  // The position of a table, or -1. The name may be qualified as schema:table, which tells tables of
  // one name in different schemas apart; a bare name finds the first table of that name.
  int IndexOf(wchar_t const* name) const;
  // Requires: 0 <= i && i < Count()
  TableDef const& operator[](int i) const { return tables_[i]; }
  TableDef& operator[](int i) { return tables_[i]; }
  // Null when there is no such table.
  TableDef const* operator[](wchar_t const* name) const;

 private:
  void BuildIndex();

  internal::NameIndex* index_ = nullptr;  // owned; absent while there are no tables
  TableDef* tables_ = nullptr;            // owned
  int count_ = 0;
  std::wstring name_;
};

}  // namespace fdo

#endif  // FDO_SCHEMA_H_
