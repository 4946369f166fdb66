#include "Generic/ViewFormattedText.h"

#include "Frame/ScriptFunction.h"
#include "Generic/RowBox.h"
#include "HostSupport/Arguments.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/ScriptTexts.h"

template <void (DocumentBrowser::*load)(const QString&)>
static int openViewer(UserFunctionInterface* call) {
  const char* const* texts = nullptr;
  unsigned count = 0;
  sp_GetStringIfVector(call, 0, &texts, &count);

  auto* viewer = new ViewFormattedText; // deletes itself
  if (count > 0)
    (viewer->browser()->*load)(textAt(texts, count, 0));
  if (count > 1)
    viewer->setWindowTitle(textAt(texts, count, 1));
  sp_AutoSaveDialogDims(viewer);
  viewer->show();
  setStringResult(call, "ok");
  return 0;
}

static const ScriptFunction fileDeclaration("ViewFormattedFile", 1, "S", StatusResult,
                                            openViewer<&DocumentBrowser::showDocument>);
static const ScriptFunction textDeclaration("ViewFormattedText", 1, "S", StatusResult,
                                            openViewer<&DocumentBrowser::showText>);

ViewFormattedText::ViewFormattedText()
    : KelvarinDialog(nullptr, "ViewFormattedText", false,
                     Qt::WindowTitleHint | Qt::WindowSystemMenuHint) {
  form.setupUi(this);
  setAttribute(Qt::WA_DeleteOnClose);
  dimsSavingEnabled = false; // sp_AutoSaveDialogDims does it
  connect(form.okButton, &QPushButton::clicked, this, &QDialog::accept);
}
