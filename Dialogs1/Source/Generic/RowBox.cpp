#include "Generic/RowBox.h"

#include "HostSupport/Arguments.h"
#include "HostSupportQt/Captions.h"
#include "HostSupportQt/GuiThread.h"
#include "Pieces/Captions.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

namespace {

constexpr unsigned mostRows = 1000;
constexpr int rowsOnAnyScreen = 8;   // so few need no measuring, which costs a layout
constexpr double tallestShare = 0.7; // of the screen; title bar and buttons want the rest

class RowScrollArea : public QScrollArea {
public:
  RowScrollArea(QWidget* parent, int height) : QScrollArea(parent), m_height(height) {
    // Tab scrolls by itself, arrow keys and the first focus do not.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
      if (now && isAncestorOf(now))
        ensureWidgetVisible(now);
    });
  }
  QSize sizeHint() const override { return minimumSizeHint(); }
  QSize minimumSizeHint() const override {
    const QSize contents = widget()->sizeHint();
    return {contents.width() + verticalScrollBar()->sizeHint().width(), m_height};
  }

private:
  int m_height;
};

QLineEdit* lineEditOf(QWidget* field) {
  return qobject_cast<QLineEdit*>(field->focusProxy() ? field->focusProxy() : field);
}

} // namespace

RowBox::RowBox(const char* objectName) : KelvarinDialog(nullptr, objectName, true, {}) {
  form.setupUi(this);
}

void RowBox::initialiseDialog() {
  dimsSavingEnabled = true;
}

void RowBox::showEvent(QShowEvent* event) {
  resize(0, 0);
  KelvarinDialog::showEvent(event);
}

void RowBox::hideSelectButtons() {
  setShown({form.selectAllButton, form.unselectAllButton}, false);
}

void RowBox::addCaptioned(QWidget* field, const QString& caption, int row, int column) {
  // Not a buddy: the caption is the script's, and an ampersand in it is meant to be seen.
  form.groupBoxLayout->addWidget(new QLabel(labelText(caption), form.groupBox), row, column);
  addSelfCaptioned(field, caption, row, column + 1, 1);
}

void RowBox::addSelfCaptioned(QWidget* field, const QString& caption, int row, int column,
                              int columnSpan) {
  form.groupBoxLayout->addWidget(field, row, column, 1, columnSpan);
  const QString name = plainText(shownCaption(caption));
  field->setAccessibleName(
      name.isEmpty() ? QCoreApplication::translate("RowBox", "Field %1").arg(row + 1) : name);
  // Of a text that is longer than its field, the beginning says more than the end.
  if (QLineEdit* edit = lineEditOf(field))
    edit->setCursorPosition(0);
}

void RowBox::finishRows(QWidget* first) {
  // Rows stay together in a window that is taller than they are.
  form.groupBoxLayout->setRowStretch(form.groupBoxLayout->rowCount(), 1);
  if (form.groupBoxLayout->rowCount() > rowsOnAnyScreen)
    scrollWhenTall(form.groupBox);
  if (!first)
    return;
  // The form's buttons were there first; the user starts in the rows.
  first->setFocus(Qt::TabFocusReason);
  if (QLineEdit* edit = lineEditOf(first))
    edit->selectAll();
}

unsigned realCount(UserFunctionInterface* call, int index) {
  const double* data = nullptr;
  unsigned count = 0;
  sp_GetRealIfVector(call, index, &data, &count);
  return count;
}

bool refusesRowCount(unsigned rows, const char* function) {
  if (rows <= mostRows)
    return false;
  QMessageBox::warning(sp_GuiParent(nullptr, function), QString::fromLatin1(function),
                       QCoreApplication::translate(
                           "RowBox", "The script asks for %1 rows; a box can show %2 at most.")
                           .arg(rows)
                           .arg(mostRows));
  return true;
}

void scrollWhenTall(QWidget* contents) {
  const QScreen* screen = QGuiApplication::primaryScreen();
  const int tallest = screen ? int(screen->availableGeometry().height() * tallestShare) : 0;
  if (!screen || contents->sizeHint().height() <= tallest)
    return;
  QWidget* parent = contents->parentWidget();
  auto* area = new RowScrollArea(parent, tallest);
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setFocusPolicy(Qt::NoFocus);
  delete parent->layout()->replaceWidget(contents, area);
  area->setWidget(contents);
}
