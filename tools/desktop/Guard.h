// Keeps an error inside an event handler from ending the program: the user reads it in a message
// box and goes on.
#pragma once

#include <concepts>
#include <exception>
#include <functional>
#include <string>
#include <utility>

#include "tools/Dialogs.h"
#include "tools/StandardTexts.h"

namespace tools {

/// Shows `description` as an error: exclamation icon, OK button, the standard error caption.
inline void ShowError(Dialogs& dialogs, const std::string& description) {
  dialogs.ShowMessage({.text = description,
                       .caption = StandardText(kTextError),
                       .icon = MessageIcon::Exclamation,
                       .buttons = MessageButtons::Ok,
                       .defaultAnswer = MessageAnswer::Ok});
}

/// Runs `handler`; the user reads the description of an exception that ends it.
template <std::invocable Handler>
void Guard(Dialogs& dialogs, Handler&& handler) {
  try {
    std::invoke(std::forward<Handler>(handler));
  } catch (const std::exception& error) {
    ShowError(dialogs, error.what());
  }
}

/// A slot that runs its handler under Guard. Qt gives undefined behaviour to an exception that
/// leaves a slot, so every handler that can fail is connected through one:
///     connect(cmdAddFile, &QPushButton::clicked, this, Guarded(dialogs_, [this] { AddFile(); }));
/// It takes as many of the signal's arguments as the handler does. `dialogs` must outlive it.
template <typename Handler>
class Guarded {
 public:
  Guarded(Dialogs& dialogs, Handler handler) : dialogs_(&dialogs), handler_(std::move(handler)) {}

  template <typename... Arguments>
  requires std::invocable<Handler&, Arguments...>
  void operator()(Arguments&&... arguments) {
    Guard(*dialogs_, [&] { std::invoke(handler_, std::forward<Arguments>(arguments)...); });
  }

 private:
  Dialogs* dialogs_;
  Handler handler_;
};

}  // namespace tools
