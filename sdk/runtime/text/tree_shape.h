// Trees as text that shows every node, for tests: what FdoFilter::ToString leaves to precedence is
// explicit here, and so are the types of literals.
#ifndef SDK_RUNTIME_TEXT_TREE_SHAPE_H_
#define SDK_RUNTIME_TEXT_TREE_SHAPE_H_

#include <string>

class FdoExpression;
class FdoFilter;

namespace fdo_sdk {

// For example "AND(=(name a, int32 1), NULL(name b))".
std::string ShapeOf(FdoFilter* filter);
std::string ShapeOf(FdoExpression* expression);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_TEXT_TREE_SHAPE_H_
