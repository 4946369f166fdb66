#include "Workbench/Tables.h"

#include <QAbstractItemView>
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableView>

#include <algorithm>

static QString selectedText(const QAbstractItemView* view) {
  QModelIndexList cells = view->selectionModel()->selectedIndexes();
  std::sort(cells.begin(), cells.end());
  QString text;
  for (int i = 0; i < cells.size(); ++i) {
    if (i > 0)
      text += cells[i].row() == cells[i - 1].row() ? QLatin1Char('\t') : QLatin1Char('\n');
    QString cell = cells[i].data(Qt::ToolTipRole).toString();
    if (cell.isEmpty())
      cell = cells[i].data().toString();
    // A cell is one cell where it is pasted.
    text += cell.replace(QLatin1Char('\t'), QLatin1Char(' '))
                .replace(QLatin1Char('\n'), QLatin1Char(' '));
  }
  return text;
}

void addCopyAction(QAbstractItemView* view) {
  auto* copy = new QAction(QAbstractItemView::tr("&Copy"), view);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  QObject::connect(copy, &QAction::triggered, view,
                   [view] { QGuiApplication::clipboard()->setText(selectedText(view)); });
  view->addAction(copy);
  view->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void setUpTable(QTableView* table) {
  table->setFrameShape(QFrame::NoFrame);
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setAlternatingRowColors(true);
  table->setShowGrid(false);
  table->setTabKeyNavigation(false);
  table->setWordWrap(false);
  table->verticalHeader()->hide();
  table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 6);
  table->horizontalHeader()->setHighlightSections(false);
  addCopyAction(table);
}

void layOutPanel(QWidget* panel, QTableView* table, std::initializer_list<QPushButton*> buttons) {
  auto* column = new QVBoxLayout;
  column->setContentsMargins(6, 6, 6, 6);
  for (QPushButton* button : buttons)
    column->addWidget(button);
  column->addStretch();
  auto* row = new QHBoxLayout(panel);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addWidget(table, 1);
  row->addLayout(column);
}
