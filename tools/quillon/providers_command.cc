#include <Fdo.h>
#include <fdo/providers.h>

#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include <memory>

#include "tools/quillon/command.h"
#include "tools/quillon/json_text.h"
#include "tools/quillon/text_table.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

char const kProvidersDetails[] =
    "Registered are those that FDO's registry lists; of the others, the library is looked for beside FDO's\n"
    "own, in the folder \"providers\" there, and where the system's loader looks.\n"
    "\n"
    "  quillon providers\n"
    "  quillon providers --json";

namespace {

struct RegisteredProvider {
  std::wstring name, displayName, library;
};

std::vector<RegisteredProvider> RegisteredProviders() {
  std::vector<RegisteredProvider> providers;
  FdoPtr<IProviderRegistry> const registry = FdoFeatureAccessManager::GetProviderRegistry();
  FdoProviderCollection const* const registered = registry->GetProviders();
  for (int i = 0; i < registered->GetCount(); ++i) {
    FdoPtr<FdoProvider> const provider = registered->GetItem(i);
    providers.push_back({provider->GetName(), provider->GetDisplayName(), provider->GetLibraryPath()});
  }
  return providers;
}

// The reason stands at the end of its line, where nothing cuts it.
std::string AsText(std::vector<RegisteredProvider> const& registered,
                   std::vector<KnownProvider> const& known) {
  std::string text = fmt::format("{} registered\n", registered.size());
  for (auto const& provider : registered) {
    text += fmt::format("  {}  {}\n", Utf8(provider.name.c_str()), Utf8(provider.library.c_str()));
  }
  text += fmt::format("\n{} known\n", known.size());
  TextTable table;
  table.AddColumn("provider", Align::kLeft);
  table.AddColumn("library", Align::kLeft);
  table.AddColumn("state", Align::kLeft);
  std::vector<std::vector<std::string>> lines;
  for (auto const& provider : known) {
    lines.push_back({Utf8(provider.name.c_str()), Utf8(provider.library.c_str()),
                     provider.problem.empty() ? "available" : "missing"});
    table.Measure(lines.back());
  }
  text += table.Header();
  for (std::size_t i = 0; i < known.size(); ++i) {
    std::string line = table.Line(lines[i]);
    if (!known[i].problem.empty()) {
      line.pop_back();
      line += "  " + Utf8(known[i].problem.c_str()) + '\n';
    }
    text += line;
  }
  return text;
}

std::string AsJson(std::vector<RegisteredProvider> const& registered,
                   std::vector<KnownProvider> const& known) {
  JsonDocument json;
  json.BeginObject();
  json.BeginArray("registered");
  for (auto const& provider : registered) {
    json.BeginObject();
    json.Text("name", std::wstring_view(provider.name));
    json.Text("display_name", std::wstring_view(provider.displayName));
    json.Text("library", std::wstring_view(provider.library));
    json.EndObject();
  }
  json.EndArray();
  json.BeginArray("known");
  for (auto const& provider : known) {
    json.BeginObject();
    json.Text("name", std::wstring_view(provider.name));
    json.Text("library", std::wstring_view(provider.library));
    if (provider.registeredAs.empty()) {
      json.Null("registered_as");
    } else {
      json.Text("registered_as", std::wstring_view(provider.registeredAs));
    }
    json.Flag("available", provider.problem.empty());
    if (!provider.problem.empty()) json.Text("problem", std::wstring_view(provider.problem));
    json.EndObject();
  }
  json.EndArray();
  json.EndObject();
  return std::move(json).Finish();
}

ExitCode Providers(bool asJson, Session& session) {
  auto const registered = RegisteredProviders();
  auto const known = KnownProviders();
  session.output.Write(asJson ? AsJson(registered, known) : AsText(registered, known));
  return ExitCode::kDone;
}

}  // namespace

Action DefineProviders(CLI::App& app) {
  auto const asJson = std::make_shared<bool>(false);
  app.add_flag("--json", *asJson, "Print one JSON document");
  return [asJson](Session& session) { return Providers(*asJson, session); };
}

}  // namespace fdo::tool
