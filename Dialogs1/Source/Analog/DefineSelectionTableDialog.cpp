#include "Analog/DefineSelectionTableDialog.h"

#include "Core/Pieces/ObjectNames.h"
#include "Frame/ScriptFunction.h"
#include "HostSupportQt/Colours.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/Captions.h"
#include "Pieces/ListRows.h"

#include <QHeaderView>
#include <QShortcut>
#include <QStyledItemDelegate>

#include <algorithm>

// Declared as texts, which scripts have always read as numbers.
static const ScriptFunction declaration("DefineSelectionTableDialog", 1, "SSS", StringVectorResult,
                                        runDialogFunction<DefineSelectionTableDialog, UserString>);

namespace {

enum Argument { Lines, Settings, Options };
enum Setting { Caption, WindowTitle, HelpNumber };
enum Column { Check, FirstCell };

constexpr int longestCell = 1000; // characters
constexpr int widestColumn = 60;  // as wide as on the average; what is longer wraps

/// A cell shows its line breaks, but no more than there can be room for.
class CellDelegate : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QString displayText(const QVariant& value, const QLocale&) const override {
    return value.toString();
  }

protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->text.size() > longestCell)
      option->text = option->text.left(longestCell - 1) + QChar(0x2026);
    option->text.replace(QLatin1Char('\n'), QChar::LineSeparator);
  }
};

} // namespace

NoEdit_NoHighlight_Item::NoEdit_NoHighlight_Item(const QString& text, const QPalette& palette)
    : QTableWidgetItem(text) {
  setFlags(flags() & ~Qt::ItemIsEditable);
  // Where the ground is dark, black would be lost.
  const QColor black(0, 0, 0);
  const bool isReadable = sp_Contrast(black, palette.color(QPalette::Base)) >= sp_readableContrast;
  setForeground(isReadable ? black : palette.color(QPalette::Text));
}

NoEdit_Highlight_Item::NoEdit_Highlight_Item(const QString& text) : QTableWidgetItem(text) {
  setFlags(flags() & ~Qt::ItemIsEditable);
  setForeground(QColor(0, 128, 0));
}

DefineSelectionTableDialog::DefineSelectionTableDialog()
    : KelvarinDialog(nullptr, "DefineSelectionTableDialog", true, {}) {
  form.setupUi(this);
  form.tableWidget->setItemDelegate(new CellDelegate(form.tableWidget));
}

void DefineSelectionTableDialog::initialiseDialog() {
  options = TableOptions(texts(Options));
  contents = SelectionTable(texts(Lines), options.hasHeader);
  loadTable();
  loadCaptions();
  connectTable();
  if (options.isExclusive)
    form.tableWidget->setCurrentCell(0, FirstCell);
  resizeToContents(this);
}

void DefineSelectionTableDialog::loadTable() {
  QTableWidget* table = form.tableWidget;
  table->setColumnCount(contents.width() + FirstCell);
  table->setRowCount(contents.rows().size());
  table->verticalHeader()->setVisible(options.hasRowNumbers);
  loadHeader();
  for (int row = 0; row < table->rowCount(); ++row)
    setRow(row, contents.rows().at(row));
  table->setStyleSheet(QStringLiteral("QTableWidget::item { border: 0px; padding: 3px; }"));
  fitCells();
}

void DefineSelectionTableDialog::loadHeader() {
  QHeaderView* header = form.tableWidget->horizontalHeader();
  header->setVisible(options.hasHeader);
  if (!options.hasHeader)
    return;
  QStringList labels{QString()};
  for (const QString& label : contents.header())
    labels.append(rowText(label));
  form.tableWidget->setHorizontalHeaderLabels(labels);
  form.tableWidget->horizontalHeaderItem(Check)->setData(Qt::AccessibleTextRole, tr("Chosen"));
  header->setStyleSheet(QStringLiteral("QHeaderView { font-weight: bold; }"));
}

void DefineSelectionTableDialog::fitCells() {
  QTableWidget* table = form.tableWidget;
  table->resizeColumnsToContents();
  const int limit = widestColumn * fontMetrics().averageCharWidth();
  for (int column = FirstCell; column < table->columnCount(); ++column)
    table->setColumnWidth(column, std::min(table->columnWidth(column), limit));
  table->horizontalHeader()->setStretchLastSection(true); // what was measured is the least
  fitRows();
}

void DefineSelectionTableDialog::fitRows() {
  // Measuring a row takes longer than all else that is done for it, and most are one line high.
  const auto isOneLine = [](const QStringList& fields) {
    return std::none_of(fields.begin(), fields.end(), [](const QString& field) {
      return field.size() > widestColumn / 3 || field.contains(QLatin1Char('\n'));
    });
  };
  const QList<QStringList>& rows = contents.rows();
  const auto oneLine = std::find_if(rows.begin(), rows.end(), isOneLine);
  QTableWidget* table = form.tableWidget;
  if (oneLine != rows.end()) {
    const int row = static_cast<int>(oneLine - rows.begin());
    table->resizeRowToContents(row);
    table->verticalHeader()->setDefaultSectionSize(table->rowHeight(row));
  }
  for (int row = 0; row < rows.size(); ++row)
    if (!isOneLine(rows.at(row)))
      table->resizeRowToContents(row);
}

