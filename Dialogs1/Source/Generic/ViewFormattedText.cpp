#include "Generic/ViewFormattedText.h"

#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"

namespace {

enum Argument { Settings };
enum Setting { Content, Title };

} // namespace

template <void (DocumentBrowser::*load)(const QString&)>
static int openViewer(UserFunctionInterface* call) {
  const Texts settings(call, Settings);
  auto* viewer = new ViewFormattedText; // deletes itself
  if (settings.has(Content))
    (viewer->browser()->*load)(settings.text(Content));
  if (settings.has(Title))
    viewer->setWindowTitle(settings.text(Title));
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
