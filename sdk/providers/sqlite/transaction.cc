#include "sdk/providers/sqlite/transaction.h"

#include <algorithm>

#include "sdk/runtime/core/utf8.h"

namespace fdo_sqlite {
namespace {

std::string SqlOf(char const* verb, std::wstring const& savePoint) {
  return verb + QuotedName(fdo_sdk::Utf8FromWide(savePoint));
}

}  // namespace

Transaction::Transaction(Connection* connection) : connection_(FDO_SAFE_ADDREF(connection)) {
  connection->transaction_ = this;
}

Transaction::~Transaction() {
  if (!isOpen_) return;
  connection_.p->database_.Rollback();
  connection_.p->schema_->Forget();
  End();
}

void Transaction::Commit() {
  RequireOpen().Commit();
  End();
}

FdoString* Transaction::AddSavePoint(FdoString* suggestName) {
  Database& database = RequireOpen();
  std::wstring const wanted = suggestName == nullptr || *suggestName == 0 ? L"SavePoint" : suggestName;
  std::wstring name = wanted;
  for (int number = 2; std::find(savePoints_.begin(), savePoints_.end(), name) != savePoints_.end();
       ++number) {
    name = wanted + std::to_wstring(number);
  }
  database.Execute(SqlOf("SAVEPOINT ", name));
  savePoints_.push_back(name);
  lastName_ = name;
  return lastName_.c_str();
}

void Transaction::ReleaseSavePoint(FdoString* savePointName) {
  Database& database = RequireOpen();
  std::size_t const place = PlaceOf(savePointName);
  database.Execute(SqlOf("RELEASE ", savePoints_[place]));
  savePoints_.resize(place);
}

void Transaction::Rollback(FdoString* savePointName) {
  Database& database = RequireOpen();
  std::size_t const place = PlaceOf(savePointName);
  database.Execute(SqlOf("ROLLBACK TO ", savePoints_[place]));
  savePoints_.resize(place + 1);
  connection_.p->schema_->Forget();
}

void Transaction::Rollback() {
  RequireOpen().Rollback();
  connection_.p->schema_->Forget();
  End();
}

Database& Transaction::RequireOpen() {
  if (!isOpen_) throw FdoCommandException::Create(L"The transaction has ended.");
  Database& database = connection_.p->database_;
  if (database.InTransaction()) return database;
  // A failure within it, which was thrown, has undone it.
  End();
  throw FdoCommandException::Create(L"The transaction was undone by an earlier failure.");
}

void Transaction::End() {
  isOpen_ = false;
  connection_.p->transaction_ = nullptr;
}

std::size_t Transaction::PlaceOf(FdoString* savePointName) const {
  std::wstring const name = savePointName == nullptr ? L"" : savePointName;
  auto const found = std::find(savePoints_.begin(), savePoints_.end(), name);
  if (found != savePoints_.end()) return static_cast<std::size_t>(found - savePoints_.begin());
  throw FdoCommandException::Create((L"There is no save point \"" + name + L"\".").c_str());
}

}  // namespace fdo_sqlite
