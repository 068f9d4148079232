// The languages in which GDAL's layers take conditions.
#ifndef OGR_BACKEND_FILTER_LANGUAGE_H_
#define OGR_BACKEND_FILTER_LANGUAGE_H_

namespace fdo::internal {

enum class FilterLanguage {
  // GDAL's own dialect, which it computes for each feature: text has no case but in LIKE, as set up, and
  // counts in bytes; NaN differs from everything.
  kGdal,
  // The store runs conditions as its own SQL: a null makes them unknown, and a bad one is noticed only when
  // the rows are asked for.
  kSqlite,
  kPostgreSql,  // where text has the database's order, and NaN is equal to NaN and above all numbers
  // Nobody knows what a condition means there, so it gets none.
  kUnknown,
};

inline bool IsSql(FilterLanguage language) {
  return language == FilterLanguage::kSqlite || language == FilterLanguage::kPostgreSql;
}

}  // namespace fdo::internal

#endif  // OGR_BACKEND_FILTER_LANGUAGE_H_
