// The options library's own words, in German.
#pragma once

#include <string>

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace console {

/// Gives the help of `app` German headings, and `footer` behind it. Flags take no value then.
void LabelInGerman(CLI::App& app, const std::string& footer);

/// What is wrong with a call.
[[nodiscard]] std::string GermanText(const CLI::ParseError& error);

}  // namespace console
