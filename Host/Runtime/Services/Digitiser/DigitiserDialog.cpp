#include "Services/Digitiser/DigitiserDialog.h"

#include "HostSupportQt/Geometry.h"
#include "Services/Digitiser/DigitisedPoints.h"
#include "ui_DigitiserDialog.h"

#include <QAction>
#include <QApplication>
#include <QButtonGroup>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMessageBox>
#include <QScreen>
#include <QShortcut>
#include <QStyle>

#include <algorithm>

static constexpr QSize usualSize(1100, 720);

/// What the next click does has to be seen at a glance, on dark palettes as well.
static QPalette chosenPalette() {
  QPalette palette = QApplication::palette();
  palette.setColor(QPalette::Button, palette.color(QPalette::Highlight));
  palette.setColor(QPalette::ButtonText, palette.color(QPalette::HighlightedText));
  return palette;
}

DigitiserDialog::DigitiserDialog(const QImage& picture, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::DigitiserDialog>()), m_model(picture),
      m_table(new DigitisedPoints(&m_model, this)) {
  m_ui->setupUi(this);
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  m_values = {m_ui->x1Value, m_ui->x2Value, m_ui->y1Value, m_ui->y2Value};
  m_tools = {m_ui->x1Button, m_ui->x2Button,    m_ui->y1Button,
             m_ui->y2Button, m_ui->pointButton, m_ui->traceButton};
  m_ui->picture->setModel(&m_model);
  m_ui->magnifier->setPicture(picture);
  m_ui->points->setModel(m_table);
  m_ui->points->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);

  connect(&m_model, &DigitiserModel::changed, this, &DigitiserDialog::follow);
  connect(m_ui->okButton, &QPushButton::clicked, this, &DigitiserDialog::accept);
  connect(m_ui->cancelButton, &QPushButton::clicked, this, &DigitiserDialog::reject);
  connectTools();
  connectAxes();
  connectPoints();
  connectZoom();
  addUndo();
  useTool(MarkX1);
  follow();
  m_ui->picture->setFocus();
  resize(usualSize.boundedTo(screen()->availableSize() * 9 / 10));
  sp_AutoSaveDialogDims(this);
}

DigitiserDialog::~DigitiserDialog() {
  hide();                   // views that go out of sight look at the model once more
  m_model.disconnect(this); // the stack says a last word as it goes
}

void DigitiserDialog::connectTools() {
  auto* group = new QButtonGroup(this);
  for (std::size_t tool = 0; tool < m_tools.size(); ++tool)
    group->addButton(m_tools[tool], static_cast<int>(tool));
  for (QToolButton* button : m_tools)
    connect(button, &QToolButton::toggled, button,
            [button](bool on) { button->setPalette(on ? chosenPalette() : QPalette()); });
  connect(group, &QButtonGroup::idClicked, this, [this](int tool) {
    useTool(tool);
    m_ui->picture->setFocus();
    // A mark that stands is in hand, so that the arrow keys move it.
    if (tool < markCount && m_model.state().places[static_cast<std::size_t>(tool)])
      m_ui->picture->select(tool);
  });
  connect(m_ui->picture, &DigitiserView::toolChanged, this,
          [this](int tool) { m_tools[static_cast<std::size_t>(tool)]->setChecked(true); });
  connect(m_ui->picture, &DigitiserView::cursorMoved, this, &DigitiserDialog::showPosition);
  connect(m_ui->picture, &DigitiserView::tracePressed, this, &DigitiserDialog::trace);
  const auto retrace = [this] { m_model.retrace(traceOptions()); };
  for (QSpinBox* option : {m_ui->tolerance, m_ui->step, m_ui->gap})
    connect(option, qOverload<int>(&QSpinBox::valueChanged), this, retrace);
  connect(m_ui->thinning, qOverload<double>(&QDoubleSpinBox::valueChanged), this, retrace);
}

