#include "Workbench/ResultView.h"

#include "Palettes.h"
#include "Workbench/CallRecord.h"
#include "Workbench/ResultModel.h"
#include "Workbench/Tables.h"

#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <QVBoxLayout>

static constexpr int longestHeading = 2000; // characters
static constexpr int narrowestColumn = 90;
static constexpr int measuredRows = 100; // for the width of columns

ResultView::ResultView(QWidget* parent)
    : QWidget(parent), m_heading(new QLabel), m_table(new QTableView),
      m_model(new ResultModel(this)) {
  m_heading->setTextFormat(Qt::PlainText);
  m_heading->setTextInteractionFlags(Qt::TextSelectableByMouse);
  m_heading->setWordWrap(true);
  m_heading->setMargin(6);
  m_table->setModel(m_model);
  m_table->setAccessibleName(tr("Result"));
  setUpTable(m_table);
  m_table->horizontalHeader()->setMinimumSectionSize(narrowestColumn);
  m_table->horizontalHeader()->setResizeContentsPrecision(measuredRows);
  setFocusProxy(m_table);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(m_heading);
  column->addWidget(m_table, 1);
  setHeading(tr("Choose a function and run its call (F5)."), false);
}

void ResultView::showCall(const CallRecord& record, const CallResult& result) {
  m_model->setResult(result);
  m_table->resizeColumnsToContents();
  if (!record.error.isEmpty())
    setHeading(record.error, true);
  else if (!result.made())
    setHeading(tr("%1 made no result.").arg(record.function), false);
  else
    setHeading(tr("%1 made a %2 result of length %3.")
                   .arg(record.function, resultTypeName(result.type))
                   .arg(result.count()),
               false);
}

void ResultView::showText(const QString& text, bool isError) {
  m_model->setResult(CallResult());
  setHeading(text, isError);
}

void ResultView::setHeading(const QString& text, bool isError) {
  m_heading->setText(text.left(longestHeading));
  QPalette colours;
  if (isError)
    colours.setColor(QPalette::WindowText, inkColours(palette()).error);
  m_heading->setPalette(colours);
}
