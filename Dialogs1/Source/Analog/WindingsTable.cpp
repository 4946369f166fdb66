#include "Analog/WindingsTable.h"

#include "Core/Analog/MagneticCore.h"
#include "HostWidgets/ComboBox.h"
#include "HostWidgets/Spinner.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

/// Primaries or secondaries: the objects in their cells begin with `objectName`.
struct WindingsTable::Kind {
  QString objectName;
  QString caption;
};

namespace {

constexpr int labelMargin = 2;
constexpr int rowsSeen = 4;
constexpr int longestQuantity = 13; ///< characters: "1.23457e-100H"

enum PolarityRow { Direct, Reversed };

} // namespace

WindingsTable::WindingsTable(QWidget* parent) : QTableWidget(parent) {
  setSelectionMode(NoSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false); // the fields in the cells have it
  verticalHeader()->hide();
  horizontalHeader()->setSectionsClickable(false);
  horizontalHeader()->setHighlightSections(false);
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* now) { scrollToFocus(now); });
}

void WindingsTable::setInductances(Inductances kind) {
  m_inductances = kind;
  QStringList headings{tr("Winding"), tr("Number of turns"), tr("Polarity")};
  if (kind != Inductances::None)
    headings.append(tr("Inductance"));
  setColumnCount(headings.size());
  setHorizontalHeaderLabels(headings);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
}

void WindingsTable::showWindings(const Windings& windings, QWidget* before) {
  const Kind primary{QStringLiteral("primary"), tr("Primary %1")};
  const Kind secondary{QStringLiteral("secondary"), tr("Secondary %1")};
  const QScopedValueRollback<bool> guard(m_isChanging, true);
  // Of either kind, they come and go at its end.
  while (m_primaries > windings.primaries())
    removeRow(--m_primaries);
  while (m_secondaries > windings.secondaries())
    removeRow(m_primaries + --m_secondaries);
  for (int row = m_primaries; row < windings.primaries(); row = ++m_primaries)
    addRow(row, primary, m_primaries + 1, windings.turns(row));
  for (int row = rowCount(); row < windings.count(); row = rowCount())
    addRow(row, secondary, ++m_secondaries, windings.turns(row));
  chainFields(before);
  resizeRowsToContents();
}

void WindingsTable::addRow(int row, const Kind& kind, int number, double turns) {
  insertRow(row);
  const auto named = [&](const char* what) {
    return kind.objectName + QLatin1String(what) + QString::number(number);
  };
  addLabel(row, Winding, named("Label"), kind.caption.arg(number));
  cellWidget(row, Winding)->setFont(horizontalHeader()->font());
  addSpinner(row, NumberOfTurns, named("TurnsEdit"), std::fabs(turns));
  addPolarity(row, named("PolarityCombo"), turns < 0);
  if (m_inductances == Inductances::FirstEditable && row == 0)
    addSpinner(row, Inductance, named("InductanceEdit"), 0);
  else if (m_inductances != Inductances::None)
    addLabel(row, Inductance, named("InductanceLabel"));
}

void WindingsTable::addLabel(int row, Column column, const QString& name, const QString& text) {
  auto* label = new QLabel(text);
  label->setMargin(labelMargin);
  setField(row, column, label, name);
}

void WindingsTable::addSpinner(int row, Column column, const QString& name, double value) {
  auto* spinner = new Spinner;
  spinner->setMin(0);
  spinner->setNumbersOnly(true);
  spinner->setStep125(column != NumberOfTurns); // turns are counted
  spinner->setValue(value);
  connect(spinner, &Spinner::textChanged, this, &WindingsTable::tell);
  connect(spinner, &Spinner::changed, this, &WindingsTable::tell);
  setField(row, column, spinner, name);
}

