#pragma once

#include "Workbench/CallRecord.h"

#include <QWidget>

#include <deque>

class QPushButton;
class QTableWidget;

/// The calls that were made, the latest at the bottom.
class HistoryView : public QWidget {
  Q_OBJECT

public:
  explicit HistoryView(QWidget* parent = nullptr);
  void add(const CallRecord& record);
  void copyAsScript() const; ///< the selected calls, else the last one
  void clear();

signals:
  void recalled(const QString& script); ///< a call that is to go to the editor

private:
  QVector<int> chosenRows() const;
  void updateButtons();
  void recall();

  QTableWidget* m_table;
  QPushButton* m_recall;
  QPushButton* m_copy;
  QPushButton* m_clear;
  std::deque<CallRecord> m_records; ///< one per row
  int m_characters = 0;             ///< of all records
};
