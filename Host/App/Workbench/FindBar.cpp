#include "Workbench/FindBar.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

FindBar::FindBar(Finder finder, QWidget* searched)
    : m_finder(std::move(finder)), m_searched(searched), m_text(new QLineEdit),
      m_matchCase(new QCheckBox(tr("Match &Case"))), m_answer(new QLabel) {
  auto* caption = new QLabel(tr("Fi&nd:"));
  caption->setBuddy(m_text);
  m_text->setClearButtonEnabled(true);
  auto* previous = new QToolButton;
  previous->setText(tr("&Previous"));
  auto* next = new QToolButton;
  next->setText(tr("Ne&xt"));
  for (QToolButton* button : {previous, next})
    button->setFocusPolicy(Qt::StrongFocus);
  // The answer keeps its room, so that the buttons stand still.
  m_answer->setMinimumWidth(m_answer->fontMetrics().horizontalAdvance(tr("Not found")));

  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(6, 3, 6, 3);
  for (QWidget* widget :
       std::initializer_list<QWidget*>{caption, m_text, previous, next, m_matchCase, m_answer})
    row->addWidget(widget, widget == m_text ? 1 : 0);
  hide();

  connect(m_text, &QLineEdit::textEdited, this, [this] { find({}, false); });
  connect(m_text, &QLineEdit::returnPressed, this, &FindBar::findNext);
  connect(previous, &QToolButton::clicked, this, &FindBar::findPrevious);
  connect(next, &QToolButton::clicked, this, &FindBar::findNext);
  connect(m_matchCase, &QCheckBox::clicked, this, [this] { find({}, false); });
}

void FindBar::open() {
  show();
  m_text->setFocus(Qt::ShortcutFocusReason);
  m_text->selectAll();
}

void FindBar::findNext() {
  find({}, true);
}

void FindBar::findPrevious() {
  find(QTextDocument::FindBackward, true);
}

void FindBar::setSuggestion(const QString& text) {
  if (!text.isEmpty() && !text.contains(QChar::ParagraphSeparator))
    m_text->setText(text);
}

void FindBar::find(QTextDocument::FindFlags direction, bool again) {
  if (m_text->text().isEmpty()) {
    m_answer->clear();
    return;
  }
  if (m_matchCase->isChecked())
    direction |= QTextDocument::FindCaseSensitively;
  const bool isFound = m_finder(m_text->text(), direction, again);
  m_answer->setText(isFound ? QString() : tr("Not found"));
}

bool FindBar::event(QEvent* event) {
  // Escape is this bar's before it is the window's.
  if (event->type() == QEvent::ShortcutOverride &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
    event->accept();
  return QWidget::event(event);
}

void FindBar::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    closeBar();
  else
    QWidget::keyPressEvent(event);
}

void FindBar::closeBar() {
  hide();
  m_searched->setFocus(Qt::OtherFocusReason);
}
