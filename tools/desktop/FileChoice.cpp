#include "tools/desktop/FileChoice.h"

#include <QDir>
#include <QFileInfo>

namespace tools {

using namespace Qt::StringLiterals;

namespace {

QString Patterns(const QString& pattern) {
  QStringList patterns;
  for (const QString& item : pattern.split(u';', Qt::SkipEmptyParts)) {
    const QString one = item.trimmed();
    patterns += one == "*.*"_L1 ? u"*"_s : one;
  }
  return patterns.join(u' ');
}

}  // namespace

QStringList NameFilters(const QString& filter) {
  const QStringList parts = filter.split(u'|');
  QStringList filters;
  for (qsizetype text = 0; text + 1 < parts.size(); text += 2) {
    const QString patterns = Patterns(parts[text + 1]);
    if (!patterns.isEmpty()) filters += u"%1 (%2)"_s.arg(parts[text], patterns);
  }
  return filters.isEmpty() ? QStringList(u"*.* (*)"_s) : filters;
}

QString NearestFolder(const QString& folder) {
  QString candidate = QDir::cleanPath(QDir::fromNativeSeparators(folder));
  while (!candidate.isEmpty() && !QFileInfo(candidate).isDir()) {
    const qsizetype separator = candidate.lastIndexOf(u'/');
    if (separator < 0) return {};
    const QString above = candidate.left(separator == 0 ? 1 : separator);
    if (above == candidate) return {};
    candidate = above;
  }
  return candidate;
}

}  // namespace tools
