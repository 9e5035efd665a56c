// The fields of a file entry as the editor shows them: by name, as text.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "model/ICFile.h"
#include "model/TextTable.h"

namespace model {

struct FileEntryField {
  using Member =
      std::variant<std::int16_t ICFile::*, std::int32_t ICFile::*, std::string ICFile::*>;

  std::string_view name;
  Text title;  ///< its title in the text table
  Member member;
  bool editable;
};

/// All fields, in the order in which they are shown.
[[nodiscard]] const std::array<FileEntryField, 14>& FileEntryFields();

/// The field's value; numbers in decimal.
[[nodiscard]] std::string FileEntryFieldText(const ICFile& entry, const FileEntryField& field);

/// Sets the editable field of that name (others change nothing): texts as they are, of numbers the
/// number that `text` begins with, 0 when it begins with none. Raises tools::Error when the number
/// does not fit the field, which then keeps its value.
void SetFileEntryField(ICFile& entry, std::string_view name, std::string_view text);

}  // namespace model