void DigitiserDialog::connectAxes() {
  for (int mark = 0; mark < markCount; ++mark) {
    QLineEdit* edit = m_values[static_cast<std::size_t>(mark)];
    edit->installEventFilter(this);
    connect(edit, &QLineEdit::textEdited, this,
            [this, mark](const QString& text) { m_model.setMarkText(mark, text); });
    connect(edit, &QLineEdit::editingFinished, &m_model, &DigitiserModel::beginGesture);
  }
  const auto scaleOf = [](int index) {
    return index == 0 ? AxisScale::Linear : AxisScale::Logarithmic;
  };
  connect(m_ui->xScale, qOverload<int>(&QComboBox::activated), this,
          [this, scaleOf](int index) { m_model.setScale(XAxis, scaleOf(index)); });
  connect(m_ui->yScale, qOverload<int>(&QComboBox::activated), this,
          [this, scaleOf](int index) { m_model.setScale(YAxis, scaleOf(index)); });
  connect(m_ui->picture, &DigitiserView::marked, this, &DigitiserDialog::goToValue);
  connect(m_ui->picture, &DigitiserView::valueTyped, this, [this](int mark, const QString& text) {
    goToValue(mark);
    m_values[static_cast<std::size_t>(mark)]->setText(text);
    m_model.setMarkText(mark, text);
  });
}

void DigitiserDialog::connectPoints() {
  connect(m_ui->points->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &DigitiserDialog::selectRow);
  connect(m_ui->picture, &DigitiserView::selectionChanged, this, &DigitiserDialog::showSelected);
  connect(m_ui->removeButton, &QPushButton::clicked, this, &DigitiserDialog::removeSelected);
  connect(m_ui->removeAllButton, &QPushButton::clicked, &m_model, &DigitiserModel::clearPoints);
  const auto* key =
      new QShortcut(QKeySequence::Delete, m_ui->points, nullptr, nullptr, Qt::WidgetShortcut);
  connect(key, &QShortcut::activated, this, &DigitiserDialog::removeSelected);
}

void DigitiserDialog::connectZoom() {
  constexpr double step = 1.5;
  connect(m_ui->zoomInButton, &QToolButton::clicked, this, [this] { m_ui->picture->zoomBy(step); });
  connect(m_ui->zoomOutButton, &QToolButton::clicked, this,
          [this] { m_ui->picture->zoomBy(1 / step); });
  connect(m_ui->fitButton, &QToolButton::clicked, m_ui->picture, &DigitiserView::fit);
  connect(m_ui->actualSizeButton, &QToolButton::clicked, m_ui->picture,
          &DigitiserView::showActualSize);
}

void DigitiserDialog::addUndo() {
  QAction* undo = m_model.undoStack()->createUndoAction(this, tr("Undo"));
  undo->setIconText(tr("Undo"));
  undo->setShortcut(Qt::CTRL + Qt::Key_Z);
  QAction* redo = m_model.undoStack()->createRedoAction(this, tr("Redo"));
  redo->setIconText(tr("Redo"));
  redo->setShortcuts({Qt::CTRL + Qt::SHIFT + Qt::Key_Z, Qt::CTRL + Qt::Key_Y});
  addActions({undo, redo});
  m_ui->undoButton->setDefaultAction(undo);
  m_ui->redoButton->setDefaultAction(redo);
}

// ---- what is shown ------------------------------------------------------------------------------

void DigitiserDialog::follow() {
  const DigitiserState& state = m_model.state();
  for (std::size_t mark = 0; mark < markCount; ++mark)
    if (m_values[mark]->text() != state.texts[mark])
      m_values[mark]->setText(state.texts[mark]);
  m_ui->xScale->setCurrentIndex(state.scales[XAxis] == AxisScale::Logarithmic);
  m_ui->yScale->setCurrentIndex(state.scales[YAxis] == AxisScale::Logarithmic);
  m_fault.clear();
  showAdvice();
  showPosition();
  updateEnables();
}

void DigitiserDialog::updateEnables() {
  m_ui->okButton->setEnabled(m_model.isComplete() && !m_model.advice().isFault);
  m_ui->removeButton->setEnabled(m_ui->points->selectionModel()->hasSelection());
  m_ui->removeAllButton->setEnabled(!m_model.state().points.isEmpty());
}

void DigitiserDialog::showAdvice() {
  const DigitiserModel::Advice advice = m_model.advice();
  const bool isFault = advice.isFault || advice.isQuestion || !m_fault.isEmpty();
  const int side = fontMetrics().height();
  const auto icon = isFault ? QStyle::SP_MessageBoxWarning : QStyle::SP_MessageBoxInformation;
  m_ui->adviceIcon->setPixmap(style()->standardIcon(icon).pixmap(windowHandle(), {side, side}));
  m_ui->advice->setText(m_fault.isEmpty() ? advice.text : m_fault);
}

