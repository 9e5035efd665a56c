#include "tools/desktop/wizard/WizardStructure.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "tools/StandardTexts.h"
#include "tools/desktop/FormStyle.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/PageArea.h"
#include "tools/desktop/QtText.h"
#include "tools/desktop/wizard/WizardHeader.h"

namespace tools {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWelcomeStyle = 1;
constexpr int kFinalStyle = 3;
constexpr int kWidthInCharacters = 104;
constexpr int kHeightInLines = 25;
constexpr int kMoreLines = 5;          ///< that the frame has at first, where the screen has them
constexpr QSize kWindowFrame(16, 48);  ///< what the window system may add around the frame
constexpr int kButtonWidthInCharacters = 16;
constexpr int kButtonsInWidth = 6;  ///< that the screen has room for at least

QPushButton* MakeButton(const QString& name, const QString& text, QWidget* parent) {
  auto* button = new QPushButton(text, parent);
  button->setObjectName(name);
  button->setMinimumWidth(
      std::min(kButtonWidthInCharacters * parent->fontMetrics().averageCharWidth(),
               parent->screen()->availableSize().width() / kButtonsInWidth));
  return button;
}

/// Needs the room of the page that is shown, not that of the largest one.
class PageStack : public QStackedWidget {
 public:
  using QStackedWidget::QStackedWidget;

  [[nodiscard]] QSize sizeHint() const override { return currentWidget()->sizeHint(); }
  [[nodiscard]] QSize minimumSizeHint() const override {
    return currentWidget()->minimumSizeHint().expandedTo(currentWidget()->minimumSize());
  }
  [[nodiscard]] bool hasHeightForWidth() const override {
    return currentWidget()->hasHeightForWidth();
  }
  [[nodiscard]] int heightForWidth(int width) const override {
    return currentWidget()->heightForWidth(width);
  }
};

QString OneKindOfLineBreak(const std::string& text) {
  return ToQString(text).replace("\r\n"_L1, "\n"_L1);
}

}  // namespace

WizardStructure::WizardStructure(WizardDriver& driver, const WizardPageRegistry& pages,
                                 Dialogs& dialogs, QWidget* parent)
    : QDialog(parent),
      driver_(driver),
      pages_(pages),
      dialogs_(dialogs),
      picture_(new WizardPicture(this)),
      header_(new WizardHeader(this)),
      lblStepBar_(new QLabel(this)),
      content_(new PageStack(this)),
      emptyPage_(new QWidget(content_)) {
  setObjectName(u"wizardStructure"_s);
  setFont(FormFont());
  lblStepBar_->setObjectName(u"lblStepBar"_s);
  lblStepBar_->setTextFormat(Qt::PlainText);
  lblStepBar_->setWordWrap(true);
  content_->addWidget(emptyPage_);
  const int unit = fontMetrics().height();
  // Margins of the frame itself are lost where a style is set before it has its size.
  auto* around = new QVBoxLayout;
  around->setContentsMargins(unit * 5 / 4, unit, 0, unit);
  pageArea_ = MakePageArea(content_, unit * 5 / 4, this);
  around->addWidget(pageArea_);

  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(picture_, 0, 0, 3, 1);
  layout->addWidget(header_, 0, 1);
  layout->addWidget(lblStepBar_, 1, 1);
  layout->addLayout(around, 2, 1);
  layout->setRowStretch(2, 1);
  layout->setColumnStretch(1, 1);
  auto* line = new QFrame(this);
  line->setFrameStyle(static_cast<int>(QFrame::HLine) | static_cast<int>(QFrame::Plain));
  line->setForegroundRole(QPalette::Mid);
  layout->addWidget(line, 3, 0, 1, 2);
  layout->addLayout(MakeButtons(), 4, 0, 1, 2);
  const QSize room = screen()->availableSize() - kWindowFrame;
  const QSize least(kWidthInCharacters * fontMetrics().averageCharWidth(), kHeightInLines * unit);
  setMinimumSize(least.boundedTo(room));
  resize((least + QSize(0, kMoreLines * unit)).boundedTo(room));
}

QBoxLayout* WizardStructure::MakeButtons() {
  cmdHelp_ = MakeButton(u"cmdHelp"_s, u"&Hilfe"_s, this);
  cmdBack_ = MakeButton(u"cmdBack"_s, u"< &Zurück"_s, this);
  cmdNext_ = MakeButton(u"cmdNext"_s, u"&Weiter >"_s, this);
  cmdFinish_ = MakeButton(u"cmdFinish"_s, u"&Fertig stellen"_s, this);
  cmdCancel_ = MakeButton(u"cmdCancel"_s, ToQString(StandardText(kTextCancel)), this);
  connect(cmdHelp_, &QPushButton::clicked, this,
          Guarded(dialogs_, [this] { driver_.ShowHelp(current_); }));
  connect(cmdBack_, &QPushButton::clicked, this, Guarded(dialogs_, [this] { GoBack(); }));
  connect(cmdNext_, &QPushButton::clicked, this, Guarded(dialogs_, [this] { GoForward(); }));
  connect(cmdFinish_, &QPushButton::clicked, this, Guarded(dialogs_, [this] { Finish(); }));
  connect(cmdCancel_, &QPushButton::clicked, this, &WizardStructure::reject);

  auto* buttons = new QHBoxLayout;
  const int unit = fontMetrics().height();
  buttons->setContentsMargins(unit, unit * 3 / 4, unit, unit * 3 / 4);
  buttons->setSpacing(unit / 3);
  buttons->addWidget(cmdHelp_);
  buttons->addStretch();
  buttons->addWidget(cmdBack_);
  buttons->addWidget(cmdNext_);
  buttons->addSpacing(unit / 2);
  buttons->addWidget(cmdFinish_);
  buttons->addWidget(cmdCancel_);
  return buttons;
}

