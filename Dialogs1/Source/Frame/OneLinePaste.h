#pragma once

#include <QObject>

class QLineEdit;

/// Keeps line ends out of the one-line fields of a dialog when the user pastes or drops a text:
/// those at its ends are left out, each of the others becomes a blank. Those that a script has
/// passed stay.
class OneLinePaste : public QObject {
public:
  explicit OneLinePaste(QWidget* dialog);

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  QLineEdit* fieldOf(QObject* watched) const; ///< null where it is none that can be changed
};
