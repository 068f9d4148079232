// A directory for the files of one test.
#ifndef TESTING_SCRATCH_DIRECTORY_H_
#define TESTING_SCRATCH_DIRECTORY_H_

#include <filesystem>
#include <string>

namespace fdo {

// A new, empty directory under the system's place for temporary files; it is removed with all that is
// in it when the object ends.
// Errors: throws std::filesystem::filesystem_error when it cannot be made.
class ScratchDirectory {
 public:
  ScratchDirectory();
  ~ScratchDirectory();
  ScratchDirectory(ScratchDirectory const&) = delete;
  ScratchDirectory& operator=(ScratchDirectory const&) = delete;

  std::filesystem::path const& Path() const { return path_; }
  // The path of a file in it, as the library takes it. The name is UTF-8.
  std::wstring File(std::string const& name) const;

 private:
  std::filesystem::path path_;
};

}  // namespace fdo

#endif  // TESTING_SCRATCH_DIRECTORY_H_
