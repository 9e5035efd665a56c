#include "tests/fuzz/Fuzzer.h"

#include <cstdlib>
#include <iostream>

namespace tests {

int RunFuzzer(int argc, char** argv, const std::function<FuzzedInput(Random&)>& judgeNext) {
  const std::uint64_t inputs = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 20'000;
  const std::uint64_t seed = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 1;
  Random random(seed);
  for (std::uint64_t i = 0; i < inputs; ++i) {
    const FuzzedInput input = judgeNext(random);
    if (input.brokenRule.empty()) continue;
    std::cout << "input " << i << " of seed " << seed << " breaks: " << input.brokenRule << '\n'
              << input.text << '\n';
    return 1;
  }
  std::cout << inputs << " inputs of seed " << seed << " kept every rule\n";
  return 0;
}

}  // namespace tests
