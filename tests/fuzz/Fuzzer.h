// What the fuzzers have in common: the loop over inputs made from random numbers.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <random>
#include <string>
#include <vector>

namespace tests {

using Random = std::mt19937_64;

inline const std::string& OneOf(const std::vector<std::string>& texts, Random& random) {
  return texts[random() % texts.size()];
}

/// One input and what is wrong with what became of it.
struct FuzzedInput {
  std::string text;        ///< printed when a rule is broken
  std::string brokenRule;  ///< its name; empty when all are kept
};

/// The main of a fuzzer, whose arguments are [INPUTS] [SEED]: makes and judges inputs, 20,000 of
/// them by default. The same numbers give the same inputs; a broken rule prints the input and ends
/// with 1.
[[nodiscard]] inline int RunFuzzer(int argc, char** argv,
                                   const std::function<FuzzedInput(Random&)>& judgeNext) {
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
