#include "Generic/NewValueDialog.h"

#include "Core/Generic/FieldDefinition.h"
#include "Core/Pieces/ObjectNames.h"
#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"
#include "HostWidgets/CheckBox.h"
#include "HostWidgets/ComboBox.h"
#include "HostWidgets/EditBox.h"
#include "HostWidgets/Spinner.h"
#include "Pieces/Captions.h"

#include <QFrame>

#include <algorithm>

namespace {

enum Argument { Definitions, InitialValues, Naming };
enum Name { Title, HelpNumber };

constexpr int measuredItems = 1000; // of a longer list, the width comes from the first ones
constexpr int widestItem = 60;      // characters; a longer item is shown in part

template <class Field> Field* newField(QWidget* parent, const char* className, int index) {
  auto* field = new Field(parent, QByteArray(className + QByteArray::number(index)));
  field->outElementIndex = index;
  return field;
}

void setUpSpinner(Spinner* spinner, const FieldDefinition& definition) {
  spinner->setMinimumWidth(75);
  if (definition.kind == FieldKind::Integer)
    spinner->setWholeNumber(true);
  if (definition.step > 0)
    spinner->setIncrement(definition.step);
  if (definition.kind == FieldKind::Integer || definition.step > 0) {
    spinner->setEngMode(false);
    spinner->setStep125(false);
  }
  spinner->setMin(definition.min);
  spinner->setMax(definition.max);
}

void setUpChoice(ComboBox* box, const FieldDefinition& definition, const char* initial) {
  box->loadStrings(definition.items);
  int longest = 0;
  for (int i = 0; i < std::min(box->count(), measuredItems); ++i)
    longest = std::max(longest, box->itemText(i).size());
  if (box->count() > measuredItems || longest > widestItem) {
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(std::min(longest, widestItem));
  }
  box->setValue(initialChoice(definition.items, initial));
}

} // namespace

static int runNewValueDialog(UserFunctionInterface* call) {
  if (refusesRowCount(Texts(call, Definitions).count()))
    return 0;
  return runDialogFunction<NewValueDialog, UserString>(call);
}

static const ScriptFunction declaration("NewValueDialog", 2, "SSS", StringVectorResult,
                                        runNewValueDialog);

NewValueDialog::NewValueDialog() : RowBox("NewValueDialog") {
  hideSelectButtons();
}

void NewValueDialog::prepareDialog(UserFunctionInterface* args, UserDataType type) {
  const Texts values = texts(InitialValues);
  std::vector<FieldDefinition> definitions;
  std::vector<FieldKind> kinds;
  for (unsigned i = 0; i < texts(Definitions).count(); ++i) {
    definitions.push_back(readFieldDefinition(texts(Definitions).raw(i)));
    kinds.push_back(definitions.back().kind);
  }

  // Made in reading order, so that Tab goes that way, whatever the order of the definitions.
  const FieldGrid grid = arrangeFields(kinds);
  QWidget* first = nullptr;
  for (const FieldGrid::Place& place : grid.places) {
    const auto index = static_cast<unsigned>(place.field);
    const FieldDefinition& definition = definitions[index];
    QWidget* field = makeField(place.field, definition, values.raw(index));
    const QString caption = toQs(definition.label);
    if (definition.kind == FieldKind::Flag)
      addSelfCaptioned(field, caption, place.row, place.column, 2);
    else
      addCaptioned(field, caption, place.row, place.column);
    form.groupBoxLayout->setColumnStretch(place.column + 1, 1);
    if (place.field == 0)
      first = field;
  }
  for (const int row : grid.lines) {
    auto* line = new QFrame(form.groupBox);
    line->setObjectName(QStringLiteral("Line%1").arg(row));
    line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    form.groupBoxLayout->addWidget(line, row, 0, 1, grid.columns);
  }
  nameAfter(texts(Definitions));
  finishRows(first);
  RowBox::prepareDialog(args, type);
}

QWidget* NewValueDialog::makeField(int index, const FieldDefinition& definition,
                                   const char* initial) {
  switch (definition.kind) {
  case FieldKind::Flag: {
    auto* box = newField<CheckBox>(form.groupBox, "CheckBox", index);
    captionButton(box, toQs(definition.label));
    box->setChecked(initialFlag(initial));
    return box;
  }
  case FieldKind::Text: {
    auto* edit = newField<EditBox>(form.groupBox, "EditBox", index);
    edit->setText(QString::fromUtf8(initial));
    return edit;
  }
  case FieldKind::Choice: {
    auto* box = newField<ComboBox>(form.groupBox, "ComboBox", index);
    setUpChoice(box, definition, initial);
    return box;
  }
  case FieldKind::Real:
  case FieldKind::Integer:
    break;
  }
  auto* spinner = newField<Spinner>(form.groupBox, "Spinner", index);
  setUpSpinner(spinner, definition);
  spinner->setText(QString::fromUtf8(initial));
  return spinner;
}

void NewValueDialog::nameAfter(const Texts& definitions) {
  const Texts naming = texts(Naming);
  setWindowTitle(naming.text(Title));

  // A form with a help page is known by it; any other by all that it shows.
  const bool hasHelp = naming.has(HelpNumber);
  form.helpButton->setVisible(hasHelp);
  YString identity(naming.raw(Title));
  if (hasHelp) {
    helpNumber = naming.number(HelpNumber);
    identity = YString(helpNumber);
  } else {
    TempString all = identity.concat("");
    for (unsigned i = 0; i < definitions.count(); ++i)
      std::move(all).concat("_").concat(definitions.raw(i));
    identity = YString(std::move(all));
  }
  setObjectName(toQs(hashedObjectName("NewValueDialog", identity)));
}
