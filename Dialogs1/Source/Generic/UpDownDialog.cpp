#include "Generic/UpDownDialog.h"

#include "Frame/ScriptFunction.h"
#include "Generic/RowBox.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/ListRows.h"
#include "Pieces/ScriptTexts.h"

#include <numeric>

static const ScriptFunction declaration("UpDownDialog", 1, "SS", StringVectorResult,
                                        runDialogFunction<UpDownDialog, UserString>);

UpDownDialog::UpDownDialog() : KelvarinDialog(nullptr, "UpDownDialog", true, {}) {
  form.setupUi(this);
  connect(form.upButton, &QToolButton::clicked, this, &UpDownDialog::upButton_clicked);
  connect(form.downButton, &QToolButton::clicked, this, &UpDownDialog::downButton_clicked);
}

void UpDownDialog::initialiseDialog() {
  dimsSavingEnabled = true;
  const QString title = toQs(getString(1));
  if (!title.isEmpty())
    setWindowTitle(title);

  const char* const* items = nullptr;
  unsigned count = 0;
  getStringVector(0, &items, &count);
  order.resize(count);
  std::iota(order.begin(), order.end(), 0U);
  form.upDownListBox->addItems(textsOf(items, count));
  makeRowsUniform(form.upDownListBox);
  form.upDownListBox->setCurrentRow(0);
}

void UpDownDialog::readDialog(UserDataType, bool accepted) {
  const char* const* items = nullptr;
  unsigned count = 0;
  getStringVector(0, &items, &count);
  char** texts = accepted ? makeStringResult(static_cast<int>(order.size())) : nullptr;
  if (!texts)
    return;
  for (unsigned index : order)
    *texts++ = hostString(items[index] ? items[index] : "");
}

void UpDownDialog::upButton_clicked() {
  moveCurrent(-1);
}

void UpDownDialog::downButton_clicked() {
  moveCurrent(1);
}

void UpDownDialog::moveCurrent(int step) {
  QListWidget* list = form.upDownListBox;
  const int from = list->currentRow();
  const int to = from + step;
  // The buttons stay enabled at the ends: one that went grey under the user's finger would pass
  // the focus on to the other, and the next press would undo the last.
  if (from < 0 || to < 0 || to >= list->count())
    return;
  list->insertItem(to, list->takeItem(from));
  list->setCurrentRow(to);
  std::swap(order[static_cast<unsigned>(from)], order[static_cast<unsigned>(to)]);
}
