#include "setup/Proof.h"

#include <algorithm>
#include <utility>

#include "setup/ContentProof.h"
#include "setup/TargetPath.h"
#include "tools/SetupNames.h"
#include "tools/Text.h"
#include "tools/files/FindFiles.h"
#include "tools/files/Names.h"
#include "tools/files/Path.h"

namespace setup {

namespace {

// What lies beside the files of a setup that is not packaged.
bool IsOwnFile(const std::string& name) {
  return std::ranges::any_of(tools::kFixedSetupNames, [&name](const char* own) {
    return tools::EqualIgnoringCase(name, own);
  });
}

const char* StatementOf(CopyRule rule) {
  switch (rule) {
    case CopyRule::Add:
      return "Add";
    case CopyRule::ReplaceSafely:
      return "ReplSafe";
    case CopyRule::Copy:
      return "Copy";
  }
  return "";
}

class Prover {
 public:
  Prover(const Setup& setup, const ExpectedSetup& expected)
      : setup_(setup), plan_(setup.plan), expected_(expected), files_(MatchFiles(expected, plan_)) {
    result_.findings = setup.findings;
    result_.furtherFindings = setup.furtherFindings;
  }

  ProofResult Run(unsigned threads, const std::function<void(const tools::Progress&)>& onProgress) {
    ProveHead();
    ProveFiles();
    ProveNothingElse();
    ProveCollisions();
    ProveUse();
    ProveContents(threads, onProgress);
    return std::move(result_);
  }

 private:
  void Add(Finding finding) {
    if (result_.findings.size() < kKeptFindings) {
      result_.findings.push_back(std::move(finding));
    } else {
      ++result_.furtherFindings;
    }
  }
  void AddHead(const std::string& what, const std::string& found, const std::string& wanted) {
    if (found == wanted) return;
    Add({.file = setup_.scriptPath, .text = what + ": \"" + found + "\" statt \"" + wanted + "\""});
  }
  void AddForFile(const ExpectedFile& file, std::string text) {
    const ExpectedEntry& entry = expected_.entries[file.entry];
    Finding finding{.file = setup_.scriptPath, .text = std::move(text)};
    if (file.planned != ExpectedFile::kNotPlanned) finding.line = plan_.files[file.planned].line;
    finding.component = entry.component;
    finding.componentTitle = entry.componentTitle;
    finding.entry = entry.entry;
    Add(std::move(finding));
  }
  void AddForStatement(const PlannedFile& file, std::string text) {
    Add({.file = setup_.scriptPath,
         .line = file.line,
         .text = std::move(text),
         .componentTitle = plan_.components[file.component]});
  }

  void ProveHead() {
    const std::string name = tools::FileNamePart(setup_.scriptPath);
    AddHead("Name des Skripts", name, expected_.title + tools::kScriptEnding);
    AddHead("Autor", plan_.head.author, expected_.author);
    const bool digits =
        std::ranges::all_of(plan_.head.year, [](char c) { return c >= '0' && c <= '9'; });
    if (!digits || plan_.head.year.size() != 4 ||
        std::stoi(plan_.head.year) > expected_.latestYear) {
      AddHead("Jahr", plan_.head.year, "bis " + std::to_string(expected_.latestYear));
    }
    AddHead("Rückfrage", plan_.confirmation, expected_.confirmation);
    AddHead("Abbruch durch den Benutzer", plan_.cancellation, expected_.cancellation);
    const Registration none;
    const Registration& found = plan_.registration ? *plan_.registration : none;
    const Registration& wanted = expected_.registration ? *expected_.registration : none;
    AddHead("Tessel-Schlüssel", found.key, wanted.key);
    AddHead("Tessel-Bezeichnung", found.title, wanted.title);
    AddHead("Tessel-Programmtyp", found.type, wanted.type);
    AddHead("Installationsordner", plan_.folderProposal,
            "%ProgramFiles%\\" + tools::CleanFolderName(expected_.title, "X", 0, "_"));
    if (!plan_.archive.empty())
      AddHead("Archiv", plan_.archive, expected_.title + tools::kArchiveEnding);
  }

  void ProveFiles() {
    for (const ExpectedFile& file : files_) {
      const ExpectedEntry& entry = expected_.entries[file.entry];
      const std::string& source = entry.sources[file.source];
      if (file.planned == ExpectedFile::kNotPlanned) {
        AddForFile(file,
                   "Das Setup installiert diese Datei nicht: " + ExpectedTarget(entry, source));
        continue;
      }
      const PlannedFile& planned = plan_.files[file.planned];
      const CopyRule rule = ExpectedRule(entry, source);
      if (planned.rule != rule) {
        AddForFile(file, std::string(StatementOf(planned.rule)) + " statt " + StatementOf(rule) +
                             ": " + planned.target);
      }
      ProveFlag(file, "Registrierung", planned.registersItself, entry.registersItself);
      ProveFlag(file, "Abbruch bei Fehler", planned.vital, entry.vital);
      ProveFlag(file, "Hinweis auf den Pfad", planned.pathReminder, entry.pathReminder);
      ProveTexts(file, planned);
      if (planned.packaged && !planned.deletesTemporary) {
        AddForFile(file, "Die entpackte Datei wird nicht gelöscht: " + planned.stored);
      }
    }
  }
  void ProveFlag(const ExpectedFile& file, const std::string& what, bool found, bool wanted) {
    if (found == wanted) return;
    AddForFile(file, what + ": " + YesNo(found) + " statt " + YesNo(wanted) + ": " +
                         plan_.files[file.planned].target);
  }

