#include "Generic/EditSelect.h"

#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"
#include "HostWidgets/EditBox.h"
#include "Pieces/ScriptTexts.h"

#include <algorithm>

static int runEditSelect(UserFunctionInterface* call) {
  if (!refusesRowCount(EditSelect::boxCount(call), "EditSelect"))
    return runDialogFunction<EditSelect, UserString>(call);
  // A script that could not ask takes it as if the user had said no.
  setStringResult(call, "");
  return 0;
}

static const ScriptFunction declaration("EditSelect", 0, "SSS", StringVectorResult, runEditSelect);

static constexpr unsigned defaultBoxes = 6;

EditSelect::EditSelect() : RowBox("EditSelect") {
  setWindowTitle(tr("Enter Text"));
  form.helpButton->hide();
  hideSelectButtons();
}

unsigned EditSelect::boxCount(UserFunctionInterface* call) {
  return std::max(stringCount(call, 0), stringCount(call, 1));
}

void EditSelect::prepareDialog(UserFunctionInterface* args, UserDataType type) {
  const char* const* texts = nullptr;
  const char* const* captions = nullptr;
  unsigned textCount = 0;
  unsigned captionCount = 0;
  getStringVector(0, &texts, &textCount);
  getStringVector(1, &captions, &captionCount);

  const unsigned asked = boxCount(args);
  EditBox* first = nullptr;
  for (unsigned i = 0; i < (asked > 0 ? asked : defaultBoxes); ++i) {
    const int row = static_cast<int>(i);
    auto* box = new EditBox(form.groupBox, QByteArray("EditBox" + QByteArray::number(row)));
    box->setMinimumWidth(175);
    box->setText(textAt(texts, textCount, i));
    box->outElementIndex = row;
    addCaptioned(box, captionAt(captions, captionCount, i), row, 0);
    first = first ? first : box;
  }
  finishRows(first);
  setWindowTitle(toQs(getString(2)));
  RowBox::prepareDialog(args, type);
}

void EditSelect::readDialog(UserDataType type, bool accepted) {
  if (accepted)
    RowBox::readDialog(type, accepted);
  else
    setStringResult(YString());
}
