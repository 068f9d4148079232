#include "tools/quillon/filter.h"

#include <charconv>

#include "tools/quillon/messages.h"
#include "tools/quillon/selection.h"
#include "tools/quillon/tree_visitor.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

namespace {

// Holds every name of a column against a table.
class ColumnCheck : public TreeVisitor {
 public:
  explicit ColumnCheck(TableDef const& def) : def_(def) {}

 protected:
  void OnIdentifier(FdoIdentifier& identifier) override {
    // A column's own name may hold the characters that otherwise part a scope from a name.
    if (def_.IndexOf(identifier.GetText()) < 0) FindColumn(def_, Utf8(identifier.GetName()));
  }

 private:
  TableDef const& def_;
};

template <class Tree>
FdoPtr<Tree> TryParse(std::string const& text, std::string& error) {
  std::wstring wide;
  WideFromUtf8(text, wide);
  try {
    return Tree::Parse(wide.c_str());
  } catch (FdoException* raised) {
    FdoPtr<FdoException> const failure(raised);
    FdoString* const message = failure->GetExceptionMessage();
    error = message == nullptr ? "it is none" : Utf8(message);
    return nullptr;
  }
}

}  // namespace

FdoPtr<FdoFilter> TryParseFilter(std::string const& text, std::string& error) {
  return TryParse<FdoFilter>(text, error);
}

FdoPtr<FdoExpression> TryParseExpression(std::string const& text, std::string& error) {
  return TryParse<FdoExpression>(text, error);
}

FdoPtr<FdoFilter> ParseFilter(std::string const& text) {
  std::string error;
  FdoPtr<FdoFilter> const filter = TryParseFilter(text, error);
  if (filter == nullptr) throw BadFilter(text, error, PositionInMessage(error));
  return filter;
}

std::optional<int> PositionInMessage(std::string_view message) {
  constexpr std::string_view kBeforePlace = "Character ";
  if (message.substr(0, kBeforePlace.size()) != kBeforePlace) return std::nullopt;
  message.remove_prefix(kBeforePlace.size());
  int place = 0;  // counted from 1
  auto const read = std::from_chars(message.data(), message.data() + message.size(), place);
  if (read.ec != std::errc() || place < 1) return std::nullopt;
  return place - 1;
}

void CheckColumns(FdoFilter* filter, TableDef const& def) { ColumnCheck(def).Visit(filter); }
void CheckColumns(FdoExpression* expression, TableDef const& def) { ColumnCheck(def).Visit(expression); }

}  // namespace fdo::tool
