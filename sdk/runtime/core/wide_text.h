// The texts that objects of the interface own: ended by 0, made with new wchar_t[].
#ifndef SDK_RUNTIME_CORE_WIDE_TEXT_H_
#define SDK_RUNTIME_CORE_WIDE_TEXT_H_

#include <cwchar>
#include <string_view>

namespace fdo_sdk {

// Gives: a copy, for delete[].
inline wchar_t* CopyText(std::wstring_view text) {
  wchar_t* copy = new wchar_t[text.size() + 1];
  if (!text.empty()) std::wmemcpy(copy, text.data(), text.size());
  copy[text.size()] = 0;
  return copy;
}

// As above, null for null.
inline wchar_t* CopyText(wchar_t const* text) {
  return text == nullptr ? nullptr : CopyText(std::wstring_view(text));
}

// The copy is made first: the new text may be part of the old one.
inline void ReplaceText(wchar_t*& slot, wchar_t const* text) {
  wchar_t* copy = CopyText(text);
  delete[] slot;
  slot = copy;
}

// Makes the text that of a node; gives it, borrowed until the next call.
inline wchar_t const* KeepText(wchar_t*& slot, std::wstring_view text) {
  wchar_t* copy = CopyText(text);
  delete[] slot;
  return slot = copy;
}

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_CORE_WIDE_TEXT_H_
