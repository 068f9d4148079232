#include "tools/quillon/staged_target.h"

#include <algorithm>
#include <system_error>

#include "port/console.h"
#include "tools/quillon/messages.h"
#include "tools/quillon/path_text.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

namespace fs = std::filesystem;

namespace {

// Formats of several files, by the extension that names them. A file of the old data that the new data
// does not replace, such as an index, would be taken for its own.
struct FileFamily {
  char const* extension;
  std::vector<char const*> others;
};

std::vector<FileFamily> const& FileFamilies() {
  static std::vector<FileFamily> const families = {
      {".shp",
       {".shx", ".dbf", ".prj", ".cpg", ".qix", ".sbn", ".sbx", ".qpj", ".idm", ".ind", ".atx", ".shp.xml"}},
      {".tab", {".map", ".dat", ".id", ".ind"}},
      {".mif", {".mid"}},
      {".csv", {".csvt", ".prj"}},
  };
  return families;
}

// What SQLite leaves beside a file that was not closed, whatever that is called. It would be played back into
// a new file of that name.
std::vector<fs::path> JournalsOf(fs::path const& target) {
  std::vector<fs::path> journals;
  for (char const* const ending : {"-wal", "-shm", "-journal"})
    journals.push_back(fs::path(target) += ending);
  return journals;
}

// Renames, and undoes what has been renamed unless it is told that all went well.
class Renames {
 public:
  Renames() = default;
  Renames(Renames const&) = delete;
  Renames& operator=(Renames const&) = delete;
  ~Renames() {
    std::error_code ignored;
    for (auto done = done_.rbegin(); done != done_.rend(); ++done)
      fs::rename(done->second, done->first, ignored);
  }

  void Rename(fs::path const& from, fs::path const& to) {
    fs::rename(from, to);
    done_.emplace_back(from, to);
  }
  void Keep() { done_.clear(); }

 private:
  std::vector<std::pair<fs::path, fs::path>> done_;
};

}  // namespace

StagedTarget::StagedTarget(std::string const& target, Overwrite overwrite)
    : target_(PathOf(target)), overwrite_(overwrite) {
  RefuseWhatStands();
  std::error_code error;
  fs::path const parent = target_.has_parent_path() ? target_.parent_path() : fs::path(".");
  if (!fs::is_directory(parent, error)) throw TargetFolderMissing(Utf8Of(parent));
  // Another process, or one that was killed, may have a folder of this name: take the next.
  for (int attempt = 0; folder_.empty(); ++attempt) {
    // Not named for the target: GDAL takes a folder called "x.xlsx..." for an archive.
    fs::path const folder =
        parent / (".quillon-" + std::to_string(port::ProcessId()) + "-" + std::to_string(attempt));
    constexpr int kMostAttempts = 100;
    bool const created = fs::create_directory(folder, error);
    if (created) folder_ = folder;
    if (error || (!created && attempt == kMostAttempts)) throw CannotPlace(Name(), error.message());
  }
}

void StagedTarget::RefuseWhatStands() const {
  std::error_code ignored;
  fs::file_status const present = fs::status(target_, ignored);
  if (fs::exists(present) && !fs::is_regular_file(present))
    throw TargetIsNoFile(Name(), fs::is_directory(present));
  if (overwrite_ != Overwrite::kRefuse) return;
  auto paths = JournalsOf(target_);
  paths.insert(paths.begin(), target_);
  for (fs::path const& path : paths) {
    if (fs::exists(fs::symlink_status(path, ignored))) throw TargetExists(Utf8Of(path));
  }
}

StagedTarget::~StagedTarget() {
  std::error_code ignored;
  if (!folder_.empty()) fs::remove_all(folder_, ignored);
}

std::wstring StagedTarget::Path() const {
  std::wstring wide;
  WideFromUtf8(Utf8Of(folder_ / target_.filename()), wide);
  return wide;
}

void StagedTarget::Commit() {
  RefuseWhatStands();  // somebody may have put it there meanwhile
  try {
    std::vector<Move> moves;
    for (auto const& entry : fs::directory_iterator(folder_)) {
      moves.push_back({entry.path(), target_.parent_path() / entry.path().filename()});
    }
    std::stable_partition(moves.begin(), moves.end(), [&](Move const& move) { return move.to != target_; });
    auto const outdated = Outdated(moves);
    if (!outdated.empty() && overwrite_ == Overwrite::kRefuse) throw TargetExists(Utf8Of(outdated.front()));

    Renames renames;
    bool const replacesOneFile = moves.size() == 1 && outdated.size() == 1 && outdated[0] == target_ &&
                                 !fs::is_directory(moves[0].from);
    if (!replacesOneFile) {  // a single file takes the place of another in one step
      fs::path const old = folder_ / ".replaced";
      fs::create_directory(old);
      for (auto const& path : outdated) renames.Rename(path, old / path.filename());
    }
    for (auto const& [from, to] : moves) renames.Rename(from, to);
    renames.Keep();
  } catch (fs::filesystem_error const& failure) {
    throw CannotPlace(Name(), failure.code().message());
  }
}

std::vector<fs::path> StagedTarget::Outdated(std::vector<Move> const& moves) const {
  std::vector<fs::path> outdated;
  auto const add = [&](fs::path const& path) {
    bool const known = std::find(outdated.begin(), outdated.end(), path) != outdated.end();
    if (!known && fs::exists(fs::symlink_status(path))) outdated.push_back(path);
  };
  for (auto const& move : moves) add(move.to);
  if (overwrite_ == Overwrite::kRefuse) return outdated;
  for (fs::path const& journal : JournalsOf(target_)) add(journal);
  for (FileFamily const& family : FileFamilies()) {
    if (target_.extension() != family.extension) continue;
    for (char const* extension : family.others) add(fs::path(target_).replace_extension(extension));
  }
  return outdated;
}

std::string StagedTarget::Name() const { return Utf8Of(target_); }

}  // namespace fdo::tool
