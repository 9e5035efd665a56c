// The questions and notices that lower layers put to the user; the desktop, the console and the
// tests each answer them in their own way.
#pragma once

#include <string>
#include <vector>

#include "tools/Progress.h"

namespace tools {

enum class MessageIcon { Exclamation, Question, Information, Critical };
enum class MessageButtons { Ok, OkCancel, YesNo };
enum class MessageAnswer { Ok, Cancel, Yes, No };

/// A message box. `defaultAnswer` names the button that Enter presses. One with Yes and No stays
/// until the user answers it.
struct Message {
  std::string text;
  std::string caption;
  MessageIcon icon = MessageIcon::Exclamation;
  MessageButtons buttons = MessageButtons::Ok;
  MessageAnswer defaultAnswer = MessageAnswer::Ok;
};

/// A file-open dialog. `filter` is "text|pattern", pairs separated by "|"; `filterIndex` is
/// 1-based.
struct OpenFileRequest {
  std::string title;
  std::string initialFolder;
  std::string filter;
  std::string defaultExtension;
  int filterIndex = 1;
};

class Dialogs {
 public:
  virtual ~Dialogs() = default;
  Dialogs() = default;
  Dialogs(const Dialogs&) = delete;
  Dialogs& operator=(const Dialogs&) = delete;

  virtual MessageAnswer ShowMessage(const Message& message) = 0;

  /// A line of text from the user; empty when cancelled.
  virtual std::string InputBox(const std::string& prompt, const std::string& title,
                               const std::string& defaultText) = 0;

  /// The path of the chosen file; empty when cancelled.
  virtual std::string OpenFile(const OpenFileRequest& request) = 0;
  /// The same for several files of one folder; none when cancelled.
  virtual std::vector<std::string> OpenFiles(const OpenFileRequest& request) = 0;

  /// The path of the chosen folder; empty when cancelled. `flags` are those of the shell's folder
  /// browser; 17 asks for file-system folders with an edit box.
  virtual std::string BrowseFolder(const std::string& title, int flags) = 0;

  /// Shows a notice that work is going on and lets it paint; returns the token that withdraws it.
  /// With a `stopQuestion` the user can stop the work: he is asked it first, with Yes and No.
  virtual int ShowBusyNotice(const std::string& text, const std::string& stopQuestion) = 0;
  /// Shows how far the work has come; handles no user event but repaints and a wish to stop.
  virtual void UpdateBusyNotice(int token, const Progress& progress) = 0;
  /// Whether the user has stopped the work; an unknown token is that of no work.
  [[nodiscard]] virtual bool IsStopWanted(int token) = 0;
  /// Withdraws a notice; an unknown token does nothing.
  virtual void WithdrawBusyNotice(int token) = 0;
};

/// The busy notice of work that the user can stop; withdrawn with this object.
class StoppableNotice {
 public:
  /// `dialogs` must outlive this object.
  StoppableNotice(Dialogs& dialogs, const std::string& text, const std::string& stopQuestion)
      : dialogs_(dialogs), token_(dialogs.ShowBusyNotice(text, stopQuestion)) {}
  ~StoppableNotice() {
    if (!isLeft_) dialogs_.WithdrawBusyNotice(token_);
  }
  StoppableNotice(const StoppableNotice&) = delete;
  StoppableNotice& operator=(const StoppableNotice&) = delete;

  void Update(const Progress& progress) { dialogs_.UpdateBusyNotice(token_, progress); }
  [[nodiscard]] bool IsStopWanted() { return dialogs_.IsStopWanted(token_); }
  /// The notice stays when this object goes.
  void Leave() { isLeft_ = true; }

 private:
  Dialogs& dialogs_;
  int token_;
  bool isLeft_ = false;
};

}  // namespace tools