void WindingsTable::addPolarity(int row, const QString& name, bool isReversed) {
  auto* combo = new ComboBox;
  combo->addItems({QStringLiteral("+"), QStringLiteral("-")});
  combo->setCurrentIndex(isReversed ? Reversed : Direct);
  connect(combo, qOverload<int>(&QComboBox::currentIndexChanged), this, &WindingsTable::tell);
  setField(row, Polarity, combo, name);
}

void WindingsTable::setField(int row, Column column, QWidget* field, const QString& name) {
  // The cell itself lies below the field, and nothing can be edited there.
  auto* below = new QTableWidgetItem;
  below->setFlags(Qt::ItemIsEnabled);
  setItem(row, column, below);
  setCellWidget(row, column, field);
  field->setObjectName(name);
  if (field->focusPolicy() != Qt::NoFocus)
    field->setAccessibleName(spokenName(row, column));
}

QString WindingsTable::spokenName(int row, int column) const {
  return tr("%1, %2").arg(static_cast<QLabel*>(cellWidget(row, Winding))->text(),
                          horizontalHeaderItem(column)->text());
}

void WindingsTable::chainFields(QWidget* before) {
  for (int row = 0; row < rowCount(); ++row)
    for (int column = 0; column < columnCount(); ++column)
      if (QWidget* field = cellWidget(row, column); field->focusPolicy() != Qt::NoFocus) {
        setTabOrder(before, field);
        before = field;
      }
}

void WindingsTable::readTurns(Windings* windings) const {
  for (int row = 0; row < rowCount(); ++row) {
    const auto* edit = static_cast<Spinner*>(cellWidget(row, NumberOfTurns));
    const auto* polarity = static_cast<ComboBox*>(cellWidget(row, Polarity));
    const double turns = edit->number().value_or(0);
    windings->setTurns(row, polarity->currentIndex() == Reversed ? -turns : turns);
  }
}

void WindingsTable::showInductances(const Windings& windings, double perTurnSquared) {
  for (int row = 0; row < rowCount(); ++row)
    if (auto* label = qobject_cast<QLabel*>(cellWidget(row, Inductance))) {
      label->setText(quantityText(windingInductance(perTurnSquared, windings.turns(row)), "H"));
      label->setAccessibleName(tr("%1: %2").arg(spokenName(row, Inductance), label->text()));
    }
  speakCells();
}

void WindingsTable::speakCells() {
  const auto textOf = [](QWidget* field) {
    if (const auto* label = qobject_cast<QLabel*>(field))
      return label->text();
    const auto* combo = qobject_cast<ComboBox*>(field);
    return combo ? combo->currentText() : static_cast<Spinner*>(field)->text();
  };
  for (int row = 0; row < rowCount(); ++row)
    for (int column = 0; column < columnCount(); ++column)
      item(row, column)->setData(Qt::AccessibleTextRole, textOf(cellWidget(row, column)));
}

void WindingsTable::tell() {
  if (!m_isChanging)
    emit edited();
}

Spinner* WindingsTable::firstInductanceEdit() const {
  return qobject_cast<Spinner*>(cellWidget(0, Inductance));
}

void WindingsTable::scrollToFocus(QWidget* now) {
  if (!now || !viewport()->isAncestorOf(now))
    return;
  while (now->parentWidget() != viewport())
    now = now->parentWidget();
  scrollTo(indexAt(now->geometry().center()));
}

int WindingsTable::columnHint() const {
  int width = fontMetrics().horizontalAdvance(QLatin1Char('0')) * longestQuantity + 2 * labelMargin;
  for (int column = 0; column < columnCount(); ++column)
    width =
        std::max({width, horizontalHeader()->sectionSizeHint(column), sizeHintForColumn(column)});
  return width;
}

QSize WindingsTable::minimumSizeHint() const {
  const int rowHeight = rowCount() > 0 ? this->rowHeight(0) : 0;
  const int frame = 2 * frameWidth();
  return {columnCount() * columnHint() + verticalScrollBar()->sizeHint().width() + frame,
          horizontalHeader()->sizeHint().height() + rowsSeen * rowHeight + frame};
}
