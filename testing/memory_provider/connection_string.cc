#include "testing/memory_provider/connection_string.h"

#include <cwctype>

#include "Fdo.h"

namespace memory_provider {
namespace {

[[noreturn]] void Refuse(std::wstring const& what) { throw FdoConnectionException::Create(what.c_str()); }

bool SameName(std::wstring const& left, wchar_t const* right) {
  std::size_t i = 0;
  for (; i < left.size() && right[i] != 0; ++i) {
    if (std::towlower(static_cast<std::wint_t>(left[i])) !=
        std::towlower(static_cast<std::wint_t>(right[i]))) {
      return false;
    }
  }
  return i == left.size() && right[i] == 0;
}

std::wstring Trimmed(std::wstring const& text) {
  std::size_t const first = text.find_first_not_of(L" \t");
  if (first == std::wstring::npos) return L"";
  return text.substr(first, text.find_last_not_of(L" \t") - first + 1);
}

}  // namespace

std::wstring* SettingNamed(Settings& settings, std::wstring const& name) {
  if (SameName(name, L"File")) return &settings.file;
  if (SameName(name, L"UseFdoMetadata")) return &settings.useFdoMetadata;
  return nullptr;
}

Settings ParseConnectionString(std::wstring const& text) {
  Settings settings;
  std::size_t place = 0;
  while (place < text.size()) {
    std::size_t const equals = text.find(L'=', place);
    std::wstring const name = Trimmed(text.substr(place, equals - place));
    if (equals == std::wstring::npos) {
      if (name.empty()) break;
      Refuse(L"The setting \"" + name + L"\" has no value.");
    }
    std::size_t const start = text.find_first_not_of(L" \t", equals + 1);
    std::size_t end;
    std::wstring value;
    if (start != std::wstring::npos && text[start] == L'"') {
      std::size_t const quote = text.find(L'"', start + 1);
      if (quote == std::wstring::npos) Refuse(L"The value of \"" + name + L"\" has no closing quote.");
      value = text.substr(start + 1, quote - start - 1);
      end = text.find(L';', quote);
    } else {
      end = text.find(L';', equals);
      value = Trimmed(text.substr(equals + 1, end - equals - 1));
    }
    std::wstring* setting = SettingNamed(settings, name);
    if (setting == nullptr) Refuse(L"There is no setting \"" + name + L"\".");
    *setting = value;
    if (end == std::wstring::npos) break;
    place = end + 1;
  }
  return settings;
}

std::wstring WriteConnectionString(Settings const& settings) {
  std::wstring text;
  if (!settings.file.empty()) text += L"File=\"" + settings.file + L"\";";
  if (!settings.useFdoMetadata.empty()) text += L"UseFdoMetadata=\"" + settings.useFdoMetadata + L"\";";
  return text;
}

}  // namespace memory_provider
