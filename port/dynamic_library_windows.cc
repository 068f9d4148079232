#include <windows.h>

#include <algorithm>

#include "port/dynamic_library.h"
#include "port/utf16_windows.h"

namespace fdo::port {

char const kLibraryPrefix[] = "";
char const kLibrarySuffix[] = ".dll";

void* LoadLibraryByName(char const* fileName) {
  std::wstring name = Utf16FromUtf8(fileName);
  std::replace(name.begin(), name.end(), L'/', L'\\');
  // What a library with a full path needs is looked for beside it, as GDAL's many libraries want.
  bool const hasFullPath = name.find(L":\\") == 1 || name.rfind(L"\\\\", 0) == 0;
  // A file that is missing or no library is a null, not a dialogue.
  DWORD modeBefore = 0;
  SetThreadErrorMode(SEM_FAILCRITICALERRORS, &modeBefore);
  HMODULE const library =
      LoadLibraryExW(name.c_str(), nullptr, hasFullPath ? LOAD_WITH_ALTERED_SEARCH_PATH : 0);
  DWORD const failure = GetLastError();
  SetThreadErrorMode(modeBefore, nullptr);
  SetLastError(failure);
  return reinterpret_cast<void*>(library);
}

std::string LoadFailure() {
  DWORD const code = GetLastError();
  wchar_t text[512] = {};
  DWORD const length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                      code, 0, text, 512, nullptr);
  std::wstring message(text, length);
  while (!message.empty() && (message.back() == L'\n' || message.back() == L'\r')) message.pop_back();
  return Utf8FromUtf16(message);
}

void* FindSymbol(void* library, char const* name) {
  return reinterpret_cast<void*>(GetProcAddress(reinterpret_cast<HMODULE>(library), name));
}

std::string LibraryPathOf(void const* address) {
  if (address == nullptr) return std::string();  // would be the program
  HMODULE module = nullptr;
  DWORD const how = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  if (!GetModuleHandleExW(how, reinterpret_cast<wchar_t const*>(address), &module)) return std::string();
  std::wstring path(32768, L'\0');
  DWORD const length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
  path.resize(length);
  return Utf8FromUtf16(path);
}

}  // namespace fdo::port
