// How a query finds its rows, for quillon query --explain.
#ifndef TOOLS_QUILLON_QUERY_PLAN_H_
#define TOOLS_QUILLON_QUERY_PLAN_H_

#include <fdo/table.h>

#include "tools/quillon/open_source.h"
#include "tools/quillon/output.h"
#include "tools/quillon/selection.h"

namespace fdo::tool {

// Writes who finds the rows that meet the filter and, where that is not the source, the program that is
// computed for each row, as text or as one JSON document. Nothing is read.
// Errors: throws Failure for a filter that the table would refuse.
void WriteQueryPlan(Source const& source, Table const& table, BoundSelection const& bound, bool asJson,
                    Output& output);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_QUERY_PLAN_H_
