#include "tools/quillon/json_text.h"

#include <charconv>
#include <cmath>
#include <utility>

#include "tools/quillon/utf8.h"

namespace fdo::tool {

namespace {

constexpr int kIndentation = 2;

template <class Text>
void AppendQuoted(std::string& out, Text text) {
  constexpr char kHexDigits[] = "0123456789abcdef";
  out += '"';
  for (std::size_t position = 0; position < text.size();) {
    char32_t const character = NextCharacter(text, position);
    switch (character) {
      case '"':
        out += "\\\"";
        break;
      case '\\':
        out += "\\\\";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\r':
        out += "\\r";
        break;
      case '\t':
        out += "\\t";
        break;
      default:
        if (character < 0x20) {
          out += "\\u00";
          out += kHexDigits[character >> 4];
          out += kHexDigits[character & 15];
        } else {
          AppendUtf8(out, character);
        }
    }
  }
  out += '"';
}

}  // namespace

void AppendJsonString(std::string& out, std::wstring_view text) { AppendQuoted(out, text); }
void AppendJsonString(std::string& out, std::string_view utf8) { AppendQuoted(out, utf8); }

void AppendJsonNumber(std::string& out, double number) {
  if (!std::isfinite(number)) {
    out += "null";
    return;
  }
  char digits[32];
  out.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

void JsonDocument::Text(std::string_view key, std::string_view utf8) {
  Announce(key);
  AppendJsonString(text_, utf8);
}

void JsonDocument::Text(std::string_view key, std::wstring_view text) {
  Announce(key);
  AppendJsonString(text_, text);
}

void JsonDocument::Number(std::string_view key, double number) {
  Announce(key);
  AppendJsonNumber(text_, number);
}

void JsonDocument::Integer(std::string_view key, std::int64_t number) {
  Announce(key);
  text_ += std::to_string(number);
}

void JsonDocument::Flag(std::string_view key, bool flag) { Raw(key, flag ? "true" : "false"); }
void JsonDocument::Null(std::string_view key) { Raw(key, "null"); }

void JsonDocument::Raw(std::string_view key, std::string_view json) {
  Announce(key);
  text_ += json;
}

std::string JsonDocument::Finish() && {
  text_ += '\n';
  return std::move(text_);
}

void JsonDocument::Begin(std::string_view key, char bracket) {
  Announce(key);
  text_ += bracket;
  ++depth_;
  first_ = true;
}

void JsonDocument::End(char bracket) {
  --depth_;
  if (!first_) {
    text_ += '\n';
    text_.append(static_cast<std::size_t>(depth_ * kIndentation), ' ');
  }
  text_ += bracket;
  first_ = false;
}

void JsonDocument::Announce(std::string_view key) {
  if (depth_ > 0) {
    if (!first_) text_ += ',';
    text_ += '\n';
    text_.append(static_cast<std::size_t>(depth_ * kIndentation), ' ');
  }
  first_ = false;
  if (key.empty()) return;
  AppendJsonString(text_, key);
  text_ += ": ";
}

}  // namespace fdo::tool
