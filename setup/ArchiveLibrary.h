// How libzip is used: it reads the file through this program's own file access, and one thread at a
// time. Private to the archive's sources.
#pragma once

#include <zip.h>

#include <cstdint>
#include <exception>
#include <mutex>
#include <span>
#include <string>

#include "setup/Archive.h"
#include "tools/files/InputFile.h"

namespace setup {

/// The archive file as a source of the library.
class LibraryFile {
 public:
  explicit LibraryFile(const std::string& path) : file_(path), size_(file_.Stamp().size) {
    zip_error_init(&error_);
  }
  ~LibraryFile() { zip_error_fini(&error_); }
  LibraryFile(const LibraryFile&) = delete;
  LibraryFile& operator=(const LibraryFile&) = delete;

  [[nodiscard]] std::uint64_t Size() const { return size_; }
  /// Raises the error of a read that failed, if one did.
  void RaiseFailure() const {
    if (failure_) std::rethrow_exception(failure_);
  }
  /// The library's callback; `file` is a LibraryFile.
  static zip_int64_t Serve(void* file, void* data, zip_uint64_t size, zip_source_cmd_t command);

 private:
  [[nodiscard]] zip_int64_t Read(std::span<char> buffer);
  [[nodiscard]] std::size_t ReadAhead(std::span<char> buffer);
  [[nodiscard]] zip_int64_t Seek(void* arguments, zip_uint64_t size);
  [[nodiscard]] zip_int64_t Describe(void* stat, zip_uint64_t size);

  tools::InputFile file_;
  std::uint64_t size_;
  std::uint64_t at_ = 0;
  std::string ahead_;             ///< bytes of the file that were read beyond what was asked for
  std::uint64_t aheadBegin_ = 0;  ///< and where they begin
  zip_error_t error_{};
  std::exception_ptr failure_;
};

struct Archive::Library {
  explicit Library(const std::string& path) : file(path) {}
  ~Library() {
    if (zip != nullptr) zip_discard(zip);
  }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  /// Sets `zip`, or `error`.
  void Open(zip_error_t* error);

  LibraryFile file;
  zip_t* zip = nullptr;
  std::mutex mutex;  // guards the two above
};

}  // namespace setup
