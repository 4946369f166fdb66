#include "Call/HostApplication.h"

#include "Call/HostCall.h"
#include "HostSupport/System.h"

#include <QDialog>
#include <QThread>
#include <QTimer>

#include <algorithm>

namespace {

constexpr int pollInterval = 10; // ms

/// As cancelled; by force where the dialog's own code keeps it open.
void closeDialog(const QPointer<QDialog>& dialog) {
  try {
    if (dialog && dialog->isVisible())
      dialog->done(QDialog::Rejected);
  } catch (...) {
    // the exception that is on its way counts
  }
  if (dialog && dialog->isVisible())
    dialog->hide();
}

void closePopups() {
  while (QWidget* popup = QApplication::activePopupWidget()) {
    const QPointer<QWidget> guard(popup);
    popup->close();
    if (guard && guard->isVisible())
      guard->hide();
  }
}

} // namespace

bool isDetachedDialog(const QDialog* dialog) {
  return dialog->testAttribute(Qt::WA_DeleteOnClose) && !dialog->isModal();
}

bool HostApplication::notify(QObject* receiver, QEvent* event) {
  try {
    if (event->type() == QEvent::Show && !event->spontaneous())
      noteOpened(receiver);
    return QApplication::notify(receiver, event);
  } catch (...) {
    takeException();
  }
  return true;
}

void HostApplication::takeException() {
  const QString message = describeException();
  const bool isInCall = QThread::currentThread() == QCoreApplication::instance()->thread() &&
                        raiseWhenHandlerEnds(message);
  if (!isInCall)
    sp_ReportMessage(message.toUtf8().constData());
  else if (auto* application = dynamic_cast<HostApplication*>(QCoreApplication::instance()))
    application->closeDialogsOfCall();
}

void HostApplication::noteOpened(QObject* receiver) {
  auto* dialog = qobject_cast<QDialog*>(receiver);
  if (!dialog || callDepth() == 0)
    return;
  const auto isGone = [dialog](const Opened& opened) {
    return !opened.dialog || opened.dialog == dialog;
  };
  m_opened.erase(std::remove_if(m_opened.begin(), m_opened.end(), isGone), m_opened.end());
  m_opened.append({dialog, callDepth(), QThread::currentThread()->loopLevel()});
  // Code behind the dialogs that were closed goes on as if the user had cancelled them, and may ask
  // something. Nobody is to answer that any more.
  if (isExceptionPending())
    m_opened.last().close();
}

void HostApplication::closeDialogsOfCall() {
  closePopups();
  const QVector<Opened> all = m_opened;
  for (auto opened = all.rbegin(); opened != all.rend(); ++opened)
    if (opened->callDepth >= callDepth() && opened->dialog && !isDetachedDialog(opened->dialog))
      opened->close();
}

bool HostApplication::Opened::isWaitedFor() const {
  return QThread::currentThread()->loopLevel() > loopLevel || ::callDepth() < callDepth;
}

/// A dialog that is closed before its loop runs would be waited for without end.
void HostApplication::Opened::close() const {
  if (isWaitedFor())
    closeDialog(dialog);
  else
    QTimer::singleShot(pollInterval, dialog, [opened = *this] { opened.close(); });
}
