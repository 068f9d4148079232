// Reads and writes rows through a provider alone, by the SDK's interface.
#ifndef BENCH_PROVIDER_ROWS_H_
#define BENCH_PROVIDER_ROWS_H_

#include <Fdo.h>

#include <filesystem>
#include <span>
#include <stdexcept>
#include <vector>

#include "bench/job.h"
#include "bench/kept_rows.h"

namespace fdo::bench {

// The sides of jobs throw heirs of std::exception, the interface throws pointers.
template <class Body>
Work Translated(Body body) {
  try {
    return body();
  } catch (FdoException* raised) {
    FdoPtr<FdoException> failure(raised);
    FdoStringP const message(failure->GetExceptionMessage());
    throw std::runtime_error(static_cast<char const*>(message));
  }
}

// An open connection of the SQLite provider. Errors: FdoException*.
FdoPtr<FdoIConnection> OpenProvider(std::filesystem::path const& path);

// A select of the table "rows".
FdoPtr<FdoISelect> SelectOf(FdoIConnection* connection, std::vector<FdoString*> const& properties);

// The properties in the order in which OfFeature reads them.
std::vector<FdoString*> AllProperties();

// Every column of the row that the reader stands on, each asked first whether it is null.
std::uint64_t OfFeature(FdoIFeatureReader* reader);

template <class OfOne>
Work ReadAll(FdoISelect* select, OfOne ofOne) {
  return Translated([&] {
    Work work;
    FdoPtr<FdoIFeatureReader> reader = select->Execute();
    while (reader->ReadNext()) {
      work.checksum += ofOne(reader.p);
      ++work.amount;
    }
    return work;
  });
}

// Adds the rows to the table "rows" through one held command for each batch. Errors: FdoException*.
void InsertRows(FdoIConnection* connection, std::span<KeptRow const> rows, Shape shape, std::size_t batch);

}  // namespace fdo::bench

#endif  // BENCH_PROVIDER_ROWS_H_
