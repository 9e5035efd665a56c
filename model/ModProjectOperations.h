// What an author does with products: create, open, close and save them, add and delete versions and
// components. Each operation asks its questions, changes the files, and has the window follow.
//
// A refusal is a message box and leaves everything as it was. tools::Error of the storage ends an
// operation and reaches the caller, except where a page fails to save.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "model/MainView.h"
#include "model/ModProject.h"
#include "model/Undo.h"
#include "tools/Clock.h"
#include "tools/Dialogs.h"
#include "tools/files/Disk.h"

namespace model {

class ModProjectOperations {
 public:
  /// The references, those in `desktop` too, must outlive this object; the
  /// constructor uses none of them.
  ModProjectOperations(ModProject& project, tools::Disk& disk, tools::Dialogs& dialogs,
                       const tools::Clock& clock, const Desktop& desktop);

  /// True when a product was created and opened.
  bool NewProduct();
  /// Opens the product file, asking for one when `path` is empty. True when it is now open.
  bool OpenProduct(const std::string& path);
  /// Closes the product; each page with changes is offered for applying.
  void CloseProduct();
  /// The same, with a warning first when pages hold changes. False when the user cancelled it.
  bool CloseProductAfterWarning();
  /// Asks whether what HasUnsaved tells of may be lost; closes nothing.
  [[nodiscard]] bool MayDropChanges();
  /// Applies every page, in order. A page that fails is reported and counts as saved all the same.
  void SaveAllPages();
  /// True when some page holds changes.
  [[nodiscard]] bool IsDirty() const;
  /// True when some page holds changes, those that could not be saved included.
  [[nodiscard]] bool HasUnsaved() const;

  /// The slot of the highest version, 0 when there is none; of equal ones the first.
  [[nodiscard]] VersionSlot LatestVersion() const;
  void AddVersion();
  /// `shownText` is the version's text as the tree was told it; when the slot holds another one now
  /// (another program changed the product), says so, refreshes the tree and deletes nothing.
  void DeleteVersion(VersionSlot version, const std::string& shownText);
  void AddComponent(VersionSlot version);
  /// `shownVersion` and `shownTitle` as above.
  void DeleteComponent(VersionSlot version, ComponentSlot component,
                       const std::string& shownVersion, const std::string& shownTitle);

 private:
  using Lock = tools::SettingsStore::Lock;
  tools::MessageAnswer Ask(const std::string& text, const std::string& caption,
                           tools::MessageButtons buttons, tools::MessageAnswer defaultAnswer);
  void Refuse(const std::string& text, const std::string& caption);
  [[nodiscard]] bool AnyPage(bool (OpenPage::*is)() const) const;
  bool CreateProduct(const model::NewProduct& product);
  [[nodiscard]] std::string AskForProductFile();
  [[nodiscard]] std::string NextVersionText(VersionSlot latest) const;
  [[nodiscard]] bool VersionExists(const std::string& version) const;
  [[nodiscard]] bool HaveOneFolder(const std::string& stored, const std::string& version) const;
  [[nodiscard]] std::shared_ptr<tools::SettingsFile> NewVersionFile(VersionSlot latest) const;
  /// Releases the lock where the new version is there.
  void CreateVersion(const std::string& version, Lock& lock);
  /// Makes what will be `folder` under a temporary name, which is returned.
  std::string WriteVersionFolder(const std::string& folder, const tools::SettingsFile& file,
                                 Undo& undo);
  void ListVersion(VersionSlot slot, const std::string& version);
  bool ConfirmDeletion();
  /// Releases the lock before it says so.
  bool IsOutdated(const std::string& stored, const std::string& shown, Lock& lock);
  /// Runs the steps of an operation; when one fails, takes back those before it and raises the
  /// error, which then also tells what stayed.
  void Change(const std::function<void(Undo&)>& steps);
  void ShowWhere(const std::string& text, const std::string& version);
  void RemoveIfThere(const std::string& folder);
  void RemoveAndShow(const std::string& folder);

  ModProject& project_;
  tools::Disk& disk_;
  tools::Dialogs& dialogs_;
  const tools::Clock& clock_;
  Desktop desktop_;
};

}  // namespace model
