// The border between the UTF-8 text of the lower layers and Qt's text.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tools {

/// Bytes that are not UTF-8 become U+FFFD.
[[nodiscard]] inline QString ToQString(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

[[nodiscard]] inline std::string ToUtf8(const QString& text) { return text.toStdString(); }

}  // namespace tools