void DigitiserDialog::showPosition() {
  const QPointF pixel = m_ui->picture->cursorPlace();
  m_ui->magnifier->showPlace(pixel);
  if (!m_model.map()) {
    m_ui->position->setText(tr("Pixel %1, %2").arg(pixel.x(), 0, 'f', 1).arg(pixel.y(), 0, 'f', 1));
    return;
  }
  const QPointF value = m_model.map()->toValues(pixel);
  m_ui->position->setText(tr("X = %1, Y = %2").arg(shownValue(value.x()), shownValue(value.y())));
}

// ---- what the user does -------------------------------------------------------------------------

void DigitiserDialog::useTool(int tool) {
  m_tools[static_cast<std::size_t>(tool)]->setChecked(true);
  m_ui->picture->setTool(tool);
}

void DigitiserDialog::goToValue(int mark) {
  m_values[static_cast<std::size_t>(mark)]->setFocus(Qt::OtherFocusReason);
  m_values[static_cast<std::size_t>(mark)]->selectAll();
}

/// From a value that was typed: to the next mark that is to be placed, else to the points.
void DigitiserDialog::goOn(int mark) {
  const auto& places = m_model.state().places;
  for (int i = 0; i < markCount; ++i) {
    const int next = (mark + i) % markCount;
    if (!places[static_cast<std::size_t>(next)]) {
      useTool(next);
      m_ui->picture->setFocus();
      return;
    }
  }
  for (int next = 0; next < markCount; ++next)
    if (m_model.state().texts[static_cast<std::size_t>(next)].isEmpty()) {
      goToValue(next);
      return;
    }
  useTool(DigitiserView::PointTool);
  m_ui->picture->setFocus();
}

bool DigitiserDialog::eventFilter(QObject* watched, QEvent* event) {
  const auto edit = std::find(m_values.begin(), m_values.end(), watched);
  if (edit == m_values.end())
    return QDialog::eventFilter(watched, event);
  if (event->type() == QEvent::ShortcutOverride) {
    // One history for everything: the edit's own would only know its text.
    const auto* key = static_cast<QKeyEvent*>(event);
    return key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo);
  }
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      goOn(static_cast<int>(edit - m_values.begin()));
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

TraceOptions DigitiserDialog::traceOptions() const {
  return {m_ui->tolerance->value(), m_ui->step->value(), m_ui->gap->value(),
          m_ui->thinning->value()};
}

void DigitiserDialog::trace(const QPoint& pixel) {
  if (m_model.trace(pixel, traceOptions()))
    return;
  m_fault = tr("No curve stands out from the paper there: click on its line.");
  showAdvice();
}

void DigitiserDialog::removeSelected() {
  QVector<int> rows;
  for (const QModelIndex& index : m_ui->points->selectionModel()->selectedRows())
    rows.append(index.row());
  if (rows.isEmpty())
    return;
  m_ui->points->clearSelection();
  m_model.removePoints(rows);
}

void DigitiserDialog::selectRow() {
  updateEnables();
  if (m_isSelecting)
    return;
  m_isSelecting = true;
  const QModelIndexList rows = m_ui->points->selectionModel()->selectedRows();
  if (!rows.isEmpty())
    useTool(DigitiserView::PointTool);
  if (m_ui->picture->tool() == DigitiserView::PointTool)
    m_ui->picture->select(rows.size() == 1 ? rows.first().row() : -1);
  m_isSelecting = false;
}

void DigitiserDialog::showSelected() {
  if (m_isSelecting)
    return;
  m_isSelecting = true;
  const int row =
      m_ui->picture->tool() == DigitiserView::PointTool ? m_ui->picture->selected() : -1;
  if (row < 0) {
    m_ui->points->clearSelection();
  } else {
    m_ui->points->selectRow(row);
    m_ui->points->scrollTo(m_table->index(row, 0));
  }
  m_isSelecting = false;
  updateEnables();
}

void DigitiserDialog::reject() {
  if (!m_model.state().isEmpty() &&
      QMessageBox::question(this, windowTitle(), tr("Discard the marks and points?"),
                            QMessageBox::Discard | QMessageBox::Cancel,
                            QMessageBox::Cancel) != QMessageBox::Discard)
    return;
  QDialog::reject();
}
