#pragma once

#include "Call/FunctionTable.h"
#include "Samples.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

/// The functions of the module by family, with a search field and the signature of the chosen one.
class FunctionTree : public QWidget {
  Q_OBJECT

public:
  FunctionTree(const FunctionTable* table, const QVector<Sample>& samples,
               QWidget* parent = nullptr);

  void choose(const QString& function); ///< nothing happens where there is no such function
  QString chosen() const;               ///< empty where a family or nothing is chosen
  void focusSearch();

signals:
  void functionChosen(const QString& function);
  void functionActivated(const QString& function); ///< double click or Return

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void fill(const QVector<Sample>& samples);
  void filter(const QString& text);
  void showSignature();
  static QString functionOf(const QTreeWidgetItem* item);

  const FunctionTable* m_table;
  QLineEdit* m_search;
  QTreeWidget* m_tree;
  QLabel* m_signature;
};