  void ProveTexts(const ExpectedFile& file, const PlannedFile& planned) {
    const std::string& component = plan_.components[planned.component];
    const std::string& wanted = expected_.entries[file.entry].componentTitle;
    if (component != wanted) {
      AddForFile(file, "Komponente \"" + component + "\" statt \"" + wanted + "\"");
    }
    FailureText failure = expected_.failure;
    if (!planned.vital) failure.cancellation.clear();
    if (plan_.failures[planned.failure] != failure) {
      AddForFile(file, "Die Meldung bei einem Fehler ist eine andere: " + planned.target);
    }
  }

  void ProveNothingElse() {
    std::vector<bool> wanted(plan_.files.size());
    for (const ExpectedFile& file : files_) {
      if (file.planned != ExpectedFile::kNotPlanned) wanted[file.planned] = true;
    }
    for (std::size_t i = 0; i < wanted.size(); ++i) {
      if (wanted[i]) continue;
      AddForStatement(plan_.files[i],
                      "Kein Eintrag verlangt diese Datei: " + plan_.files[i].target);
    }
  }

  // Files that meet at one target: only one of them arrives.
  void ProveCollisions() {
    std::vector<std::pair<std::string, std::uint32_t>> places;
    places.reserve(files_.size());
    for (std::uint32_t i = 0; i < files_.size(); ++i) {
      if (files_[i].planned == ExpectedFile::kNotPlanned) continue;
      places.emplace_back(TargetKey(plan_.files[files_[i].planned].target), i);
    }
    std::ranges::sort(places);
    for (std::size_t i = 1; i < places.size(); ++i) {
      if (places[i].first == places[i - 1].first)
        AddCollision(places[i - 1].second, places[i].second);
    }
  }
  void AddCollision(std::uint32_t first, std::uint32_t second) {
    const ExpectedEntry& earlier = expected_.entries[files_[first].entry];
    const PlannedFile& later = plan_.files[files_[second].planned];
    std::string text = "Hier liegt schon die Datei aus Komponente " +
                       std::to_string(earlier.component) + " \"" + earlier.componentTitle +
                       "\", Eintrag " + std::to_string(earlier.entry) + ": " + later.target;
    if (later.rule == CopyRule::Add) {
      text += later.vital ? " (wird nicht ersetzt, obwohl unverzichtbar)" : " (wird nicht ersetzt)";
    }
    AddForFile(files_[second], text);
  }

  // Everything the setup holds must be of use.
  void ProveUse() {
    if (setup_.archive) {
      std::vector<bool> used(setup_.archive->Members().size());
      for (const PlannedFile& file : plan_.files) {
        const Member* const member = file.packaged ? setup_.archive->Find(file.stored) : nullptr;
        if (member != nullptr) used[member->index] = true;
      }
      for (const Member& member : setup_.archive->Members()) {
        if (!used[member.index]) AddUnused(setup_.archive->Path(), std::string(member.name));
      }
    }
    const auto packaged = [](const PlannedFile& file) { return file.packaged; };
    if (!std::ranges::any_of(plan_.files, packaged)) ProveUseOfTree();
  }
  void ProveUseOfTree() {
    std::vector<std::string> known{setup_.scriptPath};
    if (setup_.archive) known.push_back(setup_.archive->Path());
    for (const PlannedFile& file : plan_.files) known.push_back(TreePath(setup_, file));
    std::ranges::sort(known);
    for (const std::string& path :
         tools::FindFiles(setup_.folder, "*", tools::Subfolders::Search)) {
      const bool own =
          tools::FolderOf(path) == setup_.folder && IsOwnFile(tools::FileNamePart(path));
      if (!own && !std::ranges::binary_search(known, path)) AddUnused(path, {});
    }
  }
  void AddUnused(const std::string& path, const std::string& member) {
    Add({.file = path,
         .text = "Keine Anweisung des Skripts verwendet diese Datei" +
                 (member.empty() ? "" : ": " + member)});
  }

  void ProveContents(unsigned threads,
                     const std::function<void(const tools::Progress&)>& onProgress) {
    tools::Progress progress;
    for (const ExpectedFile& file : files_) {
      if (file.planned == ExpectedFile::kNotPlanned) continue;
      ++progress.filesTotal;
      progress.bytesTotal += SizeOf(setup_, plan_.files[file.planned]).value_or(0);
    }
    for (ContentFault& fault :
         CompareContents(setup_, expected_, files_, threads, progress, onProgress)) {
      AddForFile(files_[fault.file], std::move(fault.text));
    }
    result_.files = progress.filesDone;
    result_.bytes = progress.bytesDone;
  }

  const Setup& setup_;
  const Plan& plan_;
  const ExpectedSetup& expected_;
  const std::vector<ExpectedFile> files_;
  ProofResult result_;
};

}  // namespace

ProofResult Prove(const Setup& setup, const ExpectedSetup& expected, unsigned threads,
                  const std::function<void(const tools::Progress&)>& onProgress) {
  return Prover(setup, expected).Run(threads, onProgress);
}

}  // namespace setup
