// Every header of the interface. On Windows a program imports what a class defines inside of itself, too: the
// table of virtual functions of a class that is all interface, above all. The compiler puts that into each file
// that sees it, or, to build faster, into this one only.
#include "Fdo.h"
#include "FdoSpatial.h"
