#include "sdk/providers/base/connection_string.h"

#include "Fdo.h"

namespace fdo_provider {
namespace {

constexpr wchar_t kBlanks[] = L" \t\r\n";

[[noreturn]] void Refuse(std::wstring const& what) { throw FdoConnectionException::Create(what.c_str()); }

wchar_t LowerAscii(wchar_t unit) {
  return unit >= L'A' && unit <= L'Z' ? static_cast<wchar_t>(unit - L'A' + L'a') : unit;
}

bool SameWord(std::wstring const& left, std::wstring const& right) {
  if (left.size() != right.size()) return false;
  for (std::size_t i = 0; i < left.size(); ++i) {
    if (LowerAscii(left[i]) != LowerAscii(right[i])) return false;
  }
  return true;
}

std::wstring Trimmed(std::wstring const& text) {
  std::size_t const first = text.find_first_not_of(kBlanks);
  if (first == std::wstring::npos) return L"";
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Reads the value whose opening quote is at place, and moves behind its closing quote.
std::wstring QuotedValue(std::wstring const& text, std::size_t& place, std::wstring const& name) {
  std::wstring value;
  for (++place; place < text.size(); ++place) {
    if (text[place] == L'"') {
      bool const doubled = place + 1 < text.size() && text[place + 1] == L'"';
      ++place;
      if (!doubled) return value;
    }
    value += text[place];
  }
  Refuse(L"The value of \"" + name + L"\" has no closing quote.");
}

}  // namespace

std::size_t Settings::PlaceOf(std::wstring const& name) const {
  std::wstring all;
  for (std::size_t i = 0; i < known_->size(); ++i) {
    if (SameWord(name, (*known_)[i].name)) return i;
    all += (i == 0 ? L"" : L", ") + std::wstring((*known_)[i].name);
  }
  Refuse(L"There is no setting \"" + name + L"\"; there are " + all + L".");
}

std::wstring Settings::Effective(std::size_t place) const {
  return values_[place].empty() ? (*known_)[place].standard : values_[place];
}

void Settings::Set(std::size_t place, std::wstring const& value) {
  SettingInfo const& info = (*known_)[place];
  if (info.values.empty() || value.empty()) {
    values_[place] = value;
    return;
  }
  std::wstring all;
  for (wchar_t const* allowed : info.values) {
    if (SameWord(value, allowed)) {
      values_[place] = allowed;
      return;
    }
    all += (all.empty() ? L"" : L" or ") + std::wstring(allowed);
  }
  Refuse(L"The setting \"" + std::wstring(info.name) + L"\" can be " + all + L", not \"" + value + L"\".");
}

void Settings::RequireComplete() const {
  for (std::size_t i = 0; i < known_->size(); ++i) {
    if (!(*known_)[i].required || !values_[i].empty()) continue;
    Refuse(L"The setting \"" + std::wstring((*known_)[i].name) + L"\" is missing.");
  }
}

Settings ParseConnectionString(std::vector<SettingInfo> const& known, std::wstring const& text) {
  Settings settings(known);
  std::vector<bool> given(known.size());
  for (std::size_t place = 0; place < text.size(); ++place) {
    std::size_t const nameEnd = text.find_first_of(L"=;", place);
    std::wstring const name = Trimmed(text.substr(place, nameEnd - place));
    if (nameEnd == std::wstring::npos || text[nameEnd] == L';') {
      if (!name.empty()) Refuse(L"The setting \"" + name + L"\" has no value.");
      if (nameEnd == std::wstring::npos) break;
      place = nameEnd;
      continue;
    }
    std::size_t const setting = settings.PlaceOf(name);
    if (given[setting]) Refuse(L"The setting \"" + name + L"\" is given twice.");
    given[setting] = true;

    std::wstring value;
    place = text.find_first_not_of(kBlanks, nameEnd + 1);
    bool const quoted = place != std::wstring::npos && text[place] == L'"';
    if (quoted) value = QuotedValue(text, place, name);
    std::size_t const end = place == std::wstring::npos ? text.size() : text.find(L';', place);
    std::wstring const rest = place == std::wstring::npos ? L"" : Trimmed(text.substr(place, end - place));
    if (quoted && !rest.empty()) Refuse(L"There is \"" + rest + L"\" behind the value of \"" + name + L"\".");
    settings.Set(setting, quoted ? value : rest);
    if (end >= text.size()) break;
    place = end;
  }
  return settings;
}

std::wstring WriteConnectionString(Settings const& settings) {
  std::wstring text;
  for (std::size_t i = 0; i < settings.Known().size(); ++i) {
    std::wstring const& value = settings.Value(i);
    if (value.empty()) continue;
    text += std::wstring(settings.Known()[i].name) + L"=\"";
    for (wchar_t const unit : value) text += unit == L'"' ? std::wstring(2, unit) : std::wstring(1, unit);
    text += L"\";";
  }
  return text;
}

}  // namespace fdo_provider
