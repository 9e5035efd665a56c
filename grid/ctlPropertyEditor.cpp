#include "grid/ctlPropertyEditor.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTreeView>
#include <algorithm>
#include <utility>

#include "grid/KnownValues.h"
#include "grid/PropertyRows.h"
#include "grid/frmEditProperty.h"
#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/desktop/FormStyle.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/ListViewStyle.h"
#include "tools/desktop/QtText.h"

namespace grid {

using namespace Qt::StringLiterals;
using tools::ToQString;
using tools::ToUtf8;

namespace {

constexpr int kBesideColumns = 22;  // pixels for a scroll bar and the frame

}  // namespace

ctlPropertyEditor::ctlPropertyEditor(tools::Dialogs& dialogs, GridTexts texts, QWidget* parent)
    : QWidget(parent),
      dialogs_(dialogs),
      texts_(std::move(texts)),
      rows_(new PropertyRows(this)),
      lsvProps_(new QTreeView(this)) {
  setFont(tools::FormFont());
  lsvProps_->setObjectName(u"lsvProps"_s);
  lsvProps_->setAccessibleName(texts_.accessibleName);
  lsvProps_->setModel(rows_);
  lsvProps_->installEventFilter(this);
  lsvProps_->viewport()->installEventFilter(this);
  lsvProps_->viewport()->setMouseTracking(true);
  setFocusProxy(lsvProps_);
  connect(lsvProps_, &QTreeView::doubleClicked, this, &ctlPropertyEditor::EditRow);
}

void ctlPropertyEditor::OnEditProperty(EditPropertyHandler handler) {
  onEditProperty_ = std::move(handler);
}

void ctlPropertyEditor::OnPropertyChanged(PropertyChangedHandler handler) {
  onPropertyChanged_ = std::move(handler);
}

void ctlPropertyEditor::OnValueHelp(ValueHelper helper) { valueHelper_ = std::move(helper); }

void ctlPropertyEditor::AddProperty(const QString& key, const QString& title,
                                    const QString& initialValue, std::int32_t /*dataType*/,
                                    bool /*readOnly*/) {
  if (key.isEmpty() || title.isEmpty()) return;
  if (rows_->RowOf(key) >= 0) {
    throw tools::Error("Die Eigenschaft \"" + ToUtf8(key) + "\" ist bereits vorhanden.");
  }
  const QString label = title.endsWith(u':') ? title.chopped(1) : title;
  const QString meaning = MeaningOf(key, initialValue);
  const bool hasTip = showTooltips_ || !meaning.isEmpty();
  rows_->Append({.key = key,
                 .title = label,
                 .value = initialValue,
                 .meaning = meaning,
                 .titleTip = showTooltips_ ? label : QString(),
                 .valueTip = hasTip ? WithMeaning(initialValue, meaning) : QString()});
}

void ctlPropertyEditor::AddMixedProperty(const QString& key, const QString& title) {
  AddProperty(key, title, QString());
  const int row = rows_->RowOf(key);
  if (row >= 0) rows_->Mix(row, texts_.mixed);
}

void ctlPropertyEditor::RemoveProperty(const QString& key) {
  const int row = rows_->RowOf(key);
  if (row >= 0) rows_->Remove(row);
}

void ctlPropertyEditor::SetProperty(const QString& key, const QString& newValue) {
  const int row = ExistingRow(key);
  const PropertyRow& property = rows_->At(row);
  if (property.value == newValue && !property.isMixed) return;
  const QString meaning = MeaningOf(key, newValue);
  const bool hasTip = showTooltips_ || !meaning.isEmpty();
  rows_->SetValue(row, newValue, meaning,
                  hasTip ? WithMeaning(newValue, meaning) : property.valueTip);
  if (onPropertyChanged_) onPropertyChanged_(key, newValue);
}

QString ctlPropertyEditor::GetProperty(const QString& key) const {
  const int row = rows_->RowOf(key);
  return row < 0 ? QString() : rows_->At(row).value;
}

QString ctlPropertyEditor::SelectedProperty() const {
  const QModelIndexList selected = lsvProps_->selectionModel()->selectedRows();
  return selected.isEmpty() ? QString() : rows_->At(selected.front().row()).key;
}

void ctlPropertyEditor::SelectProperty(const QString& key) {
  lsvProps_->setCurrentIndex(rows_->index(rows_->RowOf(key), PropertyRows::kTitle));
}

void ctlPropertyEditor::Clear() { rows_->Clear(); }

void ctlPropertyEditor::EditProperty(const QString& key) {
  const int row = rows_->RowOf(key);
  if (row < 0) return;
  QString value = rows_->At(row).value;
  auto reaction = EditReaction::Dialog;
  if (onEditProperty_) onEditProperty_(key, value, reaction);
  if (reaction == EditReaction::Dialog) {
    if (const std::optional<QString> confirmed = AskForValue(key, value)) {
      SetProperty(key, *confirmed);
    }
    return;
  }
  if (reaction == EditReaction::NotEditable) ShowNotEditable();
  SetProperty(key, value);
}

QString ctlPropertyEditor::ListPropertyNames() const {
  QString names;
  for (int row = 0; row < rows_->rowCount(); ++row) {
    if (row > 0) names += u"; "_s;
    names += rows_->At(row).key;
  }
  return names;
}

QSize ctlPropertyEditor::sizeHint() const { return lsvProps_->sizeHint(); }

bool ctlPropertyEditor::eventFilter(QObject* watched, QEvent* event) {
  if (watched == lsvProps_) {
    PassOnKey(*event);
  } else if (watched == lsvProps_->viewport()) {
    PassOnMouse(*event);
    if (event->type() == QEvent::MouseButtonDblClick) {
      // The list takes a double click of any button for one.
      return static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton;
    }
  }
  return QWidget::eventFilter(watched, event);
}

void ctlPropertyEditor::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  lsvProps_->setGeometry(0, 0, width(), height());
  const int columnWidth = std::max(0, lsvProps_->width() - kBesideColumns) / 2;
  lsvProps_->setColumnWidth(PropertyRows::kTitle, columnWidth);
  lsvProps_->setColumnWidth(PropertyRows::kValue, columnWidth);
}

