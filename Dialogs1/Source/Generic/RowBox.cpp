#include "Generic/RowBox.h"

#include "HostSupport/Arguments.h"
#include "HostSupportQt/Captions.h"
#include "HostSupportQt/GuiThread.h"
#include "Pieces/CaptionLabel.h"
#include "Pieces/Captions.h"
#include "Pieces/LineEdits.h"
#include "Pieces/Messages.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>

namespace {

constexpr unsigned mostRows = 10'000;
// Of the screen: title bar, headings and buttons want the rest.
constexpr double largestWidth = 0.85;
constexpr double largestHeight = 0.6;

QSize largestSize() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (!screen)
    return {QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
  const QSize size = screen->availableGeometry().size();
  return {int(size.width() * largestWidth), int(size.height() * largestHeight)};
}

class RowScrollArea : public QScrollArea {
public:
  explicit RowScrollArea(QWidget* parent) : QScrollArea(parent), m_largest(largestSize()) {
    // Tab scrolls by itself, arrow keys and the first focus do not.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
      if (now && isAncestorOf(now))
        ensureWidgetVisible(now);
    });
  }
  QSize sizeHint() const override { return minimumSizeHint(); }
  QSize minimumSizeHint() const override {
    QSize size = widget()->sizeHint();
    if (size.height() > m_largest.height())
      size.rwidth() += verticalScrollBar()->sizeHint().width();
    if (size.width() > m_largest.width())
      size.rheight() += horizontalScrollBar()->sizeHint().height();
    return size.boundedTo(m_largest);
  }

private:
  QSize m_largest;
};

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

void RowBox::addHeading(const QString& text, int row, int columns) {
  auto* label = new CaptionLabel(form.groupBox);
  label->setCaption(text);
  const int framesAndScrollBar = 3 * style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  label->setMaximumWidth(largestSize().width() - framesAndScrollBar);
  auto* line = new QHBoxLayout;
  line->addWidget(label, 1);
  line->addStretch();
  form.groupBoxLayout->addLayout(line, row, 0, 1, columns);
  headingLabel = label;
}

void RowBox::addCaptioned(QWidget* field, const QString& caption, int row, int column) {
  // Not a buddy: the caption is the script's, and an ampersand in it is meant to be seen.
  auto* label = new CaptionLabel(form.groupBox);
  label->setCaption(caption);
  form.groupBoxLayout->addWidget(label, row, column);
  addSelfCaptioned(field, caption, row, column + 1, 1);
}

void RowBox::addSelfCaptioned(QWidget* field, const QString& caption, int row, int column,
                              int columnSpan) {
  form.groupBoxLayout->addWidget(field, row, column, 1, columnSpan);
  const QString name = plainText(shownCaption(caption));
  field->setAccessibleName(
      name.isEmpty() ? QCoreApplication::translate("RowBox", "Field %1").arg(row + 1) : name);
  fitText(field);
}

void RowBox::finishRows(QWidget* first) {
  // Rows stay together in a window that is taller than they are.
  form.groupBoxLayout->setRowStretch(form.groupBoxLayout->rowCount(), 1);
  // What scrolls counts a heading as high as it is at its narrowest, and would be too high.
  if (scrollWhenLarge(form.groupBox) && headingLabel && headingLabel->hasHeightForWidth())
    headingLabel->setMinimumHeight(headingLabel->fontMetrics().lineSpacing());
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

bool refusesRowCount(unsigned rows, QWidget* over) {
  if (rows <= mostRows)
    return false;
  sp_NeedGuiThread("RowBox");
  warn(over, QCoreApplication::translate("RowBox", "Too Many Lines"),
       QCoreApplication::translate(
           "RowBox", "There are %1 lines to show, and a box can show %2 at most. It is not opened.")
           .arg(rows)
           .arg(mostRows));
  return true;
}

bool scrollWhenLarge(QWidget* contents) {
  const QSize size = contents->sizeHint();
  if (size.boundedTo(largestSize()) == size)
    return false;
  QWidget* parent = contents->parentWidget();
  auto* area = new RowScrollArea(parent);
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setFocusPolicy(Qt::NoFocus);
  delete parent->layout()->replaceWidget(contents, area);
  area->setWidget(contents);
  return true;
}
