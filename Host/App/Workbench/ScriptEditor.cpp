#include "Workbench/ScriptEditor.h"

#include "Palettes.h"
#include "Workbench/ScriptHighlighter.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>
#include <cmath>

namespace {

constexpr int indentWidth = 2;
constexpr double smallestFont = 6;
constexpr double largestFont = 40;
constexpr int furthestBracket = 100000; // characters; a keystroke must not wait for more

const QString openBrackets = QStringLiteral("([{");
const QString closeBrackets = QStringLiteral(")]}");

QColor mix(const QColor& a, const QColor& b, double share) {
  return QColor::fromRgbF(a.redF() + (b.redF() - a.redF()) * share,
                          a.greenF() + (b.greenF() - a.greenF()) * share,
                          a.blueF() + (b.blueF() - a.blueF()) * share);
}

QString leadingBlanks(const QString& line) {
  const auto end = std::find_if(line.begin(), line.end(), [](QChar c) { return !c.isSpace(); });
  return line.left(int(end - line.begin()));
}

} // namespace

ScriptEditor::ScriptEditor(QWidget* parent)
    : QPlainTextEdit(parent), m_numbers(new LineNumbers(this, [this] { return visibleLines(); })),
      m_highlighter(new ScriptHighlighter(this)) {
  setAccessibleName(tr("Script"));
  setLineWrapMode(NoWrap);
  setFrameShape(NoFrame);
  connect(this, &QPlainTextEdit::blockCountChanged, this, &ScriptEditor::updateMargin);
  connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect& area, int scrolled) {
    if (scrolled)
      m_numbers->scroll(0, scrolled);
    else
      m_numbers->update(0, area.y(), m_numbers->width(), area.height());
  });
  connect(m_numbers, &LineNumbers::clicked, this, &ScriptEditor::goToLine);
  connect(this, &QPlainTextEdit::cursorPositionChanged, this, &ScriptEditor::updateMarks);
  connect(this, &QPlainTextEdit::textChanged, this, [this] {
    if (m_errorLine)
      setErrorLine(0);
  });
  setFontSize(defaultFontSize);
  applyPaletteColours();
}

void ScriptEditor::showDocument(QTextDocument* next) {
  m_errorLine = 0;
  next->setDefaultFont(font());
  setDocument(next);
  m_highlighter->setDocument(next);
  setTabStopDistance(indentWidth * fontMetrics().horizontalAdvance(QLatin1Char(' ')));
  updateMargin();
  updateMarks();
}

void ScriptEditor::setFunctions(const QStringList& names) {
  m_highlighter->setFunctions(names);
}

void ScriptEditor::setErrorLine(int line) {
  m_errorLine = line;
  updateMarks();
  m_numbers->update();
}

void ScriptEditor::goToLine(int line) {
  const QTextBlock block = document()->findBlockByNumber(line - 1);
  if (!block.isValid())
    return;
  setTextCursor(QTextCursor(block));
  centerCursor();
}

void ScriptEditor::setFontSize(double points) {
  QFont fixed = codeFont();
  fixed.setPointSizeF(std::clamp(points, smallestFont, largestFont));
  setFont(fixed);
  document()->setDefaultFont(fixed);
  setTabStopDistance(indentWidth * fontMetrics().horizontalAdvance(QLatin1Char(' ')));
  updateMargin();
  emit fontSizeChanged(fixed.pointSizeF());
}

double ScriptEditor::fontSize() const {
  return font().pointSizeF();
}

QVector<LineNumbers::Line> ScriptEditor::visibleLines() const {
  QVector<LineNumbers::Line> lines;
  QTextBlock block = firstVisibleBlock();
  double top = blockBoundingGeometry(block).translated(contentOffset()).top();
  while (block.isValid() && top <= viewport()->height()) {
    const double height = blockBoundingRect(block).height();
    const int number = block.blockNumber() + 1;
    if (block.isVisible())
      lines.append({number, int(std::round(top)), int(std::ceil(height)), number == m_errorLine});
    block = block.next();
    top += height;
  }
  return lines;
}

