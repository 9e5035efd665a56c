// What the fuzzers have in common: the loop over inputs made from random numbers.
#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <string>

namespace tests {

using Random = std::mt19937_64;

/// One input and what is wrong with what became of it.
struct FuzzedInput {
  std::string text;        ///< printed when a rule is broken
  std::string brokenRule;  ///< its name; empty when all are kept
};

/// The main of a fuzzer, whose arguments are [INPUTS] [SEED]: makes and judges inputs, 20,000 of
/// them by default. The same numbers give the same inputs; a broken rule prints the input and ends
/// with 1.
[[nodiscard]] int RunFuzzer(int argc, char** argv,
                            const std::function<FuzzedInput(Random&)>& judgeNext);

}  // namespace tests
