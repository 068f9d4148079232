// New data sources from table definitions.
#ifndef OGR_BACKEND_SOURCE_CREATOR_H_
#define OGR_BACKEND_SOURCE_CREATOR_H_

#include <fdo/schema.h>

#include <memory>
#include <string>

#include "ogr_backend/gdal_source.h"

namespace fdo::internal {

// Creates a data source with a layer for each table; see DatabaseOgr::Create.
// Errors: null; error says why, in UTF-8, and nothing is left at path.
std::unique_ptr<GdalSource> CreateSource(GdalApi const& gdal, std::string const& path,
                                         std::string const& driver, DatabaseDef const& def,
                                         std::string& error);

// The short name of the driver that creates vector data under the extension of that path; "" if none.
std::string DriverNameForPath(GdalApi const& gdal, std::string const& path);

}  // namespace fdo::internal

#endif  // OGR_BACKEND_SOURCE_CREATOR_H_