void ScriptEditor::keyPressEvent(QKeyEvent* event) {
  const bool isPlain = (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
  if (isPlain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
    breakLine();
  else if (isPlain && (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab))
    indent(event->key() == Qt::Key_Backtab);
  else {
    // A closing brace at the beginning of a line belongs under its block, not in it.
    if (event->text() == QLatin1String("}") && isBlankBeforeCursor())
      indent(true);
    QPlainTextEdit::keyPressEvent(event);
  }
}

bool ScriptEditor::isBlankBeforeCursor() const {
  const QTextCursor cursor = textCursor();
  return !cursor.hasSelection() &&
         cursor.block().text().left(cursor.positionInBlock()).trimmed().isEmpty();
}

void ScriptEditor::resizeEvent(QResizeEvent* event) {
  QPlainTextEdit::resizeEvent(event);
  updateMargin();
}

void ScriptEditor::wheelEvent(QWheelEvent* event) {
  if (event->modifiers() == Qt::ControlModifier && event->angleDelta().y() != 0)
    setFontSize(fontSize() + (event->angleDelta().y() > 0 ? 1 : -1));
  else
    QPlainTextEdit::wheelEvent(event);
}

void ScriptEditor::changeEvent(QEvent* event) {
  QPlainTextEdit::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && m_highlighter)
    applyPaletteColours();
}

void ScriptEditor::applyPaletteColours() {
  m_highlighter->setPalette(palette());
  updateMarks();
}

void ScriptEditor::updateMargin() {
  const int width = m_numbers->sizeHint().width();
  const bool isLeft = layoutDirection() == Qt::LeftToRight;
  setViewportMargins(isLeft ? width : 0, 0, isLeft ? 0 : width, 0);
  const QRect inside = contentsRect();
  m_numbers->setGeometry(isLeft ? inside.left() : inside.right() + 1 - width, inside.top(), width,
                         inside.height());
}

void ScriptEditor::updateMarks() {
  QList<QTextEdit::ExtraSelection> marks;
  const QColor base = palette().color(QPalette::Base);
  QTextEdit::ExtraSelection line;
  line.format.setProperty(QTextFormat::FullWidthSelection, true);
  line.format.setBackground(mix(base, palette().color(QPalette::Highlight), 0.1));
  line.cursor = textCursor();
  line.cursor.clearSelection();
  marks << line;
  const QTextBlock failed = document()->findBlockByNumber(m_errorLine - 1);
  if (m_errorLine > 0 && failed.isValid()) {
    line.cursor = QTextCursor(failed);
    line.format.setBackground(mix(base, inkColours(palette()).error, 0.25));
    marks << line;
  }
  setExtraSelections(marks + bracketMarks());
}

QList<QTextEdit::ExtraSelection> ScriptEditor::bracketMarks() const {
  const int cursor = textCursor().position();
  // The bracket behind the cursor, else the one before it.
  for (int position : {cursor, cursor - 1}) {
    const QChar letter = document()->characterAt(position);
    const bool isOpen = openBrackets.contains(letter);
    if (position < 0 || (!isOpen && !closeBrackets.contains(letter)))
      continue;
    const int match = matchingBracket(position);
    QList<QTextEdit::ExtraSelection> marks;
    QTextEdit::ExtraSelection mark;
    mark.format.setFontWeight(QFont::Bold);
    mark.format.setBackground(
        mix(palette().color(QPalette::Base),
            match < 0 ? inkColours(palette()).error : palette().color(QPalette::Highlight), 0.4));
    for (int end : {position, match}) {
      if (end < 0)
        continue;
      mark.cursor = textCursor();
      mark.cursor.setPosition(end);
      mark.cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
      marks << mark;
    }
    return marks;
  }
  return {};
}

int ScriptEditor::matchingBracket(int position) const {
  const QChar bracket = document()->characterAt(position);
  const int openKind = openBrackets.indexOf(bracket);
  const int step = openKind >= 0 ? 1 : -1;
  const int kind = openKind >= 0 ? openKind : closeBrackets.indexOf(bracket);
  const QChar partner = (step > 0 ? closeBrackets : openBrackets)[kind];
  int depth = 0;
  const int last = document()->characterCount();
  for (int at = position, seen = 0; at >= 0 && at < last && seen < furthestBracket;
       at += step, ++seen) {
    const QChar letter = document()->characterAt(at);
    if (letter == bracket)
      ++depth;
    else if (letter == partner && --depth == 0)
      return at;
  }
  return -1;
}

void ScriptEditor::breakLine() {
  QTextCursor cursor = textCursor();
  const QString before = cursor.block().text().left(cursor.positionInBlock());
  QString blanks = leadingBlanks(before);
  const QString words = before.trimmed();
  if (!words.isEmpty() && openBrackets.contains(words.back()))
    blanks += QString(indentWidth, QLatin1Char(' '));
  cursor.insertText(QLatin1Char('\n') + blanks);
  ensureCursorVisible();
}

void ScriptEditor::indent(bool outwards) {
  QTextCursor cursor = textCursor();
  if (!outwards && !cursor.hasSelection()) {
    const int ahead = indentWidth - cursor.positionInBlock() % indentWidth;
    cursor.insertText(QString(ahead, QLatin1Char(' ')));
    return;
  }
  const QTextBlock first = document()->findBlock(cursor.selectionStart());
  const QTextBlock last = document()->findBlock(cursor.hasSelection() ? cursor.selectionEnd() - 1
                                                                      : cursor.selectionEnd());
  cursor.beginEditBlock();
  for (QTextBlock block = first; block.isValid() && block.blockNumber() <= last.blockNumber();
       block = block.next()) {
    QTextCursor start(block);
    if (!outwards) {
      start.insertText(QString(indentWidth, QLatin1Char(' ')));
      continue;
    }
    const int blanks = qMin(indentWidth, leadingBlanks(block.text()).size());
    start.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor, blanks);
    start.removeSelectedText();
  }
  cursor.endEditBlock();
}
