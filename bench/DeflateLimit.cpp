// The time that libdeflate level 6 needs on all processors for files that are already in memory:
// no builder that uses it can be quicker.
//
//   deflate_limit FOLDER
//
// Files are compressed side by side, larger ones in pieces of 3 MiB. Prints the seconds.
#include <libdeflate.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "tools/files/FindFiles.h"
#include "tools/files/InputFile.h"

namespace {

constexpr int kLevel = 6;
constexpr std::size_t kPieceBytes = std::size_t{3} << 20U;

void Compress(const std::vector<std::string_view>& pieces, std::atomic<std::size_t>& next) {
  const std::unique_ptr<libdeflate_compressor, void (*)(libdeflate_compressor*)> compressor(
      libdeflate_alloc_compressor(kLevel), libdeflate_free_compressor);
  std::vector<char> buffer(libdeflate_deflate_compress_bound(compressor.get(), kPieceBytes));
  for (std::size_t i = next++; i < pieces.size(); i = next++) {
    (void)libdeflate_crc32(0, pieces[i].data(), pieces[i].size());
    (void)libdeflate_deflate_compress(compressor.get(), pieces[i].data(), pieces[i].size(),
                                      buffer.data(), buffer.size());
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  std::vector<std::string> files;
  for (const std::string& path : tools::FindFiles(argv[1], "*", tools::Subfolders::Search)) {
    files.push_back(tools::ReadWholeFile(path));
  }
  std::vector<std::string_view> pieces;
  for (const std::string& file : files) {
    for (std::size_t begin = 0; begin < file.size(); begin += kPieceBytes) {
      pieces.push_back(std::string_view(file).substr(begin, kPieceBytes));
    }
  }
  const auto begun = std::chrono::steady_clock::now();
  std::atomic<std::size_t> next{0};
  std::vector<std::thread> threads;
  for (unsigned i = std::max(1U, std::thread::hardware_concurrency()); i > 0; --i) {
    threads.emplace_back([&] { Compress(pieces, next); });
  }
  for (std::thread& thread : threads) thread.join();
  std::cout << std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count()
            << '\n';
  return 0;
}
