#pragma once

#include <QWidget>

class QTableWidget;

/// Messages with the time: of the host, of Qt, of the dialog driver and of failed scripts. While it
/// stands it takes what Qt and the host report, from any thread; one at a time.
class MessageLog : public QWidget {
  Q_OBJECT

public:
  explicit MessageLog(QWidget* parent = nullptr);
  ~MessageLog() override;

  void add(const QString& source, const QString& text);
  void clear();
  int count() const;

signals:
  void countChanged(int count);

private:
  QTableWidget* m_table;
};
