#pragma once

#include "HostSupportQt/RichText.h"

#include <QCoreApplication>
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

/// A comment of a file-defined source.
class CommentPWLTableItem : public QTableWidgetItem {
public:
  explicit CommentPWLTableItem(const QString& text = QString()) : QTableWidgetItem(text) {
    setForeground(QColor(0, 128, 0));
  }
  ~CommentPWLTableItem() override = default;
};

/// The start data line, which the dialog's controls write.
class StartDataPWLTableItem : public QTableWidgetItem {
public:
  explicit StartDataPWLTableItem(const QString& line) : QTableWidgetItem(line) {
    setForeground(QColor(0, 0, 255));
    setFlags(Qt::NoItemFlags);
  }
  ~StartDataPWLTableItem() override = default;
};

/// A cell in which the simulator has found a fault.
class ErrorPWLTableItem : public QTableWidgetItem {
public:
  ErrorPWLTableItem(const QString& text, const QString& message) : QTableWidgetItem(text) {
    setForeground(QColor(255, 0, 0));
    setToolTip(harmlessText(message));
    setData(Qt::AccessibleDescriptionRole, message);
  }
  ~ErrorPWLTableItem() override = default;
};

/// The cell that opens a file chooser for its row.
class ToolButtonPWLTableItem : public QTableWidgetItem {
public:
  ToolButtonPWLTableItem() : QTableWidgetItem(caption()) { setBackground(QColor(225, 225, 225)); }
  ~ToolButtonPWLTableItem() override = default;

  static QString caption() { return QCoreApplication::translate("PointTable", "Select..."); }
};
