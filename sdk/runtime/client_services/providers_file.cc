#include "sdk/runtime/client_services/providers_file.h"

#include <expat.h>

#include <cstdio>
#include <memory>
#include <random>
#include <string_view>

#include "Fdo/ClientServices/ClientServiceException.h"
#include "port/file.h"
#include "sdk/runtime/client_services/paths.h"
#include "sdk/runtime/core/utf8.h"

namespace fdo_sdk {
namespace {

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
typedef std::unique_ptr<std::FILE, FileCloser> OpenedFile;

struct ParserFreer {
  void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
typedef std::unique_ptr<XML_ParserStruct, ParserFreer> Parser;

[[noreturn]] void Throw(std::filesystem::path const& file, std::wstring const& what) {
  std::wstring const message = L"The provider registry \"" + WideOf(file) + L"\" " + what + L".";
  throw FdoClientServiceException::Create(message.c_str());
}

struct TextOfEntry {
  char const* element;
  std::wstring ProviderEntry::*text;
};

constexpr TextOfEntry kTexts[] = {
    {"Name", &ProviderEntry::name},
    {"DisplayName", &ProviderEntry::displayName},
    {"Description", &ProviderEntry::description},
    {"Version", &ProviderEntry::version},
    {"FeatureDataObjectsVersion", &ProviderEntry::fdoVersion},
    {"LibraryPath", &ProviderEntry::libraryPath},
};
constexpr char const kIsManaged[] = "IsManaged";

// What the callbacks of the parser build. Nothing may be thrown through the parser, so an entry without a
// name is only noted.
struct Reading {
  XML_Parser parser = nullptr;
  int depth = 0;  // 1 in the root, 2 in an entry, 3 in a text of it
  std::string element;
  std::string text;
  ProviderEntry entry;
  std::vector<ProviderEntry> entries;
  unsigned long namelessLine = 0;
};

std::string_view Trimmed(std::string_view text) {
  constexpr char const kBlank[] = " \t\r\n";
  std::size_t const first = text.find_first_not_of(kBlank);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlank) - first + 1);
}

bool IsTrue(std::string_view text) {
  std::string lower;
  for (char c : text) lower.push_back(c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c);
  return lower == "true" || lower == "1";
}

void StartElement(void* data, XML_Char const* name, XML_Char const**) {
  Reading& reading = *static_cast<Reading*>(data);
  ++reading.depth;
  if (reading.depth == 2) reading.entry = ProviderEntry();
  if (reading.depth == 3) {
    reading.element = name;
    reading.text.clear();
  }
}

void EndElement(void* data, XML_Char const*) {
  Reading& reading = *static_cast<Reading*>(data);
  if (reading.depth == 3) {
    std::string_view const text = Trimmed(reading.text);
    for (TextOfEntry const& row : kTexts) {
      if (reading.element == row.element) reading.entry.*row.text = WideFromUtf8(text);
    }
    if (reading.element == kIsManaged) reading.entry.isManaged = IsTrue(text);
  }
  if (reading.depth == 2) {
    if (reading.entry.name.empty() && reading.namelessLine == 0) {
      reading.namelessLine = XML_GetCurrentLineNumber(reading.parser);
    }
    reading.entries.push_back(reading.entry);
  }
  --reading.depth;
}

void CharacterData(void* data, XML_Char const* text, int length) {
  Reading& reading = *static_cast<Reading*>(data);
  if (reading.depth == 3) reading.text.append(text, static_cast<std::size_t>(length));
}

void AppendEscaped(std::string& out, std::wstring const& text) {
  for (char c : Utf8FromWide(text)) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '\r':
        out += "&#13;";
        break;
      default:
        out.push_back(c);
    }
  }
}

void AppendElement(std::string& out, char const* element, std::wstring const& text) {
  out += std::string("    <") + element + ">";
  AppendEscaped(out, text);
  out += std::string("</") + element + ">\n";
}

std::string Document(std::vector<ProviderEntry> const& entries) {
  std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ProviderRegistry>\n";
  for (ProviderEntry const& entry : entries) {
    out += "  <Provider>\n";
    for (TextOfEntry const& row : kTexts) AppendElement(out, row.element, entry.*row.text);
    AppendElement(out, kIsManaged, entry.isManaged ? L"True" : L"False");
    out += "  </Provider>\n";
  }
  return out + "</ProviderRegistry>\n";
}

}  // namespace

std::vector<ProviderEntry> ReadProvidersFile(std::filesystem::path const& file) {
  std::error_code none;
  if (!std::filesystem::exists(file, none)) return {};
  OpenedFile const opened(fdo::port::OpenFile(Utf8Of(file), "rb"));
  if (!opened) Throw(file, L"cannot be read");

  Parser const parser(XML_ParserCreate(nullptr));
  if (!parser) throw std::bad_alloc();
  Reading reading;
  reading.parser = parser.get();
  XML_SetUserData(parser.get(), &reading);
  XML_SetElementHandler(parser.get(), &StartElement, &EndElement);
  XML_SetCharacterDataHandler(parser.get(), &CharacterData);
  char bytes[8192];
  bool last = false;
  while (!last) {
    std::size_t const read = std::fread(bytes, 1, sizeof bytes, opened.get());
    if (std::ferror(opened.get()) != 0) Throw(file, L"cannot be read");
    last = read < sizeof bytes;
    if (XML_Parse(parser.get(), bytes, static_cast<int>(read), last) == XML_STATUS_OK) continue;
    Throw(file, L"is not well-formed XML, line " + std::to_wstring(XML_GetCurrentLineNumber(parser.get())) +
                    L": " + WideFromUtf8(XML_ErrorString(XML_GetErrorCode(parser.get()))));
  }
  if (reading.namelessLine != 0) {
    Throw(file, L"has a provider without a name, line " + std::to_wstring(reading.namelessLine));
  }
  return reading.entries;
}

void WriteProvidersFile(std::filesystem::path const& file, std::vector<ProviderEntry> const& entries) {
  std::filesystem::path temporary = file;
  temporary += "." + std::to_string(std::random_device()()) + ".new";
  std::string const document = Document(entries);
  {
    OpenedFile opened(fdo::port::OpenFile(Utf8Of(temporary), "wb"));
    if (!opened) Throw(file, L"cannot be written");
    bool const written = std::fwrite(document.data(), 1, document.size(), opened.get()) == document.size();
    if (std::fclose(opened.release()) != 0 || !written) {
      std::error_code none;
      std::filesystem::remove(temporary, none);
      Throw(file, L"cannot be written");
    }
  }
  std::error_code failure;
  std::filesystem::rename(temporary, file, failure);
  if (!failure) return;
  std::error_code none;
  std::filesystem::remove(temporary, none);
  Throw(file, L"cannot be replaced");
}

}  // namespace fdo_sdk
