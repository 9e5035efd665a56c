#include "shell/RecentProducts.h"

#include <algorithm>
#include <system_error>

#include "model/Preferences.h"
#include "tools/files/Files.h"

namespace shell {

namespace {

constexpr char kPathSeparator = '\t';

bool CanBeKept(const std::string& path) {
  return std::none_of(path.begin(), path.end(), [](char c) { return c >= 0 && c < ' '; });
}

}  // namespace

std::vector<std::string> RecentProducts::Paths() const {
  const std::string stored = registry_.Read(tools::RegistryRoot::CurrentUser,
                                            model::kPreferencesKey, model::kRecentProducts, "");
  std::vector<std::string> paths;
  std::size_t begin = 0;
  while (begin < stored.size() && paths.size() < kMost) {
    const std::size_t end = std::min(stored.find(kPathSeparator, begin), stored.size());
    if (end > begin) paths.push_back(stored.substr(begin, end - begin));
    begin = end + 1;
  }
  return paths;
}

void RecentProducts::Add(const std::string& path) {
  std::vector<std::string> paths = Paths();
  if (!CanBeKept(path) || (!paths.empty() && paths.front() == path)) return;
  std::erase(paths, path);
  paths.insert(paths.begin(), path);
  if (paths.size() > kMost) paths.resize(kMost);
  Store(paths);
}

void RecentProducts::Remove(const std::string& path) {
  std::vector<std::string> paths = Paths();
  if (std::erase(paths, path) > 0) Store(paths);
}

void RecentProducts::Store(const std::vector<std::string>& paths) {
  std::string text;
  for (const std::string& path : paths) text += (text.empty() ? "" : "\t") + path;
  registry_.Write(tools::RegistryRoot::CurrentUser, model::kPreferencesKey, model::kRecentProducts,
                  text);
}

std::vector<std::string> MissingProducts(const std::vector<std::string>& paths) {
  std::vector<std::string> missing;
  for (const std::string& path : paths) {
    std::error_code failure;
    if (tools::KindOf(path, failure) != tools::PathKind::File && !failure) missing.push_back(path);
  }
  return missing;
}

}  // namespace shell
