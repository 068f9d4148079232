# SQLite as a static library for Windows, from its sources in one file; with the parts that Debian's own
# package has.
cmake_minimum_required(VERSION 3.25)
project(sqlite3 LANGUAGES C)
add_library(sqlite3 STATIC sqlite3.c)
target_compile_definitions(sqlite3 PRIVATE
  SQLITE_ENABLE_COLUMN_METADATA
  SQLITE_ENABLE_RTREE
  SQLITE_THREADSAFE=1)
install(TARGETS sqlite3 ARCHIVE DESTINATION lib)
install(FILES sqlite3.h sqlite3ext.h DESTINATION include)
