// What a file dialog is told, in Qt's terms.
#pragma once

#include <QString>
#include <QStringList>

namespace tools {

/// The name filters of "text|pattern" pairs separated by "|"; several patterns of a pair are
/// separated by ";". "*.*" matches every file, also one without an extension. A text without a
/// pattern is left out; no pair at all gives a filter for every file.
[[nodiscard]] QStringList NameFilters(const QString& filter);

/// `folder` when it exists, else the nearest folder above it that does; empty when there is none.
[[nodiscard]] QString NearestFolder(const QString& folder);

}  // namespace tools
