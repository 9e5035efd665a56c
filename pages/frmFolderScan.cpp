#include "pages/frmFolderScan.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QStringListModel>
#include <QVBoxLayout>
#include <chrono>

#include "pages/PageGrid.h"
#include "pages/PageText.h"
#include "tools/desktop/FormStyle.h"
#include "tools/desktop/Guard.h"

namespace pages {

using namespace Qt::StringLiterals;
using tools::ToQString;
using tools::ToUtf8;

namespace {

constexpr auto kTypingDelay = std::chrono::milliseconds(250);  ///< while the author types
constexpr QSize kScanSize(600, 460);                           ///< pixels, at first

QString FoundText(const ScanResult& result) {
  if (!result.problem.empty()) return ToQString(result.problem);
  return Caption(result.files.size() == 1 ? Text::ScanFindsOne : Text::ScanFinds)
      .replace(u"%count%"_s, GermanNumber(result.files.size()))
      .replace(u"%size%"_s, tools::SizeText(result.bytes));
}

}  // namespace

frmFolderScan::frmFolderScan(const FolderScan& scan, const model::ModProject& project,
                             tools::Dialogs& dialogs, QWidget* parent)
    : QDialog(parent),
      project_(project),
      dialogs_(dialogs),
      txtFolder(new QLineEdit),
      cmdBrowse(new QPushButton(Caption(Text::Browse))),
      txtPattern(new QLineEdit),
      chkSubfolders(new QCheckBox(Caption(Text::EntryIncludeSubfolders))),
      lstFound(new QListView),
      found_(new QStringListModel(this)),
      lblFound(new QLabel) {
  setObjectName(u"frmFolderScan"_s);
  setWindowTitle(Caption(Text::TypeFolderScan));
  setFont(tools::FormFont());
  BuildFields(scan);
  BuildFound();
  LayOut();
  delay_.setSingleShot(true);
  delay_.setInterval(kTypingDelay);
  connect(&delay_, &QTimer::timeout, this, tools::Guarded(dialogs_, [this] { Search(); }));
  connect(&search_, &ScanSearch::Found, this, &frmFolderScan::Show);
  for (QLineEdit* field : {txtFolder, txtPattern}) {
    connect(field, &QLineEdit::textChanged, this, &frmFolderScan::ScanChanged);
  }
  connect(chkSubfolders, &QCheckBox::toggled, this, &frmFolderScan::ScanChanged);
  connect(cmdBrowse, &QPushButton::clicked, this, &frmFolderScan::Browse);
  ScanChanged();
  resize(kScanSize);
}

void frmFolderScan::BuildFields(const FolderScan& scan) {
  txtFolder->setObjectName(u"txtFolder"_s);
  txtFolder->setAccessibleName(Caption(Text::EntrySourceFolder));
  txtFolder->setText(ToQString(scan.folder));
  cmdBrowse->setObjectName(u"cmdBrowse"_s);
  cmdBrowse->setAutoDefault(false);
  txtPattern->setObjectName(u"txtPattern"_s);
  txtPattern->setAccessibleName(Caption(Text::ScanPattern));
  txtPattern->setText(ToQString(scan.pattern));
  chkSubfolders->setObjectName(u"chkSubfolders"_s);
  chkSubfolders->setChecked(scan.withSubfolders);
  for (QLineEdit* field : {txtFolder, txtPattern}) tools::PrepareTextBox(*field);
}

void frmFolderScan::BuildFound() {
  lstFound->setObjectName(u"lstFound"_s);
  lstFound->setAccessibleName(Caption(Text::FoundNow));
  lstFound->setModel(found_);
  lstFound->setUniformItemSizes(true);
  lstFound->setEditTriggers(QAbstractItemView::NoEditTriggers);
  lblFound->setObjectName(u"lblFound"_s);
  lblFound->setTextFormat(Qt::PlainText);
  lblFound->setWordWrap(true);
}

void frmFolderScan::LayOut() {
  auto* folder = new QHBoxLayout;
  folder->addWidget(txtFolder, 1);
  folder->addWidget(cmdBrowse);
  auto* form = new QFormLayout;
  form->addRow(Caption(Text::EntrySourceFolder) + u':', folder);
  form->addRow(Caption(Text::ScanPattern) + u':', txtPattern);
  form->addRow(QString(), chkSubfolders);
  QDialogButtonBox* buttons = tools::MakeOkCancelButtons(this);
  cmdOK = buttons->button(QDialogButtonBox::Ok);
  // Enter must not cancel while OK is not available.
  buttons->button(QDialogButtonBox::Cancel)->setAutoDefault(false);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  auto* found = new QLabel(Caption(Text::FoundNow) + u':');
  found->setBuddy(lstFound);
  layout->addWidget(found);
  layout->addWidget(lstFound, 1);
  layout->addWidget(lblFound);
  layout->addSpacing(layout->spacing());
  layout->addWidget(buttons);
  txtFolder->setFocus();  // else the button OK would have it, which cannot be pressed yet
}

FolderScan frmFolderScan::Scan() const {
  return {.folder = ToUtf8(txtFolder->text()),
          .pattern = ToUtf8(txtPattern->text()),
          .withSubfolders = chkSubfolders->isChecked()};
}

void frmFolderScan::ScanChanged() {
  const bool isComplete = !txtFolder->text().isEmpty() && !txtPattern->text().isEmpty();
  cmdOK->setEnabled(isComplete);
  cmdOK->setDefault(true);
  found_->setStringList({});
  lblFound->setText(isComplete ? Caption(Text::Searching) : QString());
  if (isComplete) {
    delay_.start();
  } else {
    delay_.stop();
  }
}

void frmFolderScan::Search() { search_.Start(Scan(), project_.ProductFolder()); }

void frmFolderScan::Show(const ScanResult& result) {
  // What was typed meanwhile is searched for in a moment.
  if (delay_.isActive() || !cmdOK->isEnabled()) return;
  found_->setStringList(result.files);
  lblFound->setText(FoundText(result));
}

void frmFolderScan::Browse() {
  const QString folder = FolderHelp(dialogs_).browse();
  if (!folder.isEmpty()) txtFolder->setText(folder);
}

}  // namespace pages
