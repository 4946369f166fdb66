#pragma once

#include "Digital/LogicAnalogInterfaceSheet.h"
#include "Frame/KelvarinDialog.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/Captions.h"

#include <QCoreApplication>
#include <QTabWidget>

/// What the dialogs of digital devices have in common: a form with the device's own parameters on
/// the first page of `tabWidget`, and the page of its analog interface behind it.
///
/// A device adds `Q_OBJECT`, its form, its name and where the page's arguments are, and the
/// couplings of its fields. The form has `tabWidget`, first in its tab order, and `okButton` and
/// `cancelButton`, last.
template <class Form> class DigitalDeviceDialog : public KelvarinDialog {
protected:
  using Sides = LogicAnalogInterfaceSheet::Sides;

  /// A device without an analog interface.
  explicit DigitalDeviceDialog(const char* name) : KelvarinDialog(nullptr, name, true, {}) {
    form.setupUi(this);
    startInFirstField();
  }

  /// Arguments `interfaceArgument` and the next load the page.
  DigitalDeviceDialog(const char* name, int interfaceArgument, Sides sides = Sides::Both)
      : KelvarinDialog(nullptr, name, true, {}), sheet(nullptr, interfaceArgument, sides) {
    form.setupUi(this);
    form.tabWidget->insertTab(
        1, &sheet, QCoreApplication::translate("DigitalDeviceDialog", "Analog Interface"));
    // The page was built first and added last: bring the buttons behind its fields again.
    setTabOrder(sheet.lastField(), form.okButton);
    setTabOrder(form.okButton, form.cancelButton);
    startInFirstField();
  }

  /// Takes the window's title from the script, where that has one.
  void showTitle(int argument) {
    const QString title = toQs(getString(argument));
    if (!title.isEmpty())
      setWindowTitle(shownCaption(title));
  }

  LogicAnalogInterfaceSheet sheet;
  Form form;

private:
  void startInFirstField() {
    form.tabWidget->tabBar()->setFocus();
    focusNextChild();
  }
};
