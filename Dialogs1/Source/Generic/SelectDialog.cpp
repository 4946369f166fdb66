#include "Generic/SelectDialog.h"

#include "Frame/ScriptFunction.h"

#include <algorithm>

// Declared as texts, which scripts have always read as numbers.
static const ScriptFunction declaration("SelectDialog", 2, "SS", StringVectorResult,
                                        runDialogFunction<SelectDialog, UserReal>);

namespace {

enum Argument { Settings };
enum Setting { WindowTitle, Caption, Mode, Sorting, StartIndex, InitialText, NumberForNone };

} // namespace

SelectDialog::SelectDialog() : EditDeviceDialog("SelectDialog") {
  setSizeGripEnabled(true);
}

void SelectDialog::prepareDialog(UserFunctionInterface* args, UserDataType type) {
  KelvarinDialog::prepareDialog(args, type);
}

void SelectDialog::initialiseDialog() {
  const Texts settings = texts(Settings);
  load(settings.text(WindowTitle, tr("Select Dialog")), settings.text(Caption),
       settings.is(Sorting, "sorted") ? OfferedNames::Order::Ascending
                                      : OfferedNames::Order::AsGiven);
  form.parametersButton->hide();

  if (settings.is(Mode, "Multiple")) {
    form.listBox->setSelectionMode(QAbstractItemView::ExtendedSelection);
    form.editBox->hide();
    form.listBox->setFocus(Qt::TabFocusReason);
    return;
  }
  setShown({form.multiLabel, form.selectAllButton}, false);
  const int row = offered.rowOfPlace(settings.number(StartIndex));
  if (settings.has(InitialText))
    start(settings.text(InitialText), row);
  else
    start(row < 0 ? QString() : offered.names().at(row), row);
}

void SelectDialog::readDialog(UserDataType, bool accepted) {
  if (!accepted)
    return;
  std::vector<int> rows;
  for (const QModelIndex& index : form.listBox->selectionModel()->selectedIndexes())
    rows.push_back(index.row());
  std::sort(rows.begin(), rows.end());

  const Texts settings = texts(Settings);
  if (rows.empty() && settings.has(NumberForNone))
    setRealResult(settings.number(NumberForNone));
  if (rows.empty())
    return;
  double* result = makeRealResult(static_cast<int>(rows.size()));
  for (std::size_t i = 0; result && i < rows.size(); ++i)
    result[i] = offered.place(rows[i]);
}
