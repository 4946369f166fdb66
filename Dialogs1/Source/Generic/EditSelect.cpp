#include "Generic/EditSelect.h"

#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"
#include "HostWidgets/EditBox.h"

#include <algorithm>

namespace {

enum Argument { InitialTexts, Captions, Title };

constexpr unsigned defaultBoxes = 6;

} // namespace

static int runEditSelect(UserFunctionInterface* call) {
  if (!refusesRowCount(EditSelect::boxCount(call)))
    return runDialogFunction<EditSelect, UserString>(call);
  // A script that could not ask takes it as if the user had said no.
  setStringResult(call, "");
  return 0;
}

static const ScriptFunction declaration("EditSelect", 0, "SSS", StringVectorResult, runEditSelect);

EditSelect::EditSelect() : RowBox("EditSelect") {
  setWindowTitle(tr("Enter Text"));
  form.helpButton->hide();
  hideSelectButtons();
}

unsigned EditSelect::boxCount(UserFunctionInterface* call) {
  return std::max(Texts(call, InitialTexts).count(), Texts(call, Captions).count());
}

void EditSelect::prepareDialog(UserFunctionInterface* args, UserDataType type) {
  const Texts initial = texts(InitialTexts);
  const Texts captions = texts(Captions);
  const unsigned asked = boxCount(args);
  EditBox* first = nullptr;
  for (unsigned i = 0; i < (asked > 0 ? asked : defaultBoxes); ++i) {
    const int row = static_cast<int>(i);
    auto* box = new EditBox(form.groupBox, QByteArray("EditBox" + QByteArray::number(row)));
    box->setMinimumWidth(175);
    box->setText(initial.text(i));
    box->outElementIndex = row;
    addCaptioned(box, captions.text(i), row, 0);
    first = first ? first : box;
  }
  finishRows(first);
  setWindowTitle(toQs(getString(Title)));
  RowBox::prepareDialog(args, type);
}

void EditSelect::readDialog(UserDataType type, bool accepted) {
  if (accepted)
    RowBox::readDialog(type, accepted);
  else
    setStringResult(YString());
}
