#include "Frame/WaitingDialog.h"

int WaitingDialog::exec() {
  if (m_waiting)
    return Rejected;
  const QPointer<WaitingDialog> self(this);
  const bool wasModal = testAttribute(Qt::WA_ShowModal);
  setAttribute(Qt::WA_ShowModal);
  setResult(Rejected);
  QEventLoop loop;
  m_waiting = &loop;
  connect(this, &QObject::destroyed, &loop, &QEventLoop::quit);
  show();
  if (isVisible()) // a slot may have closed it already
    loop.exec(QEventLoop::DialogExec);
  if (!self)
    return Rejected;
  setAttribute(Qt::WA_ShowModal, wasModal);
  return result();
}

void WaitingDialog::setVisible(bool visible) {
  QDialog::setVisible(visible);
  if (!visible && m_waiting)
    m_waiting->quit();
}
