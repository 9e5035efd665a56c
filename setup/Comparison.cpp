#include "setup/Comparison.h"

#include <zlib.h>

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "setup/TargetPath.h"

namespace setup {

namespace {

using Item = SetupContents::Item;

/// Takes the contents of a setup's files one by one.
class ContentTaker {
 public:
  ContentTaker(const Setup& setup, const std::function<void(const tools::Progress&)>& onProgress)
      : setup_(setup), reader_(setup), onProgress_(onProgress) {
    progress_.filesTotal = setup.plan.files.size();
    for (const PlannedFile& file : setup.plan.files) {
      progress_.bytesTotal += SizeOf(setup, file).value_or(0);
    }
  }

  Content Take(const PlannedFile& file) {
    Content content{.missing = true};
    if (!file.packaged) {
      if (SizeOf(setup_, file)) content = ContentOfTreeFile(file);
    } else if (const Member* const member = MemberOf(file)) {
      content = {.size = member->size, .checksum = member->checksum};
      progress_.bytesDone += member->size;
    }
    ++progress_.filesDone;
    onProgress_(progress_);
    return content;
  }

 private:
  [[nodiscard]] const Member* MemberOf(const PlannedFile& file) const {
    return setup_.archive ? setup_.archive->Find(file.stored) : nullptr;
  }
  Content ContentOfTreeFile(const PlannedFile& file) {
    Content content;
    uLong checksum = crc32_z(0, nullptr, 0);
    reader_.Read(file, [&](std::string_view bytes) {
      content.size += bytes.size();
      checksum = crc32_z(checksum, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size());
      progress_.bytesDone += bytes.size();
      onProgress_(progress_);
    });
    content.checksum = static_cast<std::uint32_t>(checksum);
    return content;
  }

  const Setup& setup_;
  ContentReader reader_;
  const std::function<void(const tools::Progress&)>& onProgress_;
  tools::Progress progress_;
};

std::string SizeText(const Content& content) {
  return content.missing ? "fehlt" : std::to_string(content.size) + " Bytes";
}

class Comparer {
 public:
  Comparer(const SetupContents& before, const SetupContents& after)
      : before_(before.plan), after_(after.plan), old_(before.items), new_(after.items) {}

  SetupComparison Run() {
    CompareHeads();
    Pair();
    FindRenamed();
    for (const Item* item : gone_) Report(Difference::Kind::Removed, OldFile(*item).target);
    for (const Item* item : added_) Report(Difference::Kind::Added, NewFile(*item).target);
    Count(old_, result_.oldFiles, result_.oldBytes);
    Count(new_, result_.newFiles, result_.newBytes);
    return std::move(result_);
  }

 private:
  [[nodiscard]] const PlannedFile& OldFile(const Item& item) const {
    return before_.files[item.file];
  }
  [[nodiscard]] const PlannedFile& NewFile(const Item& item) const {
    return after_.files[item.file];
  }
  static void Count(const std::vector<Item>& items, std::uint64_t& files, std::uint64_t& bytes) {
    files = items.size();
    for (const Item& item : items) bytes += item.content.size;
  }
  void Report(Difference::Kind kind, const std::string& target, const std::string& oldTarget = {}) {
    result_.differences.push_back({.kind = kind,
                                   .target = target,
                                   .oldTarget = oldTarget,
                                   .what = {},
                                   .oldValue = {},
                                   .newValue = {}});
  }
  void Check(Difference::Kind kind, const std::string& target, const char* what,
             const std::string& oldValue, const std::string& newValue) {
    if (oldValue == newValue) return;
    result_.differences.push_back({kind, target, {}, what, oldValue, newValue});
  }

  void CompareHeads() {
    const auto head = [this](const char* what, const std::string& oldValue,
                             const std::string& newValue) {
      Check(Difference::Kind::Head, {}, what, oldValue, newValue);
    };
    head("Autor", before_.head.author, after_.head.author);
    head("Rückfrage", before_.confirmation, after_.confirmation);
    const Registration oldEntry = before_.registration.value_or(Registration());
    const Registration newEntry = after_.registration.value_or(Registration());
    head("Tessel-Schlüssel", oldEntry.key, newEntry.key);
    head("Tessel-Bezeichnung", oldEntry.title, newEntry.title);
    head("Tessel-Programmtyp", oldEntry.type, newEntry.type);
    head("Installationsordner", before_.folderProposal, after_.folderProposal);
  }

