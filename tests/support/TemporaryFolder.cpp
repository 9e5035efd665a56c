#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

namespace tests {

namespace fs = std::filesystem;

namespace {

// The library takes narrow text in the system's code page on Windows; char8_t is UTF-8 everywhere.
fs::path FromUtf8(std::string_view text) {
  return fs::path(std::u8string(text.begin(), text.end())).make_preferred();
}

std::string ToUtf8(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

fs::path MakeUniqueFolder() {
  std::random_device random;
  const fs::path base = fs::canonical(fs::temp_directory_path());
  for (;;) {
    fs::path candidate =
        base / ("packwright-test-" + std::to_string(random()) + "-" + std::to_string(random()));
    if (fs::create_directory(candidate)) return candidate;
  }
}

}  // namespace

TemporaryFolder::TemporaryFolder() : path_(ToUtf8(MakeUniqueFolder())) {}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(FromUtf8(path_), ignored);
}

std::string TemporaryFolder::Path(std::string_view name) const {
  return ToUtf8(FromUtf8(path_) / FromUtf8(name));
}

std::string TemporaryFolder::Write(std::string_view name, std::string_view content) const {
  const fs::path path = FromUtf8(path_) / FromUtf8(name);
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(content.data(), static_cast<std::streamsize>(content.size()));
  file.close();
  if (!file) throw std::runtime_error("cannot write " + ToUtf8(path));
  return ToUtf8(path);
}

std::string TemporaryFolder::MakeFolder(std::string_view name) const {
  const fs::path path = FromUtf8(path_) / FromUtf8(name);
  fs::create_directories(path);
  return ToUtf8(path);
}

std::string TemporaryFolder::Read(std::string_view name) const {
  const fs::path path = FromUtf8(path_) / FromUtf8(name);
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + ToUtf8(path));
  return {std::istreambuf_iterator<char>(file), {}};
}

bool TemporaryFolder::Holds(std::string_view name) const {
  return fs::exists(fs::symlink_status(FromUtf8(path_) / FromUtf8(name)));
}

}  // namespace tests
