#include "Application/DirectoryTree.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QHeaderView>
#include <QResizeEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTreeWidgetItem>

namespace {

class ResizeCounter : public QObject {
public:
  explicit ResizeCounter(QObject* watched) { watched->installEventFilter(this); }
  int count = 0;

protected:
  bool eventFilter(QObject*, QEvent* event) override {
    count += event->type() == QEvent::Resize;
    return false;
  }
};

class MeasureCounter : public QStyledItemDelegate {
public:
  mutable int count = 0;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    ++count;
    return QStyledItemDelegate::sizeHint(option, index);
  }
};

void addNames(DirectoryTree* tree, int count, int wide, int characters) {
  QList<QTreeWidgetItem*> items;
  for (int i = 0; i < count; ++i)
    items.append(new QTreeWidgetItem(
        {i == wide ? QString(characters, QLatin1Char('x')) : QStringLiteral("a%1").arg(i)}));
  tree->addTopLevelItems(items);
}

void settle() {
  for (int i = 0; i < 50; ++i)
    QCoreApplication::processEvents();
}

class DirectoryTreeTest : public testing::Test {
protected:
  DirectoryTreeTest() {
    tree.setHeaderHidden(true);
    tree.setUniformRowHeights(true);
    tree.header()->setStretchLastSection(false);
  }
  DirectoryTree tree;
};

} // namespace

// The row at the edge is behind the scroll bar that its own width brings.
TEST_F(DirectoryTreeTest, ComesToRestWhereverTheEdgeIs) {
  addNames(&tree, 30, 14, 90);
  tree.show();
  ResizeCounter resizes(tree.viewport());
  for (int height = 150; height < 450; height += 3) {
    tree.resize(300, height);
    settle();
    resizes.count = 0;
    settle();
    ASSERT_EQ(resizes.count, 0) << "at height " << height;
  }
}

TEST_F(DirectoryTreeTest, AnotherListingIsMeasuredAnew) {
  addNames(&tree, 30, 2, 90);
  tree.resize(300, 300);
  tree.show();
  settle();
  const int wide = tree.columnWidth(0);
  EXPECT_GT(wide, 300);
  tree.verticalScrollBar()->setValue(tree.verticalScrollBar()->maximum());
  settle();
  EXPECT_EQ(tree.columnWidth(0), wide) << "a name that is out of sight keeps its room";
  tree.clear();
  addNames(&tree, 5, -1, 0);
  settle();
  EXPECT_LE(tree.columnWidth(0), tree.viewport()->width());
  EXPECT_EQ(tree.horizontalScrollBar()->maximum(), 0);
}

TEST_F(DirectoryTreeTest, MeasuresWhatIsInSightOnly) {
  MeasureCounter measures;
  tree.setItemDelegate(&measures);
  addNames(&tree, 100000, 50000, 90);
  tree.resize(300, 300);
  tree.show();
  constexpr int places = 20;
  for (int i = 0; i < places; ++i) {
    tree.scrollToItem(tree.topLevelItem(5000 * i));
    settle();
  }
  EXPECT_LT(measures.count, places * 200);
}
