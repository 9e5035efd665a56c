// How the host of a property grid wants the edit of a row carried out.
#pragma once

#include <cstdint>

namespace grid {

/// The host's answer to the grid's question. Any value but the first two counts as Handled.
enum class EditReaction : std::int32_t {
  Dialog = 1,       ///< the grid opens its edit dialog
  NotEditable = 2,  ///< the grid tells the user that this value cannot be edited
  Handled = 0,      ///< the host has edited the value itself
};

}  // namespace grid
