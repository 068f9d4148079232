// The pieces of JSON that every writer needs, and a small writer for documents that are not rows.
#ifndef TOOLS_QUILLON_JSON_TEXT_H_
#define TOOLS_QUILLON_JSON_TEXT_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace fdo::tool {

// The text in double quotes with what JSON wants escaped; characters beyond ASCII stay as they are.
void AppendJsonString(std::string& out, std::wstring_view text);
void AppendJsonString(std::string& out, std::string_view utf8);

// The shortest digits that read back as the same number, whatever the locale; what is not finite has
// no place in JSON and becomes null.
void AppendJsonNumber(std::string& out, double number);

// Writes one indented document piece by piece. Members of an object take a key, elements of an array
// an empty one.
// Requires: every Begin has its End.
class JsonDocument {
 public:
  void BeginObject(std::string_view key = {}) { Begin(key, '{'); }
  void EndObject() { End('}'); }
  void BeginArray(std::string_view key = {}) { Begin(key, '['); }
  void EndArray() { End(']'); }
  void Text(std::string_view key, std::string_view utf8);
  void Text(std::string_view key, std::wstring_view text);
  void Number(std::string_view key, double number);
  void Integer(std::string_view key, std::int64_t number);
  void Flag(std::string_view key, bool flag);
  void Null(std::string_view key);
  // Requires: json is one complete JSON value
  void Raw(std::string_view key, std::string_view json);

  // The document with a line break at its end.
  // Requires: everything that was begun has ended.
  std::string Finish() &&;

 private:
  void Begin(std::string_view key, char bracket);
  void End(char bracket);
  // The comma, line break, indentation and key in front of a value.
  void Announce(std::string_view key);

  std::string text_;
  int depth_ = 0;
  bool first_ = true;  // nothing stands in the innermost bracket yet
};

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_JSON_TEXT_H_
