// The registry keys and values that a component declares, in their stored form:
//
//   [Registry] Keys=N         the number of slots
//              Key<i>=PATH    the key in slot i, empty for a freed slot
//   [RegKey<i>] Values=M      the number of values of slot i
//              Val<j>Name=    a value's name, "@" for the key's default value
//              Val<j>Setting= its data, as text
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "model/ICFile.h"

namespace model {

struct RegistryValue {
  std::string name;
  std::string setting;

  bool operator==(const RegistryValue&) const = default;
};

/// True for two spellings of one key's path or name: case and the blanks around it do not count.
[[nodiscard]] bool IsSameKey(std::string_view path, std::string_view otherPath);

/// Keys are told apart as IsSameKey does. What reads raises
/// tools::Error naming file and key for a number of slots or values that is negative or too large.
class RegistryKeys {
 public:
  /// The settings file that keys are read from.
  struct Source {
    std::function<std::string()> path;
    /// Asked only when a stored count is so large that not every slot can be looked at.
    std::function<std::string()> text;
  };

  RegistryKeys(SettingReader read, SettingWriter write, Source source);

  /// The paths in the slots that are not free, in slot order.
  [[nodiscard]] std::vector<std::string> Paths() const;

  /// The values stored for a key, those of every slot with that path one after the other; names
  /// without the blanks around them.
  [[nodiscard]] std::vector<RegistryValue> ValuesOf(std::string_view path) const;

  /// Stores a key's values in the first slot with that path. Without one the first free slot is
  /// taken, or a new one, and its number becomes the number of slots: taking a freed slot hides
  /// those above it. Values of higher numbers stay where they are. Raises tools::Error.
  void Store(std::string_view path, const std::vector<RegistryValue>& values);

  /// Frees every slot with that path; the values stay where they are. Raises tools::Error.
  void Free(std::string_view path);

 private:
  [[nodiscard]] std::int32_t Count(std::string_view section, std::string_view key) const;
  [[nodiscard]] std::string PathIn(std::int32_t slot) const;
  /// The numbers from 1 to `count` that can name something: all of them for a count within reason,
  /// else those for which the file has a line that begins with `word`, the number and `ending`.
  [[nodiscard]] std::vector<std::int32_t> Numbers(std::string_view word, std::string_view ending,
                                                  std::int32_t count) const;
  [[nodiscard]] std::vector<std::int32_t> Slots() const;
  [[nodiscard]] std::vector<std::int32_t> SlotsOf(std::string_view path) const;
  [[nodiscard]] std::int32_t FreeSlot() const;
  void AppendValues(std::int32_t slot, std::vector<RegistryValue>& values) const;

  SettingReader read_;
  SettingWriter write_;
  Source source_;
};

/// A path as the registry page reads it from what the author typed.
struct RegistryPath {
  std::string path;    ///< without the text for the top level at its beginning
  std::string hive;    ///< up to the first "\"
  std::string subkey;  ///< what follows it, without a "\" at its end
};

/// `topLevel` is the text that stands for the top level: where `text`, without the blanks around
/// it, begins with exactly it and goes on, it is dropped with the one character that follows.
[[nodiscard]] RegistryPath ParseRegistryPath(std::string_view text, std::string_view topLevel);

/// `path` with a "\" ensured at its end (none is added to an empty path), followed by `name`.
[[nodiscard]] std::string JoinRegistryPath(std::string_view path, std::string_view name);

/// `path` without its last "\" and what follows it; empty when there is none.
[[nodiscard]] std::string ParentRegistryPath(std::string_view path);

}  // namespace model
