// How deep texts and trees may go, so that whoever walks them by recursion needs a bounded stack.
#ifndef SDK_RUNTIME_TEXT_TEXT_LIMITS_H_
#define SDK_RUNTIME_TEXT_TEXT_LIMITS_H_

namespace fdo_sdk {

// Levels of parentheses, argument lists, NOT and minus signs within each other, and of geometry
// collections within each other.
inline constexpr int kMaximumNesting = 127;

// Levels of nodes in a tree that was parsed; operators of one chain, such as a + b + c, are a level each.
inline constexpr int kMaximumHeight = 255;

// A longer chain of AND, or of OR, is parsed as a balanced tree, which means the same.
inline constexpr int kLongestLeaningChain = 64;

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_TEXT_TEXT_LIMITS_H_
