// What an editor page sees of its host: the settings of the node being edited, and the status bar.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "model/Slots.h"

namespace pages {

class EditorPage;

class PageHost {
 public:
  virtual ~PageHost() = default;
  PageHost() = default;
  PageHost(const PageHost&) = delete;
  PageHost& operator=(const PageHost&) = delete;

  /// A setting of the selected product, version or component; the default when it is absent.
  /// Raises tools::Error for a file that is there but cannot be read.
  [[nodiscard]] virtual std::string Read(std::string_view section, std::string_view key,
                                         std::string_view defaultValue) = 0;
  /// Sets a setting of the selected node, within InOneWrite only: a value that the page shows as it
  /// read it keeps its stored text. Raises tools::Error.
  virtual void Save(std::string_view section, std::string_view key, std::string_view value) = 0;
  /// Runs `writes`, whose Save calls become one replacement of the file; it may run twice. Asks the
  /// author first where `page` would overwrite what another program has changed. Raises
  /// tools::Error when the author refuses and when writing fails: nothing is written then. Does
  /// nothing while no product is open.
  virtual void InOneWrite(const EditorPage& page, const std::function<void()>& writes) = 0;

  /// A hint for the status bar.
  virtual void StatusTextChanged(const std::string& text) = 0;

  /// The slots of the selected version and component, 0 where none is selected.
  [[nodiscard]] virtual model::VersionSlot VersionIndex() const = 0;
  [[nodiscard]] virtual model::ComponentSlot ComponentIndex() const = 0;
};

}  // namespace pages
