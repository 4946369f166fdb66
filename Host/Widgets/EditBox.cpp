#include "HostWidgets/EditBox.h"

#include "HostSupportQt/GuiThread.h"
#include "HostWidgets/Accessibility.h"

#include <limits>

EditBox::EditBox(QWidget* parent, const char* objectName)
    : QLineEdit(sp_GuiParent(parent, "EditBox")) {
  installFieldAccessibility();
  setObjectName(QLatin1String(objectName));
  // What a script hands in comes back whole, however long it is.
  setMaxLength(std::numeric_limits<int>::max());
}
