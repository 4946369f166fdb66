#include "Generic/SelectDialog.h"

#include "Core/Pieces/Integers.h"
#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/ScriptTexts.h"

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
  const char* const* settings = nullptr;
  unsigned count = 0;
  getStringVector(Settings, &settings, &count);
  const auto is = [&](Setting setting, const char* word) {
    return equals(textAt(settings, count, setting), QString::fromLatin1(word));
  };
  load(count > WindowTitle ? textAt(settings, count, WindowTitle) : tr("Select Dialog"),
       textAt(settings, count, Caption),
       is(Sorting, "sorted") ? OfferedNames::Order::Ascending : OfferedNames::Order::AsGiven);
  form.parametersButton->hide();

  if (is(Mode, "Multiple")) {
    form.listBox->setSelectionMode(QAbstractItemView::ExtendedSelection);
    form.editBox->hide();
    form.listBox->setFocus(Qt::TabFocusReason);
    return;
  }
  form.multiLabel->hide();
  form.selectAllButton->hide();
  const int row = offered.rowOfPlace(count > StartIndex ? leadingInteger(settings[StartIndex]) : 0);
  if (count > InitialText)
    start(textAt(settings, count, InitialText), row);
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

  const char* const* settings = nullptr;
  unsigned count = 0;
  getStringVector(Settings, &settings, &count);
  if (rows.empty() && count > NumberForNone)
    setRealResult(leadingInteger(settings[NumberForNone]));
  if (rows.empty())
    return;
  double* result = makeRealResult(static_cast<int>(rows.size()));
  for (std::size_t i = 0; result && i < rows.size(); ++i)
    result[i] = offered.place(rows[i]);
}
