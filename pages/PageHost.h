// What an editor page sees of its host: the settings of the node being edited, and the status bar.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace pages {

class PageHost {
 public:
  virtual ~PageHost() = default;
  PageHost() = default;
  PageHost(const PageHost&) = delete;
  PageHost& operator=(const PageHost&) = delete;

  /// A setting of the selected product, version or component; the default when it is absent.
  [[nodiscard]] virtual std::string Read(std::string_view section, std::string_view key,
                                         std::string_view defaultValue) = 0;
  /// Writes a setting of the selected node; does nothing while no product is open. Raises
  /// tools::Error.
  virtual void Save(std::string_view section, std::string_view key, std::string_view value) = 0;
  /// Runs `writes`, whose Save calls become one replacement of the file; when it raises an error,
  /// none of them is written.
  virtual void InOneWrite(const std::function<void()>& writes) = 0;

  /// A hint for the status bar.
  virtual void StatusTextChanged(const std::string& text) = 0;

  /// The slots of the selected version and component, 0 where none is selected.
  [[nodiscard]] virtual std::int32_t VersionIndex() const = 0;
  [[nodiscard]] virtual std::int32_t ComponentIndex() const = 0;
};

}  // namespace pages
