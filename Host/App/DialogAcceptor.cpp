#include "DialogAcceptor.h"

#include "Drive/DialogActions.h"
#include "Drive/DialogDriver.h"

DialogAcceptor::DialogAcceptor(DialogDriver* driver, const Look& look, const QString& typed)
    : m_typed(typed) {
  connect(driver, &DialogDriver::dialogOpened, this, [this, driver] {
    // What opens in answer to our own accepting, a question say, is ours as well.
    if (!driver->isDriving() || m_accepting > 0)
      driver->onDialog([this](QWidget* dialog) { accept(dialog); });
  });
  if (look)
    connect(driver, &DialogDriver::dialogReady, this, look);
}

void DialogAcceptor::accept(QWidget* dialog) {
  ++m_accepting;
  try {
    DialogActions actions(dialog);
    if (!m_typed.isEmpty() && m_accepting == 1)
      actions.type(actions.focused(), m_typed);
    actions.accept();
  } catch (...) {
    --m_accepting;
    throw;
  }
  --m_accepting;
}
