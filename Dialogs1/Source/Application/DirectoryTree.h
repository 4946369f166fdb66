#pragma once

#include <QTreeWidget>

/// A tree that is as deep as a file system may be, and never opens more than it is asked for.
class DirectoryTree : public QTreeWidget {
public:
  explicit DirectoryTree(QWidget* parent = nullptr);

  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
  void reset() override;

protected:
  /// Of the rows in sight, and no less than it was since the tree was last cleared.
  int sizeHintForColumn(int column) const override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  mutable int widest = 0;
};
