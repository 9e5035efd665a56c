#include "setup/ScriptStatement.h"

#include <algorithm>

#include "tools/Text.h"

namespace setup {

namespace {

using Kind = Statement::Kind;

/// Thrown where a line does not go on as it has to.
struct Unreadable {
  std::string expected;
  std::size_t offset;
};

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

class Scanner {
 public:
  explicit Scanner(std::string_view line) : line_(line) {}

  [[noreturn]] void Fail(std::string expected) const { throw Unreadable{std::move(expected), at_}; }

  [[nodiscard]] bool AtEnd() {
    SkipBlanks();
    return at_ == line_.size();
  }
  [[nodiscard]] bool Sees(char c) { return !AtEnd() && line_[at_] == c; }

  void End() {
    if (!AtEnd()) Fail("das Ende der Zeile");
  }
  void Mark(char mark) {
    if (!Sees(mark)) Fail(std::string("\"") + mark + "\"");
    ++at_;
  }
  /// The letters that come next; none when something else comes.
  [[nodiscard]] std::string_view PeekWord() {
    SkipBlanks();
    std::size_t end = at_;
    while (end < line_.size() && IsLetter(line_[end])) ++end;
    return line_.substr(at_, end - at_);
  }
  [[nodiscard]] bool Takes(std::string_view word) {
    if (PeekWord() != word) return false;
    at_ += word.size();
    return true;
  }
  void Word(std::string_view word) {
    if (!Takes(word)) Fail(std::string(word));
  }
  [[nodiscard]] std::string_view Text() {
    if (!Sees('"')) Fail("ein Text in Anführungszeichen");
    const std::size_t end = line_.find('"', ++at_);
    if (end == std::string_view::npos) {
      at_ = line_.size();
      Fail("ein schließendes Anführungszeichen");
    }
    const std::string_view text = line_.substr(at_, end - at_);
    at_ = end + 1;
    return text;
  }
  [[nodiscard]] std::string_view Number() {
    SkipBlanks();
    const std::size_t begin = at_;
    while (at_ < line_.size() && line_[at_] >= '0' && line_[at_] <= '9') ++at_;
    if (at_ == begin) Fail("eine Zahl");
    return line_.substr(begin, at_ - begin);
  }
  [[nodiscard]] bool Boolean() {
    if (Takes("True")) return true;
    if (!Takes("False")) Fail("True oder False");
    return false;
  }
  [[nodiscard]] std::string_view Rest() const { return line_.substr(at_); }

 private:
  void SkipBlanks() {
    while (at_ < line_.size() && (line_[at_] == ' ' || line_[at_] == '\t')) ++at_;
  }

