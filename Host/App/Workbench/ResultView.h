#pragma once

#include <QWidget>

class QLabel;
class QTableView;
class ResultModel;
struct CallRecord;
struct CallResult;

/// The result of the last call: its type and its elements.
class ResultView : public QWidget {
  Q_OBJECT

public:
  explicit ResultView(QWidget* parent = nullptr);
  void showCall(const CallRecord& record, const CallResult& result);
  /// What a script came to that made no call: its value or its error.
  void showText(const QString& text, bool isError);

private:
  void setHeading(const QString& text, bool isError);

  QLabel* m_heading;
  QTableView* m_table;
  ResultModel* m_model;
};
