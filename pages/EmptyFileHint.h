// What the file list says while it shows no entry, with links that lead on.
#pragma once

#include <QLabel>
#include <cstdint>
#include <map>

class QAbstractItemView;

namespace pages {

/// Lies over the list's empty rows. Its links are reached by Tab and opened by Enter.
class EmptyFileHint : public QLabel {
  Q_OBJECT

 public:
  explicit EmptyFileHint(QAbstractItemView& list);

  /// Whether there is a file of the component; without it nothing is known of its entries.
  void SetHasFile(bool hasFile) { hasFile_ = hasFile; }
  /// When the list shows no entry, says which folders have some. `counts` is the number of entries
  /// by folder; `isFiltered`: the filter hides some.
  void Update(const std::map<std::int32_t, int>& counts, bool isFiltered);

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  void FolderWanted(std::int32_t number);
  void UnknownFoldersWanted();
  void FilterUnwanted();

 protected:
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void ShowText();
  void Follow(const QString& link);
  void Place();

  QAbstractItemView& list_;
  bool hasFile_ = true;
  QString text_;  ///< its links have no colour yet
};

}  // namespace pages
