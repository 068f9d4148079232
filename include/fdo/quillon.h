// All of Quillon's public headers. FDO's own classes, such as the filters that a query takes, come
// with <Fdo.h>.
#ifndef FDO_QUILLON_H_
#define FDO_QUILLON_H_

#include <fdo/connection_string.h>
#include <fdo/database.h>
#include <fdo/database_fdo.h>
#include <fdo/database_ogr.h>
#include <fdo/db_pool.h>
#include <fdo/diagnostics.h>
#include <fdo/expr_eval.h>
#include <fdo/geometry_stream.h>
#include <fdo/providers.h>
#include <fdo/row.h>
#include <fdo/scroller.h>
#include <fdo/schema.h>
#include <fdo/schema_conversion.h>
#include <fdo/table.h>
#include <fdo/table_fdo.h>
#include <fdo/text_conversion.h>
#include <fdo/value.h>

#endif  // FDO_QUILLON_H_
