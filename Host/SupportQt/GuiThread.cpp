#include "HostSupportQt/GuiThread.h"

#include "HostSupport/KelvarinException.h"
#include "HostSupport/System.h"

#include <QApplication>
#include <QThread>

/// What is wrong; empty where nothing is.
static QByteArray guiThreadFault(const char* caller) {
  const auto* application = qobject_cast<QApplication*>(QCoreApplication::instance());
  if (!application)
    return QByteArray(caller) + ": there is no QApplication; the host has to make it first";
  if (QThread::currentThread() != application->thread())
    return QByteArray(caller) + ": called from another thread than that of the QApplication";
  return QByteArray();
}

bool sp_IsGuiThread(const char* caller) {
  const QByteArray fault = guiThreadFault(caller);
  if (!fault.isEmpty())
    sp_ReportMessage(fault.constData());
  return fault.isEmpty();
}

void sp_NeedGuiThread(const char* caller) {
  const QByteArray fault = guiThreadFault(caller);
  if (fault.isEmpty())
    return;
  // A host that does not expect an exception ends with it, and has read why.
  sp_ReportMessage(fault.constData());
  throw KelvarinException(fault.constData());
}

QWidget* sp_GuiParent(QWidget* parent, const char* caller) {
  sp_NeedGuiThread(caller);
  return parent;
}
