#include "sdk/runtime/client_services/provider_library.h"

#include "Fdo/ClientServices/ClientServiceException.h"
#include "Fdo/Connections/IConnection.h"
#include "port/dynamic_library.h"
#include "sdk/runtime/client_services/paths.h"
#include "sdk/runtime/core/utf8.h"

namespace fdo_sdk {
namespace {

constexpr char const kEntryPoint[] = "CreateConnection";
typedef FdoIConnection* (*EntryPoint)();

[[noreturn]] void Throw(std::wstring const& library, std::wstring const& what) {
  std::wstring const message = L"The provider library \"" + library + L"\" " + what + L".";
  throw FdoClientServiceException::Create(message.c_str());
}

struct LoadedLibrary {
  void* handle;
  std::wstring name;
};

// A file that exists has to load; anything else would hide why a provider does not work.
LoadedLibrary LoadFile(std::filesystem::path const& file) {
  void* handle = fdo::port::LoadLibraryByName(Utf8Of(file).c_str());
  if (handle == nullptr) {
    std::string const reason = fdo::port::LoadFailure();
    Throw(WideOf(file), L"cannot be loaded: " + WideFromUtf8(reason));
  }
  return {handle, WideOf(file)};
}

LoadedLibrary Load(std::wstring const& name, std::vector<std::filesystem::path> const& folders) {
  std::filesystem::path const path = PathOf(name);
  std::vector<std::wstring> const fileNames = LibraryFileNames(WideOf(path.filename()));
  bool const hasFolder = path.has_parent_path();
  std::vector<std::filesystem::path> const searched =
      hasFolder ? std::vector<std::filesystem::path>{path.parent_path()} : folders;
  std::error_code none;
  for (std::filesystem::path const& folder : searched) {
    for (std::wstring const& fileName : fileNames) {
      std::filesystem::path const file = folder / PathOf(fileName);
      if (std::filesystem::is_regular_file(file, none)) return LoadFile(file);
    }
  }
  if (!hasFolder) {
    for (std::wstring const& fileName : fileNames) {
      void* handle = fdo::port::LoadLibraryByName(Utf8FromWide(fileName).c_str());
      if (handle != nullptr) return {handle, fileName};
    }
  }
  std::wstring looked;
  for (std::filesystem::path const& folder : searched) looked += L" \"" + WideOf(folder) + L"\"";
  Throw(name, L"is not there; looked in" + looked + (hasFolder ? L"" : L" and where the loader looks"));
}

bool EndsWith(std::wstring const& text, std::wstring const& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

}  // namespace

std::vector<std::wstring> LibraryFileNames(std::wstring const& name) {
  if (name.empty()) return {};
  std::wstring const prefix = WideFromUtf8(fdo::port::kLibraryPrefix);
  std::wstring const suffix = WideFromUtf8(fdo::port::kLibrarySuffix);
  std::vector<std::wstring> names = {name};
  std::wstring const complete = EndsWith(name, suffix) ? name : name + suffix;
  if (complete != name) names.push_back(complete);
  if (!prefix.empty() && name.compare(0, prefix.size(), prefix) != 0) names.push_back(prefix + complete);
  return names;
}

FdoIConnection* ConnectThroughLibrary(std::wstring const& name,
                                      std::vector<std::filesystem::path> const& folders) {
  LoadedLibrary const library = Load(name, folders);
  void* entry = fdo::port::FindSymbol(library.handle, kEntryPoint);
  if (entry == nullptr) {
    Throw(library.name, L"has no entry point \"" + WideFromUtf8(kEntryPoint) + L"\"");
  }
  FdoIConnection* connection = reinterpret_cast<EntryPoint>(entry)();
  if (connection == nullptr) Throw(library.name, L"made no connection");
  return connection;
}

}  // namespace fdo_sdk
