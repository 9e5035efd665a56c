// Prints the seconds that a build on top of an earlier one cannot do without: it finds, reads and
// sums up every source, and compares it with what its packed bytes decode to. Nothing is written.
//
//   rebuild_limit FOLDER ARCHIVE
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "tools/archive/BlockTaker.h"
#include "tools/files/FindFiles.h"
#include "tools/files/InputFile.h"

namespace {

constexpr std::size_t kBlock = std::size_t{3} << 20U;  // of the archive's writer

// The blocks of the sources, each thread taking the next few files.
class Comparison {
 public:
  Comparison(const tools::EarlierArchive& earlier, const std::vector<std::string>& paths)
      : earlier_(earlier), paths_(paths) {}

  void Run() {
    constexpr std::size_t kAtOnce = 64;  // as many as the writer packs in one go
    tools::BlockDeflater deflater(1, kBlock);
    tools::BlockTaker taker(earlier_, deflater);
    for (std::size_t i = 0; (i = next_.fetch_add(kAtOnce)) < paths_.size();) {
      const std::size_t end = std::min(i + kAtOnce, paths_.size());
      for (; i < end; ++i) Compare(taker, paths_[i]);
    }
  }

  [[nodiscard]] std::size_t Differing() const { return differing_; }

 private:
  void Compare(tools::BlockTaker& taker, const std::string& path) {
    using tools::PackedForm;
    const tools::InputFile file(path);
    const std::size_t size = file.SteadyStamp().value().size;
    std::string content(std::min(size, kBlock), '\0');
    for (std::size_t at = 0; at < size; at += content.size()) {
      content.resize(std::min(size - at, kBlock));
      (void)file.ReadSome(at, content);
      const bool isLast = at + content.size() == size;
      const PackedForm form = isLast ? PackedForm::Stream : PackedForm::Part;
      const std::uint32_t sum = tools::Crc32(content);
      if (!taker.Take(form, content, sum) && !taker.WasStored(content, sum)) ++differing_;
    }
    if (file.Stamp().size != size) ++differing_;
  }

  const tools::EarlierArchive& earlier_;
  const std::vector<std::string>& paths_;
  std::atomic<std::size_t> next_ = 0;
  std::atomic<std::size_t> differing_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const std::string archive(argv[2]);
  const std::string bytes = tools::ReadWholeFile(archive);
  const std::string mark = bytes.substr(bytes.rfind("Packwright "));  // the comment
  const auto begun = std::chrono::steady_clock::now();
  const std::vector<std::string> paths =
      tools::FindFiles(argv[1], "*.*", tools::Subfolders::Search);
  for (const std::string& path : paths) (void)tools::StampOf(path);
  const tools::EarlierArchive earlier(archive, mark, kBlock);
  Comparison comparison(earlier, paths);
  std::vector<std::thread> threads;
  for (unsigned i = 0; i < std::thread::hardware_concurrency(); ++i) {
    threads.emplace_back([&comparison] { comparison.Run(); });
  }
  for (std::thread& thread : threads) thread.join();
  const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begun;
  std::printf("%.3f\n", time.count());
  if (comparison.Differing() > 0) std::fprintf(stderr, "%zu differ\n", comparison.Differing());
  return 0;
}
