// The settings of the selected node as its open pages have seen them, so that saving a page writes
// what its author changed and nothing else: another program may work on the same file.
//
// A text is edited when it is not what the page has read. Writing tells three cases apart:
//   - an edited text is written;
//   - a text as it was read is left alone, whatever the file holds by now, and written only where
//     the key has never been stored: so a page's defaults become settings when it is saved;
//   - where the page has edited something, and another program has changed something that the page
//     would write, the author decides. If the page's state is to count, all of it is written: a
//     numbered list that is half one program's and half the other's would be neither's.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "model/ModProject.h"
#include "tools/settings/SettingsFile.h"

namespace model {

class NodeSettings {
 public:
  /// What a page shows of a stored text, and writes when nobody edits it: bytes that are not UTF-8
  /// become replacement characters there.
  using AsShown = std::function<std::string(std::string_view text)>;
  /// Asks whether changes from outside to this file may be overwritten; raises an error to refuse.
  using AllowOverwriting = std::function<void(const std::string& file)>;

  /// `project` must outlive this object. No node is selected.
  NodeSettings(ModProject& project, AsShown asShown)
      : project_(project), asShown_(std::move(asShown)) {}

  /// Selects a node by its slots (0 where none is selected) and forgets what was seen of the last.
  /// A file that cannot be read is told by the first Read.
  void Select(VersionSlot version, ComponentSlot component);
  [[nodiscard]] VersionSlot Version() const { return version_; }
  [[nodiscard]] ComponentSlot Component() const { return component_; }

  [[nodiscard]] const std::string& ProductPath() const { return project_.ProductPath(); }
  /// The file of the node. Raises tools::Error.
  [[nodiscard]] std::string FilePath() const;
  /// Raises tools::Error that says which of product, version and component is gone. A version is
  /// gone too when another program has put another one into its slot.
  void RequireNode() const;
  /// True when the file holds other settings than when the node was selected, with the pages' own
  /// writes since then. What only the tree shows - titles of components, lists of versions and
  /// components - does not count. Raises tools::Error.
  [[nodiscard]] bool HasChangedOutside() const;

  /// Calls `reads`, whose Read calls see the file as it was when the node was selected. That is
  /// much quicker than single ones, which each look for the file.
  void InOneRead(const std::function<void()>& reads);
  /// A setting of the node; the default when it is absent. A default of 0 or 1 makes the key a
  /// number, whose empty text a page may write as 0 unedited. Raises tools::Error for a file that
  /// is there but cannot be read.
  [[nodiscard]] std::string Read(std::string_view section, std::string_view key,
                                 std::string_view defaultValue);

  /// Runs `writes`, whose Save calls become one replacement of the file; it may run twice and must
  /// give the same both times. What it, `allowOverwriting` or the disk raises leaves the file as it
  /// was, and so does the error where the slot holds another version by now. Does nothing while no
  /// product is open.
  void InOneWrite(const std::function<void()>& writes, const AllowOverwriting& allowOverwriting);
  /// Offers the text of a key by the rules above, each key once in a write.
  void Save(std::string_view section, std::string_view key, std::string_view value);

 private:
  enum class Mode {
    Compare,  ///< nothing is written: do edits meet changes from outside?
    Edits,
    All
  };
  struct Seen {
    std::string_view text;
    bool stored = false;  ///< in the file as it was when the node was selected
    bool noted = false;   ///< by a later or a default text
  };

  [[nodiscard]] bool IsOtherVersion() const;
  void RequireSameVersion() const;
  [[nodiscard]] Seen SeenOf(std::string_view section, std::string_view key) const;
  /// `stored` is what the file held when the node was selected.
  void NoteRead(std::string_view section, std::string_view key, std::string_view defaultValue,
                std::string_view value, std::optional<std::string_view> stored);
  void NoteOffer(std::string_view section, std::string_view key);
  void NoteFileList();
  /// Whether another program changed a section numbered behind those that a page saves: it would
  /// stay behind, unread, when the page's list has become shorter.
  [[nodiscard]] bool HaveLaterSectionsChanged() const;
  [[nodiscard]] bool EditsMeetOtherChanges(const std::function<void()>& writes);
  void NoteAgreed(std::string_view section, std::string_view key, std::string_view value);
  void Write(std::string_view section, std::string_view key, std::string_view value);
  void Commit(tools::SettingsStore::Batch& batch);
  [[nodiscard]] std::shared_ptr<const tools::SettingsFile> SeenWithWritesOf(
      const tools::SettingsFile& written) const;

  ModProject& project_;
  AsShown asShown_;
  VersionSlot version_ = 0;
  ComponentSlot component_ = 0;
  std::string versionText_;  ///< when it was selected; empty for none, and where none was stored

  /// The file as it was when the node was selected, with the pages' own writes since then.
  std::shared_ptr<const tools::SettingsFile> seen_ = std::make_shared<tools::SettingsFile>();
  /// By section and key: the defaults that absent keys were read as (but for empty ones), and texts
  /// that were read later and stood otherwise in `seen_`.
  std::unordered_map<std::string, std::string> noted_;
  std::set<std::string, std::less<>> numbers_;  ///< keys read with 0 or 1 as their default
  bool readLater_ = false;                      ///< `noted_` holds more than defaults
  bool isReadable_ = false;                     ///< the file was, when the node was selected
  bool isInOneRead_ = false;

  Mode mode_ = Mode::Edits;
  std::string file_;                                    ///< that is written
  std::shared_ptr<const tools::SettingsFile> current_;  ///< as a write finds the file
  /// What Compare was offered, by the name of a numbered section without its number.
  struct NumberedSections {
    std::int32_t last = 0;
    std::set<std::string, std::less<>> keys;
  };
  std::map<std::string, NumberedSections, std::less<>> offered_;
  std::vector<std::string> writtenNotes_;  ///< keys of `noted_` that a write stores
  /// `seen_` with the edited texts that a write finds stored already; null where there are none.
  std::shared_ptr<tools::SettingsFile> agreed_;
  bool edits_ = false;         ///< Compare found an edited text
  bool otherChanges_ = false;  ///< and one that another program changed
};

}  // namespace model
