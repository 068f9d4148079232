#ifndef TOOLS_QUILLON_STAGED_TARGET_H_
#define TOOLS_QUILLON_STAGED_TARGET_H_

#include <filesystem>
#include <string>
#include <vector>

namespace fdo::tool {

enum class Overwrite { kRefuse, kReplace };

// A file, or a family of files, that appears under its name complete or not at all.
//
// It is written in a folder of its own beside the target, under the name that it will have. Commit
// moves it into place, the file with the target's own name last; whatever the target replaces stays
// until then and comes back when a move fails. Without Commit the destructor removes everything.
// A folder is never replaced, whatever may be in it besides data, and neither are devices and pipes.
class StagedTarget {
 public:
  // Errors: throws Failure when the target exists and must not be replaced, or its folder is missing or
  // cannot be written to.
  StagedTarget(std::string const& target, Overwrite overwrite);
  StagedTarget(StagedTarget const&) = delete;
  StagedTarget& operator=(StagedTarget const&) = delete;
  ~StagedTarget();

  // Where to write.
  std::wstring Path() const;

  // Errors: throws Failure; what stood under the target's name before stands there again.
  void Commit();

 private:
  struct Move {
    std::filesystem::path from, to;
  };

  // The existing files that make way: those of the same names, and what else belongs to the old target.
  std::vector<std::filesystem::path> Outdated(std::vector<Move> const& moves) const;
  // Errors: throws Failure for a target that must not be replaced.
  void RefuseWhatStands() const;
  std::string Name() const;

  std::filesystem::path const target_;
  Overwrite const overwrite_;
  std::filesystem::path folder_;
};

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_STAGED_TARGET_H_
