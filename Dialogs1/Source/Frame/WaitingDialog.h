#pragma once

#include <QDialog>
#include <QEventLoop>
#include <QPointer>

/// A dialog whose `exec` an exception leaves cleanly.
///
/// Qt's own waiting leaves its loop behind in the dialog when an exception of a slot passes
/// through, and the destructor would end that loop. Ours goes before the dialog does.
class WaitingDialog : public QDialog {
public:
  using QDialog::QDialog;

  /// Shows the dialog and waits until it is closed or hidden; `Rejected` at once where somebody
  /// waits for it already.
  int exec() override;
  void setVisible(bool visible) override;

private:
  QPointer<QEventLoop> m_waiting;
};
