#include "setup/Archive.h"

#include <zip.h>

#include <algorithm>
#include <string_view>

#include "setup/ArchiveLibrary.h"
#include "tools/Error.h"

namespace setup {

zip_int64_t LibraryFile::Serve(void* file, void* data, zip_uint64_t size,
                               zip_source_cmd_t command) {
  auto& self = *static_cast<LibraryFile*>(file);
  switch (command) {
    case ZIP_SOURCE_OPEN:
      self.at_ = 0;
      return 0;
    case ZIP_SOURCE_READ:
      return self.Read({static_cast<char*>(data), size});
    case ZIP_SOURCE_CLOSE:
    case ZIP_SOURCE_FREE:
      return 0;
    case ZIP_SOURCE_STAT:
      return self.Describe(data, size);
    case ZIP_SOURCE_ERROR:
      return zip_error_to_data(&self.error_, data, size);
    case ZIP_SOURCE_SEEK:
      return self.Seek(data, size);
    case ZIP_SOURCE_TELL:
      return static_cast<zip_int64_t>(self.at_);
    case ZIP_SOURCE_SUPPORTS:
      return ZIP_SOURCE_SUPPORTS_SEEKABLE;
    default:
      zip_error_set(&self.error_, ZIP_ER_OPNOTSUPP, 0);
      return -1;
  }
}

// The library asks for the parts of each header one by one; members mostly lie side by side.
std::size_t LibraryFile::ReadAhead(std::span<char> buffer) {
  constexpr std::size_t kAheadBytes = std::size_t{16} << 10U;
  if (at_ < aheadBegin_ || at_ >= aheadBegin_ + ahead_.size()) {
    if (buffer.size() >= kAheadBytes) return file_.ReadAt(at_, buffer);
    ahead_.resize(kAheadBytes);
    aheadBegin_ = at_;
    ahead_.resize(file_.ReadAt(at_, ahead_));
  }
  const std::string_view known = std::string_view(ahead_).substr(at_ - aheadBegin_, buffer.size());
  std::ranges::copy(known, buffer.begin());
  return known.size();
}

zip_int64_t LibraryFile::Read(std::span<char> buffer) {
  try {
    const std::size_t count = ReadAhead(buffer);
    at_ += count;
    return static_cast<zip_int64_t>(count);
  } catch (...) {
    // No exception may pass through the library.
    failure_ = std::current_exception();
    zip_error_set(&error_, ZIP_ER_READ, 0);
    return -1;
  }
}

zip_int64_t LibraryFile::Seek(void* arguments, zip_uint64_t size) {
  const zip_int64_t place = zip_source_seek_compute_offset(at_, size_, arguments, size, &error_);
  if (place < 0) return -1;
  at_ = static_cast<std::uint64_t>(place);
  return 0;
}

zip_int64_t LibraryFile::Describe(void* stat, zip_uint64_t size) {
  if (size < sizeof(zip_stat_t)) return -1;
  auto* const result = static_cast<zip_stat_t*>(stat);
  zip_stat_init(result);
  result->size = size_;
  result->valid |= ZIP_STAT_SIZE;
  return sizeof(zip_stat_t);
}

void Archive::Library::Open(zip_error_t* error) {
  zip_source_t* const source = zip_source_function_create(LibraryFile::Serve, &file, error);
  if (source == nullptr) return;
  zip = zip_open_from_source(source, ZIP_RDONLY | ZIP_CHECKCONS, error);
  if (zip == nullptr) zip_source_free(source);
}

namespace {

std::string ReasonOf(const zip_error_t& error) {
  switch (error.zip_err) {
    case ZIP_ER_NOZIP:
      return "kein Verzeichnis; kein Zip-Archiv oder abgeschnitten";
    case ZIP_ER_INCONS:
      return "Verzeichnis und Inhalt widersprechen sich";
    case ZIP_ER_EXISTS:
      return "zwei Einträge mit einem Namen";
    case ZIP_ER_EOF:
      return "abgeschnitten";
    case ZIP_ER_MEMORY:
      return "zu wenig Arbeitsspeicher";
    default:
      zip_error_t copy = error;
      return zip_error_strerror(&copy);
  }
}

}  // namespace

Archive::Archive(const std::string& path) : path_(path), handle_(std::make_unique<Library>(path)) {
  // The library takes an empty file for an archive without members.
  if (handle_->file.Size() == 0) {
    throw tools::Error("Das Archiv kann nicht gelesen werden: " + path + " (leere Datei)");
  }
  zip_error_t error;
  zip_error_init(&error);
  handle_->Open(&error);
  if (handle_->zip == nullptr) {
    handle_->file.RaiseFailure();
    const std::string reason = ReasonOf(error);
    zip_error_fini(&error);
    throw tools::Error("Das Archiv kann nicht gelesen werden: " + path + " (" + reason + ")");
  }
  zip_error_fini(&error);
  ReadDirectory();
  IndexNames();
}

Archive::~Archive() = default;

void Archive::ReadDirectory() {
  const zip_int64_t count = zip_get_num_entries(handle_->zip, 0);
  members_.reserve(static_cast<std::size_t>(std::max<zip_int64_t>(count, 0)));
  for (zip_int64_t i = 0; i < count; ++i) {
    const auto index = static_cast<zip_uint64_t>(i);
    zip_stat_t stat;
    zip_stat_init(&stat);
    // The bytes of the name as they are: the script holds the same ones.
    if (zip_stat_index(handle_->zip, index, ZIP_FL_ENC_RAW, &stat) != 0 || stat.name == nullptr) {
      throw tools::Error("Das Archiv kann nicht gelesen werden: " + path_ + " (Eintrag " +
                         std::to_string(i + 1) + ")");
    }
    members_.push_back({.name = stat.name,
                        .size = stat.size,
                        .packedSize = stat.comp_size,
                        .checksum = stat.crc,
                        .index = static_cast<std::uint32_t>(index),
                        .method = stat.comp_method,
                        .encrypted = stat.encryption_method != ZIP_EM_NONE});
  }
}

void Archive::IndexNames() {
  byName_.resize(members_.size());
  for (std::uint32_t i = 0; i < byName_.size(); ++i) byName_[i] = i;
  const auto nameOf = [this](std::uint32_t i) { return members_[i].name; };
  std::ranges::sort(byName_, {}, nameOf);
}

const Member* Archive::Find(std::string_view name) const {
  const auto nameOf = [this](std::uint32_t i) { return members_[i].name; };
  const auto found = std::ranges::lower_bound(byName_, name, {}, nameOf);
  return found == byName_.end() || nameOf(*found) != name ? nullptr : &members_[*found];
}

}  // namespace setup
