#include "Workbench/HistoryView.h"

#include "Workbench/Tables.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>

#include <algorithm>

namespace {

constexpr int mostRecords = 1000;
constexpr int mostCharacters = 50000000; // calls with a million elements are not kept for ever
constexpr int longestCell = 500;         // characters; more is not read in a table

int sizeOf(const CallRecord& record) {
  return record.arguments.size() + record.result.size() + record.error.size() +
         record.answers.size();
}

QTableWidgetItem* makeCell(const QString& text) {
  auto* item = new QTableWidgetItem(text.left(longestCell).simplified());
  item->setToolTip(text.left(4 * longestCell));
  return item;
}

} // namespace

HistoryView::HistoryView(QWidget* parent)
    : QWidget(parent), m_table(new QTableWidget(0, 4)), m_recall(new QPushButton(tr("To Edi&tor"))),
      m_copy(new QPushButton(tr("Copy as &Script"))), m_clear(new QPushButton(tr("C&lear"))) {
  m_table->setHorizontalHeaderLabels({tr("Time"), tr("Call"), tr("Result"), tr("Error")});
  m_table->setAccessibleName(tr("History"));
  setUpTable(m_table);
  m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
  QHeaderView* header = m_table->horizontalHeader();
  header->setSectionResizeMode(1, QHeaderView::Stretch);
  header->resizeSection(
      0, m_table->fontMetrics().horizontalAdvance(QStringLiteral("00:00:00.000")) + 16);
  header->resizeSection(2, 150);
  header->resizeSection(3, 100);
  setFocusProxy(m_table);

  layOutPanel(this, m_table, {m_recall, m_copy, m_clear});

  connect(m_table, &QTableWidget::cellActivated, this, &HistoryView::recall);
  connect(m_recall, &QPushButton::clicked, this, &HistoryView::recall);
  connect(m_copy, &QPushButton::clicked, this, &HistoryView::copyAsScript);
  connect(m_clear, &QPushButton::clicked, this, &HistoryView::clear);
  updateButtons();
}

void HistoryView::add(const CallRecord& record) {
  m_records.push_back(record);
  m_characters += sizeOf(record);
  const int row = m_table->rowCount();
  m_table->insertRow(row);
  m_table->setItem(row, 0, makeCell(record.time.toString(QStringLiteral("HH:mm:ss.zzz"))));
  m_table->setItem(row, 1, makeCell(record.callText()));
  m_table->setItem(row, 2, makeCell(record.error.isEmpty() ? record.result : QString()));
  m_table->setItem(row, 3, makeCell(record.error));
  while (m_records.size() > 1 &&
         (m_records.size() > mostRecords || m_characters > mostCharacters)) {
    m_characters -= sizeOf(m_records.front());
    m_records.pop_front();
    m_table->removeRow(0);
  }
  m_table->setCurrentCell(m_table->rowCount() - 1, 1);
  m_table->scrollToBottom();
  updateButtons();
}

QVector<int> HistoryView::chosenRows() const {
  QVector<int> rows;
  for (const QModelIndex& index : m_table->selectionModel()->selectedRows())
    rows.append(index.row());
  if (rows.isEmpty() && !m_records.empty())
    rows.append(int(m_records.size()) - 1);
  std::sort(rows.begin(), rows.end());
  return rows;
}

void HistoryView::copyAsScript() const {
  QString script;
  for (int row : chosenRows())
    script += m_records[std::size_t(row)].toScript();
  if (!script.isEmpty())
    QGuiApplication::clipboard()->setText(script);
}

void HistoryView::recall() {
  QString script;
  for (int row : chosenRows())
    script += m_records[std::size_t(row)].callText() + QStringLiteral(";\n");
  if (!script.isEmpty())
    emit recalled(script);
}

void HistoryView::clear() {
  m_records.clear();
  m_characters = 0;
  m_table->setRowCount(0);
  updateButtons();
}

void HistoryView::updateButtons() {
  for (QPushButton* button : {m_recall, m_copy, m_clear})
    button->setEnabled(!m_records.empty());
}
