#include "setup/Archive.h"

#include <zip.h>

#include <algorithm>

#include "setup/ArchiveLibrary.h"
#include "tools/Error.h"

namespace setup {

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