  std::string_view line_;
  std::size_t at_ = 0;
};

void ParseAsk(Scanner& line, Statement& statement) {
  line.Mark('(');
  statement.arguments[0] = line.Text();
  line.Mark(')');
  line.Mark('=');
  line.Word("False");
}

void ParseExtract(Scanner& line, Statement& statement) {
  line.Mark('(');
  statement.arguments[0] = line.Text();
  line.Mark(',');
  statement.arguments[1] = line.Text();
  line.Mark(',');
  statement.arguments[2] = line.Text();
  line.Mark(')');
}

void ParseInstall(Scanner& line, Statement& statement) {
  statement.function = line.PeekWord();
  const bool safely = line.Takes("ReplSafe");
  if (!safely && !line.Takes("Add") && !line.Takes("Copy")) line.Fail("Add, ReplSafe oder Copy");
  line.Mark('(');
  statement.arguments[0] = line.Text();
  line.Mark(',');
  statement.arguments[1] = line.Text();
  if (safely) {
    line.Mark(',');
    line.Mark(',');  // the third argument is left out
    statement.flag = line.Boolean();
  }
  line.Mark(')');
}

void ParseIf(Scanner& line, Statement& statement) {
  if (line.Takes("Not")) {
    statement.kind = Kind::IfNotInstalled;
    ParseInstall(line, statement);
  } else if (line.Takes("Ask")) {
    statement.kind = Kind::IfAsk;
    ParseAsk(line, statement);
  } else if (line.Takes("Extract")) {
    statement.kind = Kind::IfExtract;
    ParseExtract(line, statement);
  } else {
    line.Fail("Ask, Extract oder Not");
  }
  line.Word("Then");
}

Kind ParseEnd(Scanner& line) {
  if (line.Takes("Sub")) return Kind::EndSub;
  if (line.Takes("If")) return Kind::EndIf;
  line.Fail("Sub oder If");
}

void ParseCall(Scanner& line, Statement& statement) {
  if (line.Takes("CancelInstall")) {
    statement.kind = Kind::CancelInstall;
    statement.arguments[0] = line.Text();
    if (!line.Sees(',')) return;
    line.Mark(',');
    line.Word("True");
    statement.flag = true;
  } else if (line.Takes("SelectInstallFolder")) {
    statement.kind = Kind::SelectInstallFolder;
    line.Word("PathStr");
    line.Mark('(');
    statement.arguments[0] = line.Text();
    line.Mark(')');
  } else if (line.Takes("SelfReg") || line.PeekWord() == "Del") {
    statement.kind = line.Takes("Del") ? Kind::Del : Kind::SelfReg;
    statement.arguments[0] = line.Text();
  } else if (line.Takes("RegPrd")) {
    statement.kind = Kind::RegPrd;
    statement.arguments[0] = line.Text();
    line.Mark(',');
    statement.arguments[1] = line.Text();
    line.Mark(',');
    statement.arguments[2] = line.Number();
  } else {
    statement.kind = line.PeekWord() == "ErrMsg" ? Kind::ErrMsg : Kind::SetAppKey;
    if (!line.Takes("ErrMsg") && !line.Takes("SetAppKey")) line.Fail("eine bekannte Anweisung");
    statement.arguments[0] = line.Text();
    line.Mark(',');
    statement.arguments[1] = line.Text();
  }
}

Statement Parse(Scanner& line) {
  Statement statement;
  if (line.AtEnd()) return statement;
  if (line.Sees('\'')) {
    line.Mark('\'');
    statement.kind = Kind::Comment;
    statement.arguments[0] = line.Rest();
    return statement;
  }
  if (line.Takes("If")) {
    statement.kind = Kind::IfAsk;
    ParseIf(line, statement);
  } else if (line.Takes("Else")) {
    statement.kind = Kind::Else;
  } else if (line.Takes("End")) {
    statement.kind = ParseEnd(line);
  } else if (line.Takes("Sub")) {
    statement.kind = Kind::Sub;
    line.Word("InstallMain");
    line.Mark('(');
    line.Mark(')');
  } else {
    ParseCall(line, statement);
  }
  line.End();
  return statement;
}

// The position of a byte as people count: characters, from 1.
std::size_t ColumnOf(std::string_view line, std::size_t offset) {
  const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
  return 1 + offset -
         static_cast<std::size_t>(std::ranges::count_if(line.substr(0, offset), continues));
}

}  // namespace

ParsedLine ParseScriptLine(std::string_view line) {
  ParsedLine parsed;
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 && c != '\t'; };
  const auto control = std::ranges::find_if(line, isControl);
  if (control != line.end()) {
    parsed.expected = "ein druckbares Zeichen";
    parsed.column = ColumnOf(line, static_cast<std::size_t>(control - line.begin()));
  } else if (!tools::IsValidUtf8(line)) {
    parsed.expected = "Text in UTF-8";
    parsed.column = 1;
  } else {
    Scanner scanner(line);
    try {
      parsed.statement = Parse(scanner);
      return parsed;
    } catch (const Unreadable& unreadable) {
      parsed.expected = unreadable.expected;
      parsed.column = ColumnOf(line, unreadable.offset);
    }
  }
  parsed.opensBlock = Scanner(line).PeekWord() == "If";
  return parsed;
}

}  // namespace setup