void DefineSelectionTableDialog::loadCaptions() {
  const Texts settings = texts(Settings);
  captionField(form.tableLabel, form.tableWidget, settings.text(Caption));
  const YString key = settings.isEmpty() ? tableKey(texts(Lines)) : YString(settings.raw(Caption));
  setObjectName(toQs(hashedObjectName("DefineSelectionTableDialog", key)));
  dimsSavingEnabled = true;
  if (settings.has(WindowTitle))
    setWindowTitle(shownCaption(settings.text(WindowTitle)));
  helpNumber = settings.number(HelpNumber);
  if (!settings.has(HelpNumber))
    form.helpButton->hide();
}

void DefineSelectionTableDialog::connectTable() {
  QTableWidget* table = form.tableWidget;
  using Self = DefineSelectionTableDialog;
  connect(table, &QTableWidget::cellClicked, this, &Self::cellisClicked);
  connect(table, &QTableWidget::itemChanged, this, &Self::itemChanged);
  auto* space = new QShortcut(Qt::Key_Space, table, nullptr, nullptr, Qt::WidgetShortcut);
  connect(space, &QShortcut::activated, this, &Self::toggleSelectedRows);
}

void DefineSelectionTableDialog::readDialog(UserDataType, bool) {
  // Made in acceptDialog().
}

void DefineSelectionTableDialog::helpClicked() {
  sp_RunHelp(YString(helpNumber), nullptr);
}

void DefineSelectionTableDialog::okClicked() {
  acceptDialog();
}

void DefineSelectionTableDialog::setRow(int row, const QStringList& fields) {
  auto* check = new QTableWidgetItem;
  check->setFlags(Qt::ItemIsUserCheckable | Qt::ItemIsEnabled);
  check->setCheckState(Qt::Unchecked);
  check->setData(Qt::AccessibleTextRole, fields.value(0));
  form.tableWidget->setItem(row, Check, check);
  showCells(row);
}

void DefineSelectionTableDialog::showCells(int row) {
  QTableWidget* table = form.tableWidget;
  const QColor ground = table->palette().color(QPalette::Base);
  const QColor colour = QColor::isValidColor(options.highlight)
                            ? sp_SeenColour(QColor(options.highlight), ground)
                            : QColor();
  const QStringList& fields = contents.rows().at(row);
  for (int column = FirstCell; column < table->columnCount(); ++column) {
    const QString& text = fields.at(column - FirstCell);
    QTableWidgetItem* item = nullptr;
    if (isChecked(row)) {
      item = new NoEdit_Highlight_Item(text);
      item->setForeground(colour.isValid() ? QBrush(colour) : QBrush());
    } else {
      item = new NoEdit_NoHighlight_Item(text, table->palette());
    }
    table->setItem(row, column, item);
  }
}

void DefineSelectionTableDialog::cellisClicked(int row, int) {
  showCells(row);
}

void DefineSelectionTableDialog::itemChanged(const QTableWidgetItem* item) {
  if (item->column() != Check)
    return;
  showCells(item->row());
  if (options.isExclusive && item->checkState() == Qt::Checked)
    checkOnly(item->row());
}

void DefineSelectionTableDialog::checkOnly(int checkedRow) {
  QTableWidget* table = form.tableWidget;
  for (int row = 0; row < table->rowCount(); ++row)
    if (row != checkedRow && isChecked(row))
      table->item(row, Check)->setCheckState(Qt::Unchecked);
  table->setCurrentCell(checkedRow, FirstCell);
}

void DefineSelectionTableDialog::toggleSelectedRows() {
  QTableWidget* table = form.tableWidget;
  const int current = table->currentRow();
  if (current < 0)
    return;
  const Qt::CheckState state = isChecked(current) ? Qt::Unchecked : Qt::Checked;
  table->item(current, Check)->setCheckState(state);
  if (options.isExclusive)
    return;
  for (const QModelIndex& index : table->selectionModel()->selectedIndexes())
    if (index.column() == FirstCell)
      table->item(index.row(), Check)->setCheckState(state);
}

bool DefineSelectionTableDialog::isChecked(int row) const {
  return form.tableWidget->item(row, Check)->checkState() == Qt::Checked;
}

void DefineSelectionTableDialog::acceptDialog() {
  std::vector<int> rows;
  for (int row = 0; row < form.tableWidget->rowCount(); ++row)
    if (isChecked(row))
      rows.push_back(row);
  if (double* result = makeRealResult(static_cast<int>(rows.size())))
    std::copy(rows.begin(), rows.end(), result);
  accept();
}
