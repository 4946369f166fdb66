#pragma once

#include <QObject>

class QLineEdit;

/// What all one-line fields of a dialog have in common.
///
/// Line ends stay out when the user pastes or drops a text: those at its ends are left out, each of
/// the others becomes a blank. Those that a script has passed stay. Of a text that is longer than
/// its field the beginning is seen, which says more than the end: as the dialog opens, when another
/// text is put there, when the user comes by Tab, and after they have left.
class LineFields : public QObject {
public:
  explicit LineFields(QWidget* dialog);

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  QLineEdit* lineOf(QObject* watched) const;  ///< null where it is none of the dialog
  QLineEdit* fieldOf(QObject* watched) const; ///< null where it is none that can be changed
  void opened(QLineEdit* edit);
  void textChanged(); ///< of the field that says so
};
