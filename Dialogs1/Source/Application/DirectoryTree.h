#pragma once

#include <QTreeWidget>

/// A tree that is as deep as a file system may be, and never opens more than it is asked for.
class DirectoryTree : public QTreeWidget {
public:
  explicit DirectoryTree(QWidget* parent = nullptr);

  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

protected:
  void keyPressEvent(QKeyEvent* event) override;
};
