// Damage to an archive, four bytes each, that the writer then builds on: whatever it is, the
// archive that comes out has the bytes of one that was packed anew.
#include <algorithm>

#include "tests/fuzz/Fuzz.h"
#include "tests/support/SampleBytes.h"
#include "tests/support/TemporaryFolder.h"
#include "tools/archive/ArchiveWriter.h"
#include "tools/files/Disk.h"

namespace {

class Rebuilds {
 public:
  Rebuilds() {
    std::string large;
    while (large.size() < kBlock + 3000) large += tests::WordBytes(3000);
    const std::string contents[] = {"",
                                    "a",
                                    tests::WordBytes(900),
                                    large,
                                    tests::RandomBytes(kBlock) + std::string(5000, 'x'),
                                    tests::RandomBytes(300)};
    for (const std::string& content : contents) {
      sources_.push_back(folder_.Write(std::to_string(sources_.size() + 1), content));
    }
    fresh_ = Build({});
  }

  void Try(std::string_view damages) {
    const std::string earlier = folder_.Write("earlier.zip", Damaged(damages));
    tests::Require(Build(earlier) == fresh_, "the bytes are those of a fresh archive");
  }

 private:
  static constexpr std::size_t kBlock = std::size_t{1} << 20U;

  std::string Build(const std::string& earlier) {
    tools::ArchiveWriter writer(
        disk_, folder_.Path("a.zip"),
        {.blockMegabytes = 1, .effort = 2, .threads = 1, .earlier = earlier});
    for (std::size_t i = 0; i < sources_.size(); ++i) {
      (void)writer.AddFile(sources_[i], std::to_string(i + 1));
    }
    (void)writer.Finish();
    return folder_.Read("a.zip");
  }

  /// Each damage is a distance from the end, where the directory lies (in units of 1 or, for odd
  /// kinds, of 40 bytes), a kind and a value.
  [[nodiscard]] std::string Damaged(std::string_view damages) const {
    std::string bytes = fresh_;
    for (; damages.size() >= 4 && bytes.size() > 1; damages.remove_prefix(4)) {
      const auto number = [&](std::size_t i) { return static_cast<unsigned char>(damages[i]); };
      const std::size_t unit = number(2) % 2 == 0 ? 1 : 40;
      const std::size_t distance = (number(0) + number(1) * std::size_t{256}) * unit;
      const std::size_t at = bytes.size() - 1 - distance % bytes.size();
      switch (number(2) / 2 % 4) {
        case 0:
          bytes[at] = damages[3];
          break;
        case 1:
          for (std::size_t i = at; i < std::min(at + 4, bytes.size()); ++i) bytes[i] = '\xFF';
          break;
        case 2:
          bytes.erase(at, number(3));
          break;
        default:
          bytes.insert(at, bytes.substr(at - std::min<std::size_t>(at, 80), number(3)));
      }
    }
    return bytes;
  }

  tests::TemporaryFolder folder_;
  tools::SystemDisk disk_;
  std::vector<std::string> sources_;
  std::string fresh_;
};

}  // namespace

void tests::Fuzz(std::string_view input) {
  static Rebuilds rebuilds;
  rebuilds.Try(input);
}
