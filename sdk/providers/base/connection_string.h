// Connection strings: settings such as File="parcels.sqlite";UseFdoMetadata=TRUE, by name.
#ifndef SDK_PROVIDERS_BASE_CONNECTION_STRING_H_
#define SDK_PROVIDERS_BASE_CONNECTION_STRING_H_

#include <string>
#include <vector>

namespace fdo_provider {

// What a provider can be told.
struct SettingInfo {
  wchar_t const* name;
  bool required;
  bool isFile;                              // a file's name
  wchar_t const* standard;                  // what holds when it is not set
  std::vector<wchar_t const*> values = {};  // all that it can be; empty: any text
};

// One value for each setting of a list, "" where it is not set.
class Settings {
 public:
  // Borrowed: the list, which outlives this. It is not empty.
  explicit Settings(std::vector<SettingInfo> const& known) : known_(&known), values_(known.size()) {}

  std::vector<SettingInfo> const& Known() const { return *known_; }

  // The place of a name in the list, without regard to the case of ASCII letters.
  // Errors: FdoConnectionException*, naming the setting and those that there are.
  std::size_t PlaceOf(std::wstring const& name) const;

  std::wstring const& Value(std::size_t place) const { return values_[place]; }
  // What holds: the value, or what stands for none.
  std::wstring Effective(std::size_t place) const;
  // Errors: FdoConnectionException* for a value that the setting cannot have.
  void Set(std::size_t place, std::wstring const& value);

  // Errors: FdoConnectionException*, naming a required setting without a value.
  void RequireComplete() const;

 private:
  std::vector<SettingInfo> const* known_;
  std::vector<std::wstring> values_;
};

// Settings are separated by semicolons, blanks around names and values do not count, and the last
// semicolon may be missing. A value in double quotes may hold anything; a quote in it is doubled.
// Errors: FdoConnectionException*, naming what is wrong: a setting that is unknown, given twice or without a
// value, a quote that is not closed or is followed by more.
Settings ParseConnectionString(std::vector<SettingInfo> const& known, std::wstring const& text);

// What ParseConnectionString reads as these settings: those that are set, each value in double quotes.
std::wstring WriteConnectionString(Settings const& settings);

}  // namespace fdo_provider

#endif  // SDK_PROVIDERS_BASE_CONNECTION_STRING_H_