  // Walks both lists, which have one order.
  void Pair() {
    const auto place = [](const Item& item) { return std::tie(item.key, item.turn); };
    auto oldItem = old_.begin();
    auto newItem = new_.begin();
    while (oldItem != old_.end() || newItem != new_.end()) {
      if (newItem == new_.end() || (oldItem != old_.end() && place(*oldItem) < place(*newItem))) {
        gone_.push_back(&*oldItem++);
      } else if (oldItem == old_.end() || place(*newItem) < place(*oldItem)) {
        added_.push_back(&*newItem++);
      } else {
        ComparePair(*oldItem++, *newItem++);
      }
    }
  }
  void ComparePair(const Item& oldItem, const Item& newItem) {
    const PlannedFile& oldFile = OldFile(oldItem);
    const PlannedFile& newFile = NewFile(newItem);
    const auto check = [&](const char* what, const std::string& oldValue,
                           const std::string& newValue) {
      Check(Difference::Kind::Changed, newFile.target, what, oldValue, newValue);
    };
    if (oldItem.content != newItem.content) {
      result_.differences.push_back({Difference::Kind::Changed,
                                     newFile.target,
                                     {},
                                     "Inhalt",
                                     SizeText(oldItem.content),
                                     SizeText(newItem.content)});
    }
    check("Ziel", oldFile.target, newFile.target);  // in its spelling
    check("Komponente", before_.components[oldFile.component],
          after_.components[newFile.component]);
    check("Vorhandene Datei", RuleText(oldFile.rule), RuleText(newFile.rule));
    check("Registrierung", YesNo(oldFile.registersItself), YesNo(newFile.registersItself));
    check("Abbruch bei Fehler", YesNo(oldFile.vital), YesNo(newFile.vital));
  }

  // A file that is gone and one that is new are the same one when their contents are; an empty file
  // says nothing.
  void FindRenamed() {
    std::multimap<Content, const Item*> gone;
    std::set<const Item*> renamed;
    for (const Item* item : gone_) gone.emplace(item->content, item);
    std::erase_if(added_, [&](const Item* item) {
      const auto found = gone.find(item->content);
      if (found == gone.end() || item->content.size == 0) return false;
      Report(Difference::Kind::Renamed, NewFile(*item).target, OldFile(*found->second).target);
      renamed.insert(found->second);
      gone.erase(found);
      return true;
    });
    std::erase_if(gone_, [&](const Item* item) { return renamed.contains(item); });
  }

  const Plan& before_;
  const Plan& after_;
  const std::vector<Item>& old_;
  const std::vector<Item>& new_;
  std::vector<const Item*> gone_;
  std::vector<const Item*> added_;
  SetupComparison result_;
};

}  // namespace

std::string DifferenceText(const Difference& difference) {
  std::string change = difference.what + ": " + difference.oldValue + " -> " + difference.newValue;
  switch (difference.kind) {
    case Difference::Kind::Head:
      return change;
    case Difference::Kind::Added:
      return "neu: " + difference.target;
    case Difference::Kind::Removed:
      return "entfernt: " + difference.target;
    case Difference::Kind::Renamed:
      return "umbenannt: " + difference.oldTarget + " -> " + difference.target;
    case Difference::Kind::Changed:
      return "geändert: " + difference.target + ": " + change;
  }
  return {};
}

SetupContents TakeContents(Setup& setup,
                           const std::function<void(const tools::Progress&)>& onProgress) {
  SetupContents contents;
  std::vector<Item>& items = contents.items;
  items.reserve(setup.plan.files.size());
  {
    ContentTaker taker(setup, onProgress);
    for (std::uint32_t i = 0; i < setup.plan.files.size(); ++i) {
      const PlannedFile& file = setup.plan.files[i];
      items.push_back({TargetKey(file.target), 0, i, taker.Take(file)});
    }
  }
  contents.plan = std::move(setup.plan);
  setup.archive.reset();
  std::ranges::sort(items, {}, [](const Item& item) { return std::tie(item.key, item.file); });
  for (std::size_t i = 1; i < items.size(); ++i) {
    if (items[i].key == items[i - 1].key) items[i].turn = items[i - 1].turn + 1;
  }
  return contents;
}

SetupComparison CompareSetups(const SetupContents& before, const SetupContents& after) {
  return Comparer(before, after).Run();
}

}  // namespace setup
