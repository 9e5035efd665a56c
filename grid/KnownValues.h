// What helps the user to choose the value of a property.
#pragma once

#include <QString>
#include <functional>
#include <vector>

namespace grid {

/// A value that a property is known to take, and what it means.
struct KnownValue {
  QString value;
  QString meaning;
};

struct ValueHelp {
  /// The values that are proposed; others are taken as well.
  std::vector<KnownValue> values{};
  /// Lets the user choose what the value names, a folder on disk; empty text when he cancels. None:
  /// the value names nothing of that kind.
  std::function<QString()> browse{};
};

}  // namespace grid