void WizardStructure::Run(const std::string& startPage) {
  setWindowTitle(ToQString(driver_.Title()));
  FillStepBar();
  Show(startPage, {});
  exec();
  // Some window systems would give the keyboard to nobody.
  if (parentWidget() != nullptr) parentWidget()->activateWindow();
}

void WizardStructure::FillStepBar() {
  QStringList steps;
  for (const std::string& step : driver_.GetStepBar()) steps += ToQString(step);
  lblStepBar_->setText(steps.join(u" › "_s));
  lblStepBar_->setVisible(!steps.isEmpty());
  if (!steps.isEmpty()) driver_.ShowStepbar();
}

void WizardStructure::Show(std::string key, std::vector<std::string> visited) {
  // Whatever can fail comes before the page changes.
  WizardPage page = driver_.ShowPage(key);
  WizardOptionPage* control = PageControl(key);
  if (!current_.empty()) {
    driver_.LeavePage({current_, key, controls_.at(current_), store_});
  }
  if (control != nullptr) control->ShowValues();

  const std::string comingFrom = std::exchange(current_, std::move(key));
  page_ = std::move(page);
  visited_ = std::move(visited);
  content_->setCurrentWidget(control != nullptr ? control : emptyPage_);
  content_->updateGeometry();
  pageArea_->verticalScrollBar()->setValue(0);
  Describe(page_);
  FocusFirst(control);
  driver_.EnterPage({comingFrom, current_, control, store_});
}

void WizardStructure::Describe(const WizardPage& page) {
  const bool inner = page.PageStyle != kWelcomeStyle && page.PageStyle != kFinalStyle;
  picture_->SetImage(ToQString(page.PageImage));
  picture_->setVisible(!inner);
  header_->SetPage(inner ? WizardHeader::Page::Inner : WizardHeader::Page::Outer);
  const QString title = OneKindOfLineBreak(page.PageTitle);
  const QString description = OneKindOfLineBreak(page.PageDescription);
  header_->SetTexts(title, description);
  setAccessibleDescription(title + u"\n"_s + description);

  cmdBack_->setEnabled(!page.BackStep.empty() || !visited_.empty());
  cmdNext_->setEnabled(!page.ForwardStep.empty());
  cmdFinish_->setEnabled(page.AllowFinish);
  cmdCancel_->setEnabled(page.AllowCancel);
  cmdHelp_->setEnabled(page.EnableHelp);
  QPushButton* onEnter = cmdNext_->isEnabled() || !page.AllowFinish ? cmdNext_ : cmdFinish_;
  onEnter->setDefault(true);
}

WizardOptionPage* WizardStructure::PageControl(const std::string& key) {
  const auto known = controls_.find(key);
  if (known != controls_.end()) return known->second;
  const std::string progId = driver_.LoadPage(key);
  WizardOptionPage* control = progId.empty() ? nullptr : pages_.Create(progId, store_, content_);
  if (control != nullptr) content_->addWidget(control);
  controls_.emplace(key, control);
  return control;
}

void WizardStructure::FocusFirst(const QWidget* page) {
  if (page != nullptr) {
    for (QWidget* child = page->nextInFocusChain(); page->isAncestorOf(child);
         child = child->nextInFocusChain()) {
      if ((child->focusPolicy() & Qt::TabFocus) != 0 && child->isEnabledTo(this) &&
          child->isVisibleTo(this)) {
        child->setFocus(Qt::TabFocusReason);
        return;
      }
    }
  }
  for (QPushButton* button : {cmdNext_, cmdFinish_, cmdBack_, cmdCancel_}) {
    if (!button->isEnabled()) continue;
    button->setFocus(Qt::OtherFocusReason);
    return;
  }
}

void WizardStructure::GoForward() {
  std::vector<std::string> visited = visited_;
  visited.push_back(current_);
  Show(page_.ForwardStep, std::move(visited));
}

void WizardStructure::GoBack() {
  std::vector<std::string> visited = visited_;
  const std::string target = page_.BackStep.empty() ? visited.back() : page_.BackStep;
  // A page that the driver names takes the history back to when it was visited.
  const auto visit = std::find(visited.rbegin(), visited.rend(), target);
  if (visit != visited.rend()) visited.erase(std::prev(visit.base()), visited.end());
  Show(target, std::move(visited));
}

void WizardStructure::Finish() {
  driver_.Finish(*this);
  accept();
}

void WizardStructure::reject() {
  if (!page_.AllowCancel) return;
  Guard(dialogs_, [this] { driver_.Cancel(*this); });
  QDialog::reject();
}

}  // namespace tools
