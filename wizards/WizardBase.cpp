#include "wizards/WizardBase.h"

#include <utility>

namespace wizards {

WizardBase::WizardBase(tools::Dialogs& dialogs, FrameMaker makeFrame)
    : dialogs_(dialogs), makeFrame_(std::move(makeFrame)) {}

WizardBase::~WizardBase() = default;

void WizardBase::Start(const std::string& startPage) {
  try {
    frame_ = makeFrame_(*this);
  } catch (const std::exception&) {
    dialogs_.ShowMessage({.text = "Cannot display wizard.",
                          .caption = "Error",
                          .icon = tools::MessageIcon::Critical});
    return;
  }
  FillDataStore(frame_->DataStore());
  frame_->Run(startPage.empty() ? "intro" : startPage);
  frame_.reset();
}

void WizardBase::ShowHelp(const std::string& /*key*/) {
  dialogs_.ShowMessage({.text = "No help is available at this time.",
                        .caption = "Help",
                        .icon = tools::MessageIcon::Exclamation});
}

}  // namespace wizards