void ctlPropertyEditor::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (styled_) return;
  styled_ = true;
  tools::ApplyListViewStyle(*lsvProps_);
  lsvProps_->setItemDelegateForColumn(PropertyRows::kValue, new MeaningDelegate(lsvProps_));
}

void ctlPropertyEditor::EditRow(const QModelIndex& index) {
  if (!index.isValid()) return;  // right of the columns, in Qt 6.4
  // A copy of the key: the host may remove the row in its handlers.
  tools::Guard(dialogs_, [this, key = rows_->At(index.row()).key] { EditProperty(key); });
}

std::optional<QString> ctlPropertyEditor::AskForValue(const QString& key, const QString& value) {
  const PropertyRow property = rows_->At(ExistingRow(key));
  frmEditProperty dialog(texts_, window());
  dialog.SetEnableDefaultValue(false);
  dialog.SetValue(value);
  QString prompt = texts_.prompt;
  dialog.SetPrompt(prompt.replace(u"%property%"_s, property.title));
  dialog.SetHelp(HelpFor(key));
  if (property.isMixed) dialog.SetEmptyHint(texts_.mixedEdit);
  dialog.exec();
  if (!dialog.Apply() || (property.isMixed && !dialog.IsEdited())) return std::nullopt;
  return ToQString(tools::TrimBlanks(ToUtf8(dialog.Value())));
}

ValueHelp ctlPropertyEditor::HelpFor(const QString& key) const {
  return valueHelper_ ? valueHelper_(key) : ValueHelp();
}

QString ctlPropertyEditor::MeaningOf(const QString& key, const QString& value) const {
  const std::vector<KnownValue> known = HelpFor(key).values;
  const auto found =
      std::find_if(known.begin(), known.end(),
                   [&value](const KnownValue& candidate) { return candidate.value == value; });
  return found == known.end() ? QString() : found->meaning;
}

void ctlPropertyEditor::ShowNotEditable() {
  dialogs_.ShowMessage({.text = ToUtf8(texts_.notEditable),
                        .caption = ToUtf8(texts_.editCaption),
                        .icon = tools::MessageIcon::Exclamation,
                        .buttons = tools::MessageButtons::Ok,
                        .defaultAnswer = tools::MessageAnswer::Ok});
}

int ctlPropertyEditor::ExistingRow(const QString& key) const {
  const int row = rows_->RowOf(key);
  if (row < 0) throw tools::Error("Die Eigenschaft \"" + ToUtf8(key) + "\" gibt es nicht.");
  return row;
}

void ctlPropertyEditor::PassOnKey(const QEvent& event) {
  if (event.type() != QEvent::KeyPress && event.type() != QEvent::KeyRelease) return;
  const auto& key = static_cast<const QKeyEvent&>(event);
  const auto code = static_cast<Qt::Key>(key.key());
  if (event.type() == QEvent::KeyRelease) {
    Q_EMIT KeyUp(code, key.modifiers());
    return;
  }
  Q_EMIT KeyDown(code, key.modifiers());
  for (const QChar character : key.text()) Q_EMIT KeyPress(character.unicode());
}

void ctlPropertyEditor::PassOnMouse(const QEvent& event) {
  if (!event.isPointerEvent()) return;
  const auto type = event.type();
  if (type != QEvent::MouseButtonPress && type != QEvent::MouseMove &&
      type != QEvent::MouseButtonRelease) {
    return;
  }
  const auto& mouse = static_cast<const QMouseEvent&>(event);
  const auto x = static_cast<float>(mouse.position().x());
  const auto y = static_cast<float>(mouse.position().y());
  if (type == QEvent::MouseMove) {
    Q_EMIT MouseMove(mouse.buttons(), mouse.modifiers(), x, y);
  } else if (type == QEvent::MouseButtonPress) {
    Q_EMIT MouseDown(mouse.button(), mouse.modifiers(), x, y);
  } else {
    Q_EMIT MouseUp(mouse.button(), mouse.modifiers(), x, y);
    if (lsvProps_->viewport()->rect().contains(mouse.position().toPoint())) Q_EMIT Click();
  }
}

}  // namespace grid
