#pragma once

#include "Frame/KelvarinDialog.h"
#include "Generic/ui_ViewFormattedText.h"

/// A window with a text or a document that no call waits for: it deletes itself when it is closed.
class ViewFormattedText : public KelvarinDialog {
  Q_OBJECT

public:
  ViewFormattedText();

  DocumentBrowser* browser() { return form.textBrowser; }

private:
  Ui::ViewFormattedText form;
};
