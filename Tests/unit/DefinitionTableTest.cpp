#include "Pwl/DefinitionTable.h"

#include "HostWidgets/Accessibility.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QTest>

// A warning of Qt fails these tests: it has one for a cell that opens no editor.
TEST(DefinitionTable, TabGoesFromCellToCell) {
  installFieldAccessibility();
  LineStore lines;
  for (const char* line : {"0 0", "1u 5", "* a comment"})
    lines.append(line);
  DefinitionTable table;
  table.setLines(lines, {});
  table.addRowActions(&table);
  const QStringList headings{QStringLiteral("Time"), QStringLiteral("Value"),
                             QStringLiteral("File")};
  table.setHorizontalHeaderLabels(headings);
  table.show();
  QApplication::setActiveWindow(&table);
  table.setCurrentCell(0, 0);
  table.setFocus();
  QTest::keyClick(&table, Qt::Key_F2);
  const struct {
    Qt::Key key;
    int row, column;
    bool opens;
  } steps[] = {
      {Qt::Key_Tab, 0, 1, true}, {Qt::Key_Tab, 1, 0, true},     {Qt::Key_Tab, 1, 1, true},
      {Qt::Key_Tab, 2, 0, true}, {Qt::Key_Backtab, 1, 1, true}, {Qt::Key_Tab, 2, 0, true},
      {Qt::Key_Tab, 2, 1, true}, {Qt::Key_Tab, 3, 0, true},     {Qt::Key_Escape, 3, 0, false},
  };
  for (const auto& step : steps) {
    auto* editor = table.findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(editor)->text(QAccessible::Name),
              headings.at(table.currentColumn()));
    QTest::keyClick(editor, step.key);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(table.currentRow(), step.row);
    EXPECT_EQ(table.currentColumn(), step.column);
    EXPECT_EQ(table.findChild<QLineEdit*>() != nullptr, step.opens);
  }
}

TEST(DefinitionTable, AFaultIsHeardAsItIsShown) {
  LineStore lines;
  lines.append("0 x");
  DefinitionTable table;
  table.setLines(lines,
                 SyntaxMessages(QStringLiteral("<<<<<<<< Error Message ID: 7 >>>>>>>>\n"
                                               "in points.txt, line 1:\nNo number.\n****\n")));
  QAccessibleTableInterface* cells =
      QAccessible::queryAccessibleInterface(&table)->tableInterface();
  const QString heard = cells->cellAt(0, 1)->text(QAccessible::Description);
  EXPECT_EQ(heard, table.item(0, 1)->toolTip());
  EXPECT_TRUE(heard.contains(QStringLiteral("No number.")));
}
