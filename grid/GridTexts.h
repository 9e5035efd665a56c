// The texts that a property grid and its edit dialog show.
#pragma once

#include <QString>

namespace grid {

/// The grid belongs to no program: whoever makes it hands it these.
struct GridTexts {
  QString accessibleName;  ///< what screen readers call the list
  QString notEditable;     ///< told when the host refuses an edit
  QString editCaption;     ///< caption of that message and of the edit dialog
  QString prompt;          ///< of the edit dialog; "%property%" stands for the row's title
  QString oldValue;        ///< labels of the edit dialog
  QString newValue;
  QString reset;        ///< the edit dialog's button for the default value
  QString browse;       ///< the edit dialog's button for a value that names a folder
  QString knownValues;  ///< what screen readers call the list of known values
  QString mixed;        ///< what is told of a value that stands for several ones
  QString mixedEdit;    ///< the same in the edit dialog, and how to empty all of them
};

}  // namespace grid
