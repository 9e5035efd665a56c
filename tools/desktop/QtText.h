// The border between the UTF-8 text of the lower layers and Qt's text.
#pragma once

#include <QLocale>
#include <QString>
#include <cstdint>
#include <string>
#include <string_view>

namespace tools {

/// Bytes that are not UTF-8 become U+FFFD.
[[nodiscard]] inline QString ToQString(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

[[nodiscard]] inline std::string ToUtf8(const QString& text) { return text.toStdString(); }

/// The locale of everything that the program shows, whatever the system's.
[[nodiscard]] inline QLocale GermanLocale() { return {QLocale::German, QLocale::Germany}; }

/// 50000 as "50.000".
[[nodiscard]] inline QString GermanNumber(qlonglong number) {
  return GermanLocale().toString(number);
}

/// A number of bytes as people read it: "1,5 MB".
[[nodiscard]] inline QString SizeText(std::uint64_t bytes) {
  return GermanLocale().formattedDataSize(static_cast<qint64>(bytes), 1,
                                          QLocale::DataSizeTraditionalFormat);
}

}  // namespace tools
