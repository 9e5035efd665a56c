#include "findings/FindingsList.h"

#include <QHeaderView>
#include <QStyle>
#include <algorithm>

#include "model/TextTable.h"
#include "tools/desktop/ListViewStyle.h"
#include "tools/desktop/QtText.h"

namespace findings {

using model::LoadText;
using model::Text;
using tools::ToQString;

namespace {

enum Column { kComponent, kEntry, kText };

constexpr int kComponentRole = Qt::UserRole;
constexpr int kEntryRole = Qt::UserRole + 1;
constexpr int kEntryIdRole = Qt::UserRole + 2;
constexpr int kComponentWidth = 22;  // characters
constexpr int kMostLines = 9;

QString TextOf(const engine::BuildMessage& message) {
  QString text = ToQString(message.text);
  if (!message.detail.empty()) text += QStringLiteral(" (%1)").arg(ToQString(message.detail));
  return text;
}

QString ComponentOf(const engine::BuildMessage& message) {
  if (message.component == 0) return {};
  if (message.componentTitle.empty()) return QString::number(message.component);
  return ToQString(message.componentTitle);
}

QString Counted(std::ptrdiff_t count, Text one, Text many) {
  return tools::GermanNumber(count) + u' ' + ToQString(LoadText(count == 1 ? one : many));
}

}  // namespace

FindingsList::FindingsList(QWidget* parent) : QTreeWidget(parent) {
  setObjectName(QStringLiteral("lsvFindings"));
  setHeaderLabels({ToQString(LoadText(Text::ComponentColumn)),
                   ToQString(LoadText(Text::EntryColumn)),
                   ToQString(LoadText(Text::FindingColumn))});
  tools::ApplyListViewStyle(*this);
  setTextElideMode(Qt::ElideMiddle);  // a path is known by its end
  header()->resizeSection(kComponent, kComponentWidth * fontMetrics().averageCharWidth());
  header()->setSectionResizeMode(kEntry, QHeaderView::ResizeToContents);
  header()->setStretchLastSection(true);
  connect(this, &QTreeWidget::itemActivated, this,
          [this](const QTreeWidgetItem* row) { ChoosePlace(*row); });
}

void FindingsList::Show(const std::vector<engine::BuildMessage>& messages, std::uint64_t further) {
  clear();
  const QIcon warning = style()->standardIcon(QStyle::SP_MessageBoxWarning);
  const QIcon error = style()->standardIcon(QStyle::SP_MessageBoxCritical);
  QList<QTreeWidgetItem*> rows;
  rows.reserve(static_cast<qsizetype>(messages.size()) + 1);
  for (const engine::BuildMessage& message : messages) {
    const bool isError = message.severity == engine::Severity::Error;
    const QString text = TextOf(message);
    auto* row = new QTreeWidgetItem(
        {ComponentOf(message), message.entry == 0 ? QString() : QString::number(message.entry),
         text});
    row->setIcon(kComponent, isError ? error : warning);
    row->setToolTip(kText, text);
    row->setData(kComponent, Qt::AccessibleTextRole,
                 ToQString(LoadText(isError ? Text::OneError : Text::OneWarning)) + u' ' +
                     ComponentOf(message));
    row->setData(kComponent, kComponentRole, std::int32_t{message.component});
    row->setData(kComponent, kEntryRole, message.entry);
    row->setData(kComponent, kEntryIdRole, ToQString(message.entryId));
    rows.append(row);
  }
  if (further > 0) {
    rows.append(
        new QTreeWidgetItem({{},
                             {},
                             ToQString(LoadText(Text::AndFurther))
                                 .replace(QStringLiteral("%count%"),
                                          tools::GermanNumber(static_cast<qlonglong>(further)))}));
  }
  addTopLevelItems(rows);
  updateGeometry();
}

QString FindingsList::Summary(const std::vector<engine::BuildMessage>& messages) {
  if (messages.empty()) return ToQString(LoadText(Text::NothingFound));
  const auto errors = std::ranges::count_if(messages, [](const engine::BuildMessage& message) {
    return message.severity == engine::Severity::Error;
  });
  const auto warnings = std::ssize(messages) - errors;
  return Counted(errors, Text::OneError, Text::Errors) + QStringLiteral(", ") +
         Counted(warnings, Text::OneWarning, Text::Warnings);
}

int FindingsList::HeightOf(int rows) const {
  const int row =
      topLevelItemCount() == 0 ? tools::RowHeight(*this) : indexRowSizeHint(model()->index(0, 0));
  return header()->sizeHint().height() + rows * row + 2 * frameWidth();
}

QSize FindingsList::sizeHint() const {
  return {QTreeWidget::sizeHint().width(),
          std::min(HeightOf(topLevelItemCount()), kMostLines * fontMetrics().lineSpacing())};
}

QSize FindingsList::minimumSizeHint() const {
  return {QTreeWidget::minimumSizeHint().width(), HeightOf(1)};
}

void FindingsList::ChoosePlace(const QTreeWidgetItem& row) {
  const ChosenPlace place{row.data(kComponent, kComponentRole).toInt(),
                          row.data(kComponent, kEntryRole).toInt(),
                          tools::ToUtf8(row.data(kComponent, kEntryIdRole).toString())};
  if (place.component != 0) Q_EMIT PlaceChosen(place);
}

}  // namespace findings
