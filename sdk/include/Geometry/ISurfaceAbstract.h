// FdoISurfaceAbstract is the base of the geometries of one surface.
#ifndef GEOMETRY_I_SURFACE_ABSTRACT_H_
#define GEOMETRY_I_SURFACE_ABSTRACT_H_

#include "Geometry/IGeometry.h"

class FdoISurfaceAbstract : public FdoIGeometry {};

#endif  // GEOMETRY_I_SURFACE_ABSTRACT_H_
