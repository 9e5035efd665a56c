#include "tests/support/TemporaryFolder.h"

#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

namespace tests {

namespace fs = std::filesystem;

namespace {

std::string ToUtf8(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  std::random_device random;
  do {
    const std::string name = std::to_string(random()) + "-" + std::to_string(random());
    path_ = ToUtf8(fs::canonical(fs::temp_directory_path()) / ("packwright-test-" + name));
  } while (!fs::create_directory(At("")));
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(At(""), ignored);
}

// The library takes narrow text in the system's code page on Windows; char8_t is UTF-8 everywhere.
fs::path TemporaryFolder::At(std::string_view name) const {
  const std::string whole = name.empty() ? path_ : path_ + "/" + std::string(name);
  return fs::path(std::u8string(whole.begin(), whole.end())).make_preferred();
}

std::string TemporaryFolder::Path(std::string_view name) const { return ToUtf8(At(name)); }

std::string TemporaryFolder::Write(std::string_view name, std::string_view content) const {
  fs::create_directories(At(name).parent_path());
  std::ofstream file(At(name), std::ios::binary | std::ios::trunc);
  file.write(content.data(), static_cast<std::streamsize>(content.size()));
  file.close();
  if (!file) throw std::runtime_error("cannot write " + Path(name));
  return Path(name);
}

std::string TemporaryFolder::MakeFolder(std::string_view name) const {
  fs::create_directories(At(name));
  return Path(name);
}

std::string TemporaryFolder::Read(std::string_view name) const {
  std::ifstream file(At(name), std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + Path(name));
  return {std::istreambuf_iterator<char>(file), {}};
}

bool TemporaryFolder::Holds(std::string_view name) const {
  return fs::exists(fs::symlink_status(At(name)));
}

}  // namespace tests
