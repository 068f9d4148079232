#include "ogr_backend/gdal_absence.h"

#include "ogr_backend/gdal_binding.h"

namespace fdo {

bool IsWithoutGdal() { return QUILLON_GDAL_MAY_BE_ABSENT && internal::Gdal() == nullptr; }

}  // namespace fdo
