#include "shell/EditorTabs.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "model/TextTable.h"
#include "pages/PageText.h"
#include "tools/Error.h"
#include "tools/StandardTexts.h"
#include "tools/Text.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/QtText.h"
#include "tools/desktop/UserInputBlocker.h"
#include "tools/desktop/WaitCursor.h"
#include "tools/settings/SettingsStore.h"

namespace shell {

using model::Text;

namespace {

void Apply(pages::EditorPage& page) {
  const tools::WaitCursor hourglass;
  tools::PaintWithoutUserInput();
  page.ApplyChanges();
}

/// The author chose to keep what another program did to the file.
class OverwritingRefused : public tools::Error {
 public:
  using tools::Error::Error;
};

}  // namespace

EditorTabs::EditorTabs(EditorArea& area, model::ModProject& project, tools::Dialogs& dialogs,
                       tools::Registry& registry, const pages::PageRegistry& pageRegistry)
    : area_(area),
      project_(project),
      dialogs_(dialogs),
      pageRegistry_(pageRegistry),
      services_{.project = project, .dialogs = dialogs, .registry = registry},
      settings_(project, pages::AsShown) {}

EditorTabs::~EditorTabs() = default;

void EditorTabs::Reset(bool ask) {
  while (!pages_.empty()) {
    try {
      if (ask && pages_.front()->IsDirty()) OfferChanges(*pages_.front());
    } catch (const std::exception&) {
      return;
    }
    pages_.erase(pages_.begin());
  }
}

bool EditorTabs::OfferUnsaved() {
  std::vector<pages::EditorPage*> unwanted;
  for (const auto& page : pages_) {
    if (!page->IsUnsaved()) continue;
    if (!IsApplyingWanted(*page)) {
      unwanted.push_back(page.get());
      continue;
    }
    try {
      Apply(*page);
    } catch (const std::exception& error) {
      tools::ShowError(dialogs_, error.what());
      return false;
    }
  }
  for (pages::EditorPage* page : unwanted) page->SetDirty(false);
  return true;
}

bool EditorTabs::IsApplyingWanted(const pages::EditorPage& page) const {
  const std::string question =
      tools::ReplaceAll(model::LoadText(Text::ApplyPageChanges), "%title%", page.Title());
  return dialogs_.ShowMessage({.text = question,
                               .caption = tools::StandardText(tools::kTextQuestion),
                               .icon = tools::MessageIcon::Question,
                               .buttons = tools::MessageButtons::YesNo,
                               .defaultAnswer = tools::MessageAnswer::Yes}) ==
         tools::MessageAnswer::Yes;
}

void EditorTabs::OfferChanges(pages::EditorPage& page) {
  if (!IsApplyingWanted(page)) return;
  try {
    Apply(page);
  } catch (const OverwritingRefused& error) {
    failures_.emplace_back(error.what());
  } catch (const std::exception& error) {
    const std::string named =
        tools::ReplaceAll(model::LoadText(Text::ChangesNotSaved), "%title%", page.Title());
    failures_.push_back(tools::ReplaceAll(named, "%reason%", error.what()));
  }
}

std::vector<std::string> EditorTabs::TakeFailures() { return std::exchange(failures_, {}); }

void EditorTabs::AllowOverwriting(const pages::EditorPage& page, const std::string& file) {
  const auto withNames = [&](Text text) {
    const std::string named = tools::ReplaceAll(model::LoadText(text), "%title%", page.Title());
    return tools::ReplaceAll(named, "%file%", file);
  };
  if (dialogs_.ShowMessage({.text = withNames(Text::OverwriteOutsideChanges),
                            .caption = tools::StandardText(tools::kTextQuestion),
                            .icon = tools::MessageIcon::Question,
                            .buttons = tools::MessageButtons::YesNo,
                            .defaultAnswer = tools::MessageAnswer::No}) !=
      tools::MessageAnswer::Yes) {
    throw OverwritingRefused(withNames(Text::PageNotSaved));
  }
}

void EditorTabs::Prepare(std::string_view pageList, model::VersionSlot version,
                         model::ComponentSlot component) {
  std::vector<std::string> reasons;
  {
    // All pages see the file as it is now, and it is compared with the disk once for all its keys.
    const tools::SettingsStore::Session session(project_.Settings());
    settings_.Select(version, component);
    settings_.InOneRead([&] { reasons = MakePages(pageList); });
  }
  for (const std::string& reason : reasons) tools::ShowError(dialogs_, reason);
}

std::vector<std::string> EditorTabs::MakePages(std::string_view pageList) {
  std::vector<std::string> reasons;
  int position = 0;
  for (const std::string& name : tools::SplitList(pageList, ';', '"')) {
    const QString controlName = QStringLiteral("EditorTab%1").arg(++position);
    try {
      pages_.push_back(MakePage(name, controlName));
    } catch (const std::exception& error) {
      if (std::find(reasons.begin(), reasons.end(), error.what()) == reasons.end()) {
        reasons.emplace_back(error.what());
      }
    }
  }
  return reasons;
}

std::unique_ptr<pages::EditorPage> EditorTabs::MakePage(const std::string& pageName,
                                                        const QString& controlName) {
  const bool taken = std::any_of(pages_.begin(), pages_.end(), [&](const auto& page) {
    return page->objectName() == controlName;
  });
  if (taken) {
    throw tools::Error("Ein Steuerelement dieses Namens ist schon vorhanden: " +
                       tools::ToUtf8(controlName));
  }
  std::unique_ptr<pages::EditorPage> page(
      pageRegistry_.Create(pageName, services_, area_.PageParent()));
  page->setObjectName(controlName);
  page->setVisible(false);
  page->SetHost(this);
  page->ReadSettings();
  page->SetDirty(false);
  return page;
}

std::int32_t EditorTabs::Count() const { return static_cast<std::int32_t>(pages_.size()); }

pages::EditorPage& EditorTabs::Item(std::int32_t index) {
  return *pages_.at(static_cast<std::size_t>(index) - 1);
}

void EditorTabs::ShowTab(std::int32_t index) {
  for (std::int32_t i = 1; i <= Count(); ++i) {
    pages::EditorPage& page = Item(i);
    if (i == index) area_.PositionExtender(page);
    if (page.isHidden() == (i == index)) page.setVisible(i == index);
  }
}

bool EditorTabs::HasChangedOutside() const {
  try {
    return settings_.HasChangedOutside();
  } catch (const tools::Error&) {
    return true;  // reading anew tells why
  }
}

std::string EditorTabs::MissingNode() const {
  try {
    if (!pages_.empty()) settings_.RequireNode();
    return {};
  } catch (const tools::Error& error) {
    return error.what();
  }
}

void EditorTabs::StatusTextChanged(const std::string& text) { area_.ShowStatusText(text); }

std::string EditorTabs::Read(std::string_view section, std::string_view key,
                             std::string_view defaultValue) {
  return settings_.Read(section, key, defaultValue);
}

void EditorTabs::Save(std::string_view section, std::string_view key, std::string_view value) {
  settings_.Save(section, key, value);
}

void EditorTabs::InOneWrite(const pages::EditorPage& page, const std::function<void()>& writes) {
  settings_.InOneWrite(writes, [&](const std::string& file) { AllowOverwriting(page, file); });
}

}  // namespace shell
