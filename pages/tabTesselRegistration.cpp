#include "pages/tabTesselRegistration.h"

#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <cmath>

#include "model/SettingNames.h"
#include "pages/PageText.h"
#include "tools/Numbers.h"
#include "tools/Text.h"
#include "tools/desktop/FormStyle.h"
#include "tools/desktop/Guard.h"

namespace pages {

using namespace Qt::StringLiterals;
namespace setting = model::setting;
using tools::ToQString;
using tools::ToUtf8;

namespace {

constexpr std::string_view kCatalogue = setting::kCatalogueKey.section;
constexpr std::string_view kKey = setting::kCatalogueKey.key;
constexpr std::string_view kTitleKey = setting::kCatalogueTitle.key;
constexpr std::string_view kTypeKey = setting::kCatalogueType.key;
constexpr std::int32_t kProgramTypes = 6;
constexpr std::string_view kSubtypesKey = "SOFTWARE\\Quillon\\Tessel\\AppTypes\\";

/// What the catalogue knows an application key by, when the key on the page is one that it gives
/// out itself; 0 for a key of the author's own. This machine's catalogue gives out none.
std::int32_t LookUpTesselKey(const std::string& /*key*/) { return 0; }

/// The runtime's name for a program type. Its object that tells the names is not part of this
/// program; the number stands in for the name, as it does where the runtime is not installed.
QString ProgramTypeName(std::int32_t type) { return QString::number(type); }

/// The list position of a stored type; -1 for every number that is no type.
int PositionOfType(const std::string& stored) {
  const double type = std::nearbyint(tools::LeadingNumber(stored));
  return type >= 1 && type <= kProgramTypes ? static_cast<int>(type) - 1 : -1;
}

std::string WithoutBlanks(std::string_view text) {
  return tools::ReplaceAll(tools::ReplaceAll(text, " ", ""), "\t", "");
}

}  // namespace

tabTesselRegistration::tabTesselRegistration(const PageServices& services, QWidget* parent)
    : EditorPage(parent), registry_(services.registry) {
  setFont(tools::FormFont());
  setMouseTracking(true);
  BuildControls();
  auto* layout = new QFormLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  layout->setRowWrapPolicy(QFormLayout::WrapLongRows);
  layout->addRow(lblTesselKey, txtTesselKey);
  layout->addRow(lblProgramTitle, txtProgramTitle);
  layout->addRow(lblProgramType, cmbProgramType);
  layout->addRow(lblProgramSubtype, cmbProgramSubtype);
  setFocusProxy(txtTesselKey);
  ConnectEvents();
}

void tabTesselRegistration::BuildControls() {
  lblTesselKey = new QLabel(Caption(Text::CatalogueKey));
  txtTesselKey = new QLineEdit;
  lblProgramTitle = new QLabel(Caption(Text::CatalogueTitle));
  txtProgramTitle = new QLineEdit;
  lblProgramType = new QLabel(Caption(Text::CatalogueType));
  cmbProgramType = new QComboBox;
  tools::IgnoreWheelWithoutFocus(*cmbProgramType);
  lblProgramSubtype = new QLabel(Caption(Text::CatalogueSubtype));
  cmbProgramSubtype = new QComboBox;
  tools::IgnoreWheelWithoutFocus(*cmbProgramSubtype);
  const auto prepare = [this](QLabel* label, const QString& labelName, QWidget* field,
                              const QString& name, Text hint) {
    label->setObjectName(labelName);
    label->setBuddy(field);
    field->setObjectName(name);
    field->setAccessibleName(label->text());
    field->setAccessibleDescription(Caption(hint));
    field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    field->setMouseTracking(true);
    field->installEventFilter(this);
  };
  prepare(lblTesselKey, u"lblTesselKey"_s, txtTesselKey, u"txtTesselKey"_s, Text::CatalogueKeyHint);
  prepare(lblProgramTitle, u"lblProgramTitle"_s, txtProgramTitle, u"txtProgramTitle"_s,
          Text::CatalogueTitleHint);
  prepare(lblProgramType, u"lblProgramType"_s, cmbProgramType, u"cmbProgramType"_s,
          Text::CatalogueTypeHint);
  prepare(lblProgramSubtype, u"lblProgramSubtype"_s, cmbProgramSubtype, u"cmbProgramSubtype"_s,
          Text::CatalogueSubtypeHint);
  cmbProgramSubtype->setEditable(true);
  tools::NameEditableBox(*cmbProgramSubtype, lblProgramSubtype->text());
  cmbProgramSubtype->setInsertPolicy(QComboBox::NoInsert);
  cmbProgramSubtype->setCompleter(nullptr);
  for (QLineEdit* box : {txtTesselKey, txtProgramTitle, cmbProgramSubtype->lineEdit()}) {
    tools::PrepareTextBox(*box);
  }
}

void tabTesselRegistration::ConnectEvents() {
  const auto markDirty = [this] { MarkDirty(); };
  connect(txtTesselKey, &QLineEdit::textChanged, this, markDirty);
  connect(txtProgramTitle, &QLineEdit::textChanged, this, markDirty);
  // Only typing counts: a subtype chosen from the list changes the text as well.
  connect(cmbProgramSubtype->lineEdit(), &QLineEdit::textEdited, this, markDirty);
  connect(cmbProgramType, &QComboBox::activated, this, [this] {
    MarkDirty();
    FillSubtypes();
  });
}

void tabTesselRegistration::MarkDirty() {
  if (!loading_) SetDirty(true);
}

std::string tabTesselRegistration::Title() const { return model::LoadText(Text::CataloguePage); }

void tabTesselRegistration::ReadSettings() {
  const QScopedValueRollback loading(loading_, true);
  const std::string title =
      Host()->Read(setting::kComponentTitle.section, setting::kComponentTitle.key, "?");
  txtTesselKey->setText(
      ToQString(Host()->Read(kCatalogue, kKey, tools::LowerCase(WithoutBlanks(title)))));
  txtProgramTitle->setText(ToQString(Host()->Read(kCatalogue, kTitleKey, title)));
  FillTypes();
  cmbProgramType->setCurrentIndex(PositionOfType(Host()->Read(kCatalogue, kTypeKey, "1")));
  cmbProgramSubtype->setEditText(ToQString(Host()->Read(kCatalogue, "SubType", "")));
  FillSubtypes();
  storedSubtype_ = Subtype();
}

std::string tabTesselRegistration::Subtype() const {
  return ToUtf8(cmbProgramSubtype->currentText());
}

void tabTesselRegistration::FillTypes() {
  cmbProgramType->clear();
  for (std::int32_t type = 1; type <= kProgramTypes; ++type) {
    cmbProgramType->addItem(ProgramTypeName(type));
  }
}

void tabTesselRegistration::FillSubtypes() {
  const QString typed = cmbProgramSubtype->currentText();
  cmbProgramSubtype->clear();
  const std::string key = std::string(kSubtypesKey) + std::to_string(ChosenType());
  for (const std::string& name : registry_.ValueNames(tools::RegistryRoot::LocalMachine, key)) {
    cmbProgramSubtype->addItem(ToQString(name));
  }
  cmbProgramSubtype->setCurrentIndex(-1);
  cmbProgramSubtype->setEditText(typed);
}

std::int32_t tabTesselRegistration::ChosenType() const {
  return cmbProgramType->currentIndex() + 1;
}

void tabTesselRegistration::WriteSettings() {
  const std::string key = ToUtf8(txtTesselKey->text());
  if (LookUpTesselKey(key) == 0) Host()->Save(kCatalogue, kKey, key);
  Host()->Save(kCatalogue, kTitleKey, ToUtf8(txtProgramTitle->text()));
  Host()->Save(kCatalogue, kTypeKey, std::to_string(ChosenType()));
  Host()->Save(kCatalogue, "SubType", Subtype());
}

bool tabTesselRegistration::eventFilter(QObject* watched, QEvent* event) {
  const auto* field = qobject_cast<QWidget*>(watched);
  const bool pointed = event->type() == QEvent::MouseMove && qobject_cast<QLineEdit*>(watched);
  const bool entered = event->type() == QEvent::FocusIn && qobject_cast<QComboBox*>(watched);
  if (field != nullptr && (pointed || entered)) {
    StatusTextChanged(ToUtf8(field->accessibleDescription()));
  }
  return EditorPage::eventFilter(watched, event);
}

void tabTesselRegistration::mouseMoveEvent(QMouseEvent* event) {
  StatusTextChanged({});
  EditorPage::mouseMoveEvent(event);
}

}  // namespace pages
