#pragma once

#include <QApplication>
#include <QPointer>
#include <QVector>

class QDialog;

/// Whether no call waits for this dialog: it stays open on its own, and deletes itself.
bool isDetachedDialog(const QDialog* dialog);

/// The application object of a host. No exception of an event handler passes through Qt, which is
/// not made for it: one that leaves a slot of a dialog closes the dialogs that the running call has
/// open, and is raised when its handler ends. Outside of any call it is reported.
class HostApplication : public QApplication {
public:
  using QApplication::QApplication;
  bool notify(QObject* receiver, QEvent* event) override;

  /// What `notify` does with an exception, for one that was caught elsewhere on its way to Qt. To
  /// be called in a `catch`.
  static void takeException();

private:
  struct Opened {
    QPointer<QDialog> dialog;
    int callDepth;
    int loopLevel; ///< in which it was opened: the loop that waits for it lies deeper

    bool isWaitedFor() const;
    void close() const;
  };

  void noteOpened(QObject* receiver);
  void closeDialogsOfCall();

  QVector<Opened> m_opened; ///< in the order of opening
};
