#include "pages/EmptyFileHint.h"

#include <QAbstractItemView>
#include <QFocusEvent>
#include <QTextDocumentFragment>

#include "pages/PageText.h"
#include "pages/TargetFolders.h"
#include "tools/desktop/LinkColor.h"

namespace pages {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kUnknown = "unknown"_L1;
constexpr auto kFilter = "filter"_L1;
constexpr auto kLinkTag = "<a "_L1;
constexpr int kMargin = 12;  ///< pixels

QString Link(const QString& target, const QString& text) {
  return kLinkTag + u"href=\"%1\">%2</a>"_s.arg(target, text.toHtmlEscaped());
}

QString CountIn(int count, const QString& folder) {
  return Caption(Text::FilesInFolder)
      .replace(u"%count%"_s, GermanNumber(count))
      .replace(u"%folder%"_s, folder);
}

/// "5 in Installationsordner, 1 in unbekanntem Ordner (0)", each a link.
QString OtherFolders(const std::map<std::int32_t, int>& counts) {
  QStringList links;
  QStringList unknown;
  for (const auto& [number, count] : counts) {
    if (IsTargetFolder(number)) {
      links += Link(QString::number(number), CountIn(count, TargetFolderCaption(number)));
    } else {
      const QString folder =
          Caption(Text::InUnknownFolder).replace(u"%number%"_s, QString::number(number));
      unknown += Link(kUnknown, CountIn(count, folder));
    }
  }
  return (links + unknown).join(u", "_s);
}

}  // namespace

EmptyFileHint::EmptyFileHint(QAbstractItemView& list) : QLabel(list.viewport()), list_(list) {
  setObjectName(u"lblEmptyFileList"_s);
  setTextFormat(Qt::RichText);
  setWordWrap(true);
  setAlignment(Qt::AlignCenter);
  setMargin(kMargin);
  setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  setContextMenuPolicy(Qt::NoContextMenu);  // the list's menu, not that of the link's address
  hide();
  list.viewport()->installEventFilter(this);
  connect(this, &QLabel::linkActivated, this, &EmptyFileHint::Follow);
}

void EmptyFileHint::Update(const std::map<std::int32_t, int>& counts, bool isFiltered) {
  if (list_.model()->rowCount() > 0) {
    // The window's focus: it is not the active one yet when a dialog has just closed.
    if (window()->focusWidget() == this) list_.setFocus(Qt::TabFocusReason);
    hide();
    list_.setAccessibleDescription({});
    return;
  }
  if (isFiltered) {
    text_ = Caption(Text::NoEntryPassesFilter).toHtmlEscaped() + u' ' +
            Link(kFilter, Caption(Text::RemoveFilter));
  } else if (counts.empty()) {
    text_ = Caption(hasFile_ ? Text::NoFilesYet : Text::ComponentFileMissing).toHtmlEscaped();
  } else {
    text_ = Caption(Text::NoFilesInFolder).toHtmlEscaped() + u' ' + OtherFolders(counts);
  }
  ShowText();
  setFocusPolicy(text_.contains(kLinkTag) ? Qt::StrongFocus : Qt::NoFocus);
  Place();
  show();
}

void EmptyFileHint::ShowText() {
  const QColor link =
      tools::LinkColor(palette().color(QPalette::Link), palette().color(foregroundRole()),
                       palette().color(backgroundRole()));
  QString text = text_;
  setText(text.replace(kLinkTag, u"<a style=\"color:%1\" "_s.arg(link.name())));
  // To screen readers a list has no parts but its rows.
  list_.setAccessibleDescription(QTextDocumentFragment::fromHtml(text).toPlainText());
}

void EmptyFileHint::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && !isHidden()) ShowText();
}

// Tab leads to a link at once, not to the text around it.
void EmptyFileHint::focusInEvent(QFocusEvent* event) {
  QLabel::focusInEvent(event);
  const bool forward = event->reason() == Qt::TabFocusReason;
  if (forward || event->reason() == Qt::BacktabFocusReason) focusNextPrevChild(forward);
  list_.update();  // its frame shows the focus of what lies in it
}

void EmptyFileHint::focusOutEvent(QFocusEvent* event) {
  QLabel::focusOutEvent(event);
  list_.update();
}

void EmptyFileHint::Follow(const QString& link) {
  if (link == kFilter) {
    Q_EMIT FilterUnwanted();
  } else if (link == kUnknown) {
    Q_EMIT UnknownFoldersWanted();
  } else {
    Q_EMIT FolderWanted(link.toInt());
  }
}

void EmptyFileHint::Place() { setGeometry(list_.viewport()->rect()); }

bool EmptyFileHint::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) Place();
  return QLabel::eventFilter(watched, event);
}

}  // namespace pages
