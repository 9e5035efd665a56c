// Feeds damaged settings files to the parser:
//
//   settings_fuzz [INPUTS] [SEED]
//
// Each input is a small settings file with random damage. It must be kept byte for byte, a value
// written into it must be read back from what is rendered, and everything else must stay as it was.
// The same numbers give the same inputs; a broken rule prints the input and ends with 1.
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>

#include "tools/Error.h"
#include "tools/SettingsFile.h"

namespace {

using Random = std::mt19937_64;

std::string Piece(Random& random) {
  static constexpr const char* kPieces[] = {
      "[A]", "[a]",  "[B]\n",    "\n", "\r\n", "\r",           "=",    "k=v\n", "K = w ", "\"",
      "; c", " ",    "\t",       "[",  "]",    "\xEF\xBB\xBF", "\xFF", "ü",     "k",      "=\"x\"",
      "[]",  "x=\"", "k2=1\r\n", "==", "漢"};
  if (random() % 10 == 0) return std::string(1, static_cast<char>(random()));
  return kPieces[random() % std::size(kPieces)];
}

std::string Input(Random& random) {
  std::string input;
  for (std::uint64_t pieces = random() % 40; pieces > 0; --pieces) input += Piece(random);
  for (std::uint64_t damage = random() % 4; damage > 0 && !input.empty(); --damage) {
    input[random() % input.size()] = static_cast<char>(random());
  }
  return input;
}

/// The name of the rule that this input breaks; empty when it keeps them all.
std::string BrokenRule(const std::string& input, Random& random) {
  tools::SettingsFile file(input);
  const std::string before = file.Render();
  if (before.substr(0, input.size()) != input) return "content is kept";
  if (before.size() > input.size() + 2) return "only a line end is added";

  const char* section = random() % 2 == 0 ? "A" : "Neu";
  const char* key = random() % 2 == 0 ? "k" : "k3";
  const std::string value = Piece(random) + Piece(random);
  const std::string other = file.Read("B", "k2", "default");
  try {
    file.Write(section, key, value);
  } catch (const tools::Error&) {
    return file.Render() == before ? "" : "a refused write changes nothing";
  }
  if (file.Read(section, key, "") != value) return "a write is visible at once";
  const tools::SettingsFile again(file.Render());
  if (again.Read(section, key, "") != value) return "a write is read back";
  if (again.Read("B", "k2", "default") != other) return "other values stay";
  return again.Render() == file.Render() ? "" : "what was rendered is kept";
}

}  // namespace

int main(int argc, char** argv) {
  const std::uint64_t inputs = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 20'000;
  const std::uint64_t seed = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 1;
  Random random(seed);
  for (std::uint64_t i = 0; i < inputs; ++i) {
    const std::string input = Input(random);
    const std::string rule = BrokenRule(input, random);
    if (rule.empty()) continue;
    std::cout << "input " << i << " of seed " << seed << " breaks: " << rule << '\n'
              << input << '\n';
    return 1;
  }
  std::cout << inputs << " inputs of seed " << seed << " kept every rule\n";
}
