#include "Analog/WindingsTable.h"
#include "HostWidgets/Spinner.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

namespace {

struct Shown : QWidget {
  Shown() {
    new QVBoxLayout(this);
    layout()->addWidget(before);
    layout()->addWidget(table);
    table->setInductances(WindingsTable::Inductances::Shown);
    show(1, 2);
    QWidget::show();
    QApplication::setActiveWindow(this);
  }
  void show(int primaries, int secondaries) {
    windings.setCounts(primaries, secondaries);
    table->showWindings(windings, before);
  }
  Spinner* spinner(const char* name) const {
    return table->findChild<Spinner*>(QString::fromLatin1(name));
  }

  Windings windings;
  QLineEdit* before = new QLineEdit;
  WindingsTable* table = new WindingsTable;
};

// A reader can change the counts without taking the focus from where the user types.
TEST(WindingsTable, RowsComeAndGoWhileOneIsBeingTyped) {
  Shown shown;
  shown.spinner("secondaryTurnsEdit1")->setFocus();
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("7"));
  const Spinner* typed = shown.spinner("secondaryTurnsEdit1");
  shown.show(3, 1);
  EXPECT_EQ(shown.spinner("secondaryTurnsEdit1"), typed);
  EXPECT_TRUE(typed->isAncestorOf(QApplication::focusWidget()));
  EXPECT_EQ(typed->text().toStdString(), "17"); // behind the one that was there

  // The typed one goes: nobody is told of rows that are half gone.
  int told = 0;
  QObject::connect(shown.table, &WindingsTable::edited, [&] { ++told; });
  shown.show(2, 0);
  EXPECT_EQ(told, 0);
  EXPECT_EQ(shown.table->rowCount(), 2);
  EXPECT_TRUE(QApplication::focusWidget());
}

TEST(WindingsTable, IsReadCellByCell) {
  Shown shown;
  shown.spinner("secondaryTurnsEdit2")->setValue(3);
  shown.table->readTurns(&shown.windings);
  shown.table->showInductances(shown.windings, 1e-6);
  QAccessibleTableInterface* cells =
      QAccessible::queryAccessibleInterface(shown.table)->tableInterface();
  const char* const row[] = {"Secondary 2", "3", "+", "9uH"};
  for (int column = 0; column < 4; ++column)
    EXPECT_EQ(cells->cellAt(2, column)->text(QAccessible::Name).toStdString(), row[column]);
}

} // namespace
