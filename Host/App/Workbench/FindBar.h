#pragma once

#include <QTextCursor>
#include <QTextDocument>
#include <QWidget>

#include <functional>

class QCheckBox;
class QLabel;
class QLineEdit;

/// A row for searching a text: a field, next and previous, letter case. Hidden until it is opened;
/// Escape closes it.
class FindBar : public QWidget {
  Q_OBJECT

public:
  /// Looks for the text from the cursor on, or from the start of the selection where `again` is
  /// false, round the end of the text if need be; whether it was found.
  using Finder = std::function<bool(const QString&, QTextDocument::FindFlags, bool again)>;

  FindBar(Finder finder, QWidget* searched);

  void open();
  void findNext();
  void findPrevious();
  void setSuggestion(const QString& text); ///< what is selected, to be searched next

protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  void find(QTextDocument::FindFlags direction, bool again);
  void closeBar();

  Finder m_finder;
  QWidget* m_searched;
  QLineEdit* m_text;
  QCheckBox* m_matchCase;
  QLabel* m_answer;
};

/// The finder of a text edit of either kind.
template <class Edit> FindBar::Finder finderIn(Edit* edit) {
  return [edit](const QString& text, QTextDocument::FindFlags flags, bool again) {
    const QTextCursor before = edit->textCursor();
    QTextCursor from = before;
    if (!again) {
      from.setPosition(before.selectionStart());
      edit->setTextCursor(from);
    }
    if (edit->find(text, flags))
      return true;
    from.movePosition(flags & QTextDocument::FindBackward ? QTextCursor::End : QTextCursor::Start);
    edit->setTextCursor(from);
    if (edit->find(text, flags))
      return true;
    edit->setTextCursor(before);
    return false;
  };
}
