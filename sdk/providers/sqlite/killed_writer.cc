// A program that writes batch after batch into a store until it is killed: sqlite_killed_writer FILE SEED.
//
// Each row says which batch it is of and how many rows that batch has; a transaction gives all rows of a
// batch the same new version. Exit code 2 when a command fails.
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

#include "sdk/providers/sqlite/row_commands.h"
#include "sdk/runtime/core/utf8.h"

namespace fdo_sqlite {
namespace {

class Writer {
 public:
  Writer(std::wstring const& file, unsigned seed) : random_(seed), connection_(new Connection()) {
    connection_->SetConnectionString((L"File=\"" + file + L"\"").c_str());
    connection_->Open();
    batch_ =
        static_cast<int>(connection_->OpenedDatabase().Number("SELECT coalesce(max(batch), 0) FROM parcels"));
  }

  void Run() {
    for (;;) {
      InsertBatch();
      if (random_() % 3 == 0) connection_->Flush();
      if (random_() % 3 == 0) Reopen();
      if (random_() % 3 == 0) ChangeBatch();
      if (random_() % 8 == 0) RemoveBatch();
    }
  }

 private:
  void InsertBatch() {
    int const size = random_() % 4 == 0 ? 1500 : 1 + static_cast<int>(random_() % 100);
    ++batch_;
    FdoPtr<FdoIInsert> insert = MakeInsertInto(connection_, L"parcels");
    GiveText(insert, L"batch", std::to_wstring(batch_).c_str());
    GiveText(insert, L"size", std::to_wstring(size).c_str());
    GiveText(insert, L"version", L"0");
    GiveText(insert, L"geom", L"GeomFromText('POINT (0 0)')");
    FdoPtr<FdoPropertyValueCollection> values = insert->GetPropertyValues();
    FdoPtr<FdoPropertyValue> geometry = values->GetItem(L"geom");
    for (int row = 0; row < size; ++row) {
      std::wstring const place = std::to_wstring(random_() % 1000) + L" " + std::to_wstring(random_() % 1000);
      geometry->SetValue((L"GeomFromText('POINT (" + place + L")')").c_str());
      FdoPtr<FdoIFeatureReader>(insert->Execute());
    }
  }

  // Brings the spatial index up to date.
  void Reopen() {
    connection_->Close();
    connection_->Open();
  }

  // Two statements in one transaction.
  void ChangeBatch() {
    std::wstring const version = std::to_wstring(1 + random_() % 1000);
    std::wstring const chosen = L"batch = " + std::to_wstring(1 + random_() % static_cast<unsigned>(batch_));
    FdoPtr<FdoITransaction> transaction = connection_->BeginTransaction();
    for (wchar_t const* half : {L" AND size >= 0 AND id / 2 * 2 = id", L" AND id / 2 * 2 <> id"}) {
      FdoPtr<FdoIUpdate> update = Make<FdoIUpdate>(connection_, FdoCommandType_Update);
      update->SetFeatureClassName(L"parcels");
      update->SetFilter((chosen + half).c_str());
      GiveText(update, L"version", version.c_str());
      GiveText(update, L"geom", (L"GeomFromText('POINT (" + version + L" 5)')").c_str());
      update->Execute();
    }
    transaction->Commit();
  }

  void RemoveBatch() {
    FdoPtr<FdoIDelete> remove = Make<FdoIDelete>(connection_, FdoCommandType_Delete);
    remove->SetFeatureClassName(L"parcels");
    remove->SetFilter((L"batch = " + std::to_wstring(1 + random_() % static_cast<unsigned>(batch_))).c_str());
    remove->Execute();
  }

  std::mt19937 random_;
  FdoPtr<Connection> connection_;
  int batch_ = 0;
};

}  // namespace
}  // namespace fdo_sqlite

int main(int argumentCount, char** arguments) {
  if (argumentCount != 3) return 1;
  try {
    fdo_sqlite::Writer writer(fdo_sdk::WideFromUtf8(arguments[1]),
                              static_cast<unsigned>(std::atoi(arguments[2])));
    writer.Run();
  } catch (FdoException* raised) {
    FdoPtr<FdoException> const failure(raised);
    std::fprintf(stderr, "%s\n", fdo_sdk::Utf8FromWide(failure->GetExceptionMessage()).c_str());
    return 2;
  }
}
