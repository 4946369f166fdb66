#pragma once

class QAbstractItemView;

/// Gives the view a Copy action (Ctrl+C, and in its context menu) that puts the selected cells on
/// the clipboard, columns separated by tabs.
void addCopyAction(QAbstractItemView* view);
