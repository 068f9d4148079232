#include <fdo/connection_string.h>

#include <string_view>

#include "port/file.h"

namespace fdo {
namespace {

struct ConnectionStringForm {
  std::wstring_view providerBegins;
  wchar_t const* beforeFile;
  wchar_t const* behindFile;
  bool tellsWhetherReadOnly;  // behind all else
};

constexpr ConnectionStringForm kForms[] = {
    {L"OSGeo.SQLite", L"File=\"", L"\";UseFdoMetadata=TRUE", false},
    {L"OSGeo.SDF", L"File=\"", L"\"; ReadOnly=", true},
    {L"OSGeo.SHP", L"DefaultFileLocation=\"", L"\";", false},
    {L"Vendrix.DesignService", L"File=\"", L"\";ReadOnly=true", false},
};

}  // namespace

std::wstring MakeConnectionString(wchar_t const* provider, wchar_t const* file) {
  for (ConnectionStringForm const& form : kForms) {
    if (!std::wstring_view(provider).starts_with(form.providerBegins)) continue;
    std::wstring text = form.beforeFile;
    text += file;
    text += form.behindFile;
    if (form.tellsWhetherReadOnly) text += port::MayWriteFile(file) ? L"false" : L"true";
    return text;
  }
  return file;
}

}  // namespace fdo
