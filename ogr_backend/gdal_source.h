// One open data source of GDAL.
#ifndef OGR_BACKEND_GDAL_SOURCE_H_
#define OGR_BACKEND_GDAL_SOURCE_H_

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "ogr_backend/driver_traits.h"
#include "ogr_backend/gdal_binding.h"
#include "ogr_backend/gdal_errors.h"

namespace fdo::internal {

// Holds the data source that a DatabaseOgr and its tables, or a duplicate of a table, work on, and the
// transaction that brackets their writes. Names are UTF-8.
// Threads: one at a time.
class GdalSource {
 public:
  // Opens a vector source. driver: GDAL's short name, or null for whichever driver takes it.
  // Errors: null; error then says why.
  static std::unique_ptr<GdalSource> Open(GdalApi const& gdal, std::string const& name, bool readOnly,
                                          char const* driver, std::string& error);

  // Takes over a source that was just created, which can only be written until it is closed.
  // Owns: dataset.
  GdalSource(GdalApi const& gdal, GdalDatasetH dataset, std::string name, bool readOnly, bool created);
  GdalSource(GdalSource const&) = delete;
  GdalSource& operator=(GdalSource const&) = delete;
  // Closes; what goes wrong then is not told.
  ~GdalSource();

  // Ends an open bracket of writes and closes the source, which is when several formats are written.
  // Errors: false; error says what GDAL said. The source is closed all the same.
  bool Close(std::string& error);

  GdalApi const& Gdal() const { return gdal_; }
  GdalDatasetH Dataset() const { return dataset_; }
  std::string const& Name() const { return name_; }
  std::string const& Driver() const { return driver_; }
  DriverTraits const& Traits() const { return traits_; }
  bool ReadOnly() const { return readOnly_; }
  // Whether it was created, not opened; such a source cannot be opened a second time until it is closed.
  bool Created() const { return created_; }
  // Whether reading it, be it only to measure or to reset it, would lose the rows that it was given.
  bool MustNotBeRead() const { return created_ && traits_.losesRowsOfNewFile; }

  // Makes the new source anew, for geometries with those ordinates; null when that fails.
  using Remake = std::function<GdalDatasetH(bool z, bool m)>;
  // For a new source whose layers hold one dimensionality, which is that of the first row.
  void AwaitFirstRow(Remake remake) { remake_ = std::move(remake); }
  bool AwaitsFirstRow() const { return remake_ != nullptr; }
  // Makes the source anew if it has to be, which ends the life of its layers.
  // Errors: false; the source is then closed, and writing fails.
  // Requires: AwaitsFirstRow()
  bool FitTo(bool z, bool m);

  // Whether a null number is written as null rather than as 0.
  bool KeepsNullNumbers() const { return keepNullNumbers_; }
  void KeepNullNumbers(bool keep) { keepNullNumbers_ = keep; }

  // Bracket a run of writes in one transaction, where the format has transactions. Brackets of several
  // tables may overlap: the transaction ends with the last of them.
  void BeginBatch();
  // Errors: false when the transaction could not be committed; its writes are lost.
  bool CommitBatch();
  bool InTransaction() const { return inTransaction_; }

 private:
  GdalApi const& gdal_;
  GdalDatasetH dataset_;  // owned; null once closed
  std::string name_;
  std::string driver_;
  DriverTraits const& traits_;
  bool readOnly_;
  bool created_;
  bool keepNullNumbers_ = false;
  int openBatches_ = 0;
  bool inTransaction_ = false;
  Remake remake_;
};

}  // namespace fdo::internal

#endif  // OGR_BACKEND_GDAL_SOURCE_H_
