#include "Generic/UpDownDialog.h"

#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/ListRows.h"

#include <numeric>

static const ScriptFunction declaration("UpDownDialog", 1, "SS", StringVectorResult,
                                        runDialogFunction<UpDownDialog, UserString>);

namespace {

enum Argument { Items, Title };

} // namespace

UpDownDialog::UpDownDialog() : KelvarinDialog(nullptr, "UpDownDialog", true, {}) {
  form.setupUi(this);
  connect(form.upButton, &QToolButton::clicked, this, &UpDownDialog::upButton_clicked);
  connect(form.downButton, &QToolButton::clicked, this, &UpDownDialog::downButton_clicked);
}

void UpDownDialog::initialiseDialog() {
  dimsSavingEnabled = true;
  const QString title = toQs(getString(Title));
  if (!title.isEmpty())
    setWindowTitle(title);

  const Texts items = texts(Items);
  order.resize(items.count());
  std::iota(order.begin(), order.end(), 0U);
  form.upDownListBox->addItems(items.all());
  makeRowsUniform(form.upDownListBox);
  form.upDownListBox->setCurrentRow(0);
}

void UpDownDialog::readDialog(UserDataType, bool accepted) {
  if (!accepted)
    return;
  TextVector result;
  for (unsigned place : order)
    result.append(texts(Items).raw(place));
  setTextsResult(result);
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
