// Reproducible contents for files of tests.
#pragma once

#include <cstddef>
#include <random>
#include <string>

namespace tests {

/// Bytes that do not compress.
[[nodiscard]] inline std::string RandomBytes(std::size_t size, unsigned seed = 1) {
  std::minstd_rand random(seed);
  std::string bytes(size, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random() >> 16U);
  return bytes;
}

/// Bytes that compress: words in no order.
[[nodiscard]] inline std::string WordBytes(std::size_t size, unsigned seed = 1) {
  std::minstd_rand random(seed);
  std::string bytes;
  while (bytes.size() < size) bytes.append("Wort").append(std::to_string(random() % 5000));
  bytes.resize(size);
  return bytes;
}

/// Stretches of both kinds and of zeros, so that all kinds of deflate blocks occur.
[[nodiscard]] inline std::string MixedBytes(std::size_t size) {
  std::string bytes;
  for (unsigned seed = 1; bytes.size() < size; ++seed) {
    bytes += WordBytes(40'000 * (seed % 7 + 1), seed) + std::string(30'000 * seed, '\0');
    bytes += RandomBytes(60'000, seed);
  }
  bytes.resize(size);
  return bytes;
}

}  // namespace tests
