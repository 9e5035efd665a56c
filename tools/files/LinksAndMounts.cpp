#include "tools/files/LinksAndMounts.h"

#include <deque>
#include <filesystem>

#include "tools/files/Path.h"

namespace tools {

std::vector<std::string> PlacesOnTheWay(std::string_view path) {
  namespace fs = std::filesystem;
  constexpr int kMostLinks = 40;  // as many as the system follows
  std::error_code failure;
  const fs::path whole = fs::absolute(ToPath(path), failure);
  fs::path here = whole.root_path();
  const fs::path parts = whole.relative_path();
  std::deque<fs::path> rest(parts.begin(), parts.end());
  std::vector<std::string> places;
  // What follows `here` and is not there: nothing below it is a link, or would be worth a look.
  std::vector<fs::path> missing;
  while (!rest.empty()) {
    const fs::path part = rest.front();
    rest.pop_front();
    if (part.empty() || part == ".") continue;
    if (part == "..") {
      if (missing.empty()) {
        here = here.parent_path();
      } else {
        missing.pop_back();
      }
      continue;
    }
    const fs::path next = missing.empty() ? here / part : fs::path();
    const fs::file_status status =
        missing.empty() ? fs::symlink_status(next, failure) : fs::file_status();
    if (!fs::exists(status)) {
      missing.push_back(part);
      continue;
    }
    const fs::path target = fs::is_symlink(status) ? fs::read_symlink(next, failure) : fs::path();
    if (target.empty() || places.size() >= kMostLinks) {
      here = next;
      continue;
    }
    places.push_back(FromPath(next));
    if (target.is_absolute()) here = target.root_path();
    const fs::path below = target.relative_path();
    rest.insert(rest.begin(), below.begin(), below.end());
  }
  for (const fs::path& part : missing) here /= part;
  places.push_back(CanonicalPath(FromPath(here)));
  return places;
}

}  // namespace tools
