#include "sdk/providers/sqlite/statement.h"

#include <utility>

#include "sdk/providers/sqlite/database.h"
#include "sdk/runtime/core/utf8.h"

namespace fdo_sqlite {

Statement& Statement::operator=(Statement&& other) noexcept {
  if (this != &other) {
    GiveBack();
    prepared_ = std::move(other.prepared_);
  }
  return *this;
}

void Statement::GiveBack() noexcept {
  if (prepared_ != nullptr && prepared_->database != nullptr) prepared_->database->TakeBack(prepared_);
  prepared_ = nullptr;
}

void Statement::FailClosed() const {
  throw FdoCommandException::Create(L"The connection has been closed since this command was executed.");
}

void Statement::Fail(int code) const {
  if (Handle() == nullptr) FailClosed();
  prepared_->database->Fail(code, prepared_->doing);
}

void Statement::BindText(int parameter, std::string_view utf8) {
  // An empty view may have no address, which SQLite would take for null.
  char const* text = utf8.data() == nullptr ? "" : utf8.data();
  Check(sqlite3_bind_text64(Handle(), parameter, text, utf8.size(), SQLITE_STATIC, SQLITE_UTF8));
}

void Statement::BindText(int parameter, std::wstring_view text) {
  std::string const utf8 = fdo_sdk::Utf8FromWide(text);
  Check(sqlite3_bind_text64(Handle(), parameter, utf8.c_str(), utf8.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
}

void Statement::BindBlob(int parameter, void const* bytes, std::size_t size) {
  void const* start = bytes == nullptr ? "" : bytes;
  Check(sqlite3_bind_blob64(Handle(), parameter, start, size, SQLITE_STATIC));
}

void Statement::FailStep(int code) {
  FdoException* failure = prepared_->database->Failure(code, prepared_->doing);
  sqlite3_reset(Handle());
  throw failure;
}

void Statement::Run() {
  while (Step()) {
  }
  Reset();
}

void Statement::Reset() {
  // What it gives is the failure of the last step, which has been thrown.
  if (Handle() != nullptr) sqlite3_reset(Handle());
}

std::string_view Statement::Text(int column) const {
  auto const* text = reinterpret_cast<char const*>(sqlite3_column_text(Handle(), column));
  if (text == nullptr) return std::string_view();
  return std::string_view(text, static_cast<std::size_t>(sqlite3_column_bytes(Handle(), column)));
}

std::wstring Statement::WideText(int column) const { return fdo_sdk::WideFromUtf8(Text(column)); }

}  // namespace fdo_sqlite
