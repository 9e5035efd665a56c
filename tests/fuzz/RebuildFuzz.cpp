// Feeds damaged archives to the writer, as what an earlier build has packed:
//
//   rebuild_fuzz [INPUTS] [SEED]
//
// Whatever the damage, the archive that comes out has the bytes of one that was packed anew.
#include <algorithm>

#include "tests/fuzz/Fuzzer.h"
#include "tests/support/SampleBytes.h"
#include "tests/support/TemporaryFolder.h"
#include "tools/Error.h"
#include "tools/archive/ArchiveWriter.h"
#include "tools/files/Disk.h"

namespace {

using tests::Random;

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

  /// The rule that a build on top of a damaged archive breaks; empty when it keeps them all.
  std::string BrokenRule(Random& random) {
    const std::string earlier = folder_.Write("earlier.zip", Damaged(random));
    try {
      return Build(earlier) == fresh_ ? "" : "the bytes are those of a fresh archive";
    } catch (const tools::Error&) {
      return "an earlier archive raises no error";
    }
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

  /// Mostly near the end, where the directory lies.
  std::string Damaged(Random& random) {
    std::string bytes = fresh_;
    const auto place = [&] {
      const std::size_t last = random() % 4 == 0 ? bytes.size() : std::size_t{600};
      return bytes.size() - 1 - random() % std::min(last, bytes.size());
    };
    for (std::uint64_t damages = 1 + random() % 4; damages > 0; --damages) {
      const std::size_t at = place();
      switch (random() % 5) {
        case 0:
          bytes[at] = static_cast<char>(random());
          break;
        case 1:
          bytes[at] = static_cast<char>(bytes[at] ^ 1 << random() % 8);
          break;
        case 2:
          for (std::size_t i = at; i < std::min(at + 4, bytes.size()); ++i) bytes[i] = '\xFF';
          break;
        case 3:
          bytes.erase(at, 1 + random() % 40);
          break;
        default:
          bytes.insert(at, bytes.substr(place(), random() % 80));
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

int main(int argc, char** argv) {
  Rebuilds rebuilds;
  return tests::RunFuzzer(argc, argv, [&](Random& random) {
    return tests::FuzzedInput{"a damaged archive", rebuilds.BrokenRule(random)};
  });
}
