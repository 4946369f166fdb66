#include "Generic/BoolSelect.h"

#include "Core/Pieces/ObjectNames.h"
#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"
#include "HostWidgets/CheckBox.h"
#include "Pieces/Captions.h"

#include <algorithm>
#include <cmath>

static int runBoolSelect(UserFunctionInterface* call) {
  if (refusesRowCount(BoolSelect::boxCount(call)))
    return 0;
  return runDialogFunction<BoolSelect, UserReal>(call);
}

static const ScriptFunction declaration("BoolSelect", 0, "RSSSS", RealVectorResult, runBoolSelect);

namespace {

enum Argument { States, Captions, Title, GroupTitle, Heading };

constexpr unsigned defaultBoxes = 6;
constexpr unsigned firstGrid = 6;    // fewer boxes stand in one column
constexpr unsigned fewestForAll = 3; // fewer are clicked sooner one by one

int columnsFor(unsigned boxes) {
  return boxes < firstGrid ? 1 : static_cast<int>(std::sqrt(static_cast<double>(boxes)));
}

} // namespace

BoolSelect::BoolSelect() : RowBox("BoolSelect") {
  setWindowTitle(tr("Select Items"));
  form.helpButton->hide();
  connect(form.selectAllButton, &QPushButton::clicked, this, &BoolSelect::selectAllButton_clicked);
  connect(form.unselectAllButton, &QPushButton::clicked, this,
          &BoolSelect::unselectAllButton_clicked);
}

unsigned BoolSelect::boxCount(UserFunctionInterface* call) {
  return std::min(realCount(call, States), Texts(call, Captions).count());
}

void BoolSelect::prepareDialog(UserFunctionInterface* args, UserDataType type) {
  const unsigned asked = boxCount(args);
  const unsigned boxes = asked > 0 ? asked : defaultBoxes;
  const Texts captions = asked > 0 ? texts(Captions) : Texts();

  const int columns = columnsFor(boxes);
  captionGroup(form.groupBox, toQs(getString(GroupTitle)));
  const QString heading = toQs(getString(Heading));
  int firstRow = 0;
  if (!heading.isEmpty())
    addHeading(heading, firstRow++, columns);

  CheckBox* first = nullptr;
  for (int i = 0; i < static_cast<int>(boxes); ++i) {
    auto* box = new CheckBox(form.groupBox, QByteArray("CheckBox" + QByteArray::number(i)));
    captionButton(box, captions.text(static_cast<unsigned>(i)));
    // A box without a caption still has a name for those who do not see it.
    if (box->text().isEmpty())
      box->setAccessibleName(tr("Item %1").arg(i + 1));
    box->argIndex = States;
    box->elementIndex = i;
    box->outElementIndex = i;
    form.groupBoxLayout->addWidget(box, firstRow + i / columns, i % columns);
    first = first ? first : box;
  }
  if (boxes < fewestForAll)
    hideSelectButtons();
  finishRows(first);
  RowBox::prepareDialog(args, type);
}

void BoolSelect::initialiseDialog() {
  const YString title = getString(Title);
  setObjectName(toQs(hashedObjectName("BoolSelect", title)));
  dimsSavingEnabled = true;
  setWindowTitle(toQs(title));
  KelvarinDialog::initialiseDialog();
}

void BoolSelect::showEvent(QShowEvent* event) {
  // A grid keeps the size that its layout gives it.
  KelvarinDialog::showEvent(event);
}

void BoolSelect::selectAllButton_clicked() {
  checkAll(true);
}

void BoolSelect::unselectAllButton_clicked() {
  checkAll(false);
}

void BoolSelect::checkAll(bool checked) {
  for (CheckBox* box : form.groupBox->findChildren<CheckBox*>())
    box->setChecked(checked);
}
