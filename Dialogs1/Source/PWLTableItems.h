#pragma once

#include <QTableWidget>
#include <QWidget>

/// An ordinary cell of a point table.
class PWLTableItem : public QTableWidgetItem {
public:
  explicit PWLTableItem(const QString& text = QString()) : QTableWidgetItem(text) {
    setTextAlignment(Qt::AlignLeft);
  }
  ~PWLTableItem() override = default;
};

/// A cell of the origin, which every symmetric definition has.
class DisabledPWLTableItem : public QTableWidgetItem, public QWidget {
public:
  DisabledPWLTableItem() : QTableWidgetItem(QStringLiteral("0")), QWidget(nullptr) {
    setTextAlignment(Qt::AlignLeft);
    setFlags(Qt::NoItemFlags);
  }
  ~DisabledPWLTableItem() override = default;
};
