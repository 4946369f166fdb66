#include "Pieces/CaptionLabel.h"

#include "HostSupportQt/Captions.h"
#include "Pieces/Captions.h"

#include <QPainter>
#include <QRegularExpression>
#include <QStyle>
#include <QTextDocument>

#include <algorithm>

static constexpr int lineLength = 50; // characters, as they are wide on the average
static constexpr int mostLines = 10;  // more would push the fields and buttons off the screen

void CaptionLabel::setCaption(const QString& caption) {
  showWrapped(labelText(caption));
  if (!isTooHigh())
    return;
  // Half of a rich text would be another text; its words stand by themselves.
  const QString words = plainText(shownCaption(caption));
  setTextFormat(Qt::PlainText);
  showWrapped(words);
  if (isTooHigh())
    showBeginning(words);
}

void CaptionLabel::showBeginning(const QString& text) {
  tellWhole(this, text);
  int fits = 0;
  int tooMuch = text.size();
  while (tooMuch - fits > 1) {
    const int middle = (fits + tooMuch) / 2;
    showWrapped(text.left(middle) + QChar(0x2026));
    (isTooHigh() ? tooMuch : fits) = middle;
  }
  showWrapped(text.left(fits) + QChar(0x2026));
}

void CaptionLabel::showWrapped(const QString& text) {
  setText(text);
  setWordWrap(false); // else it is not the whole width that the hint tells
  setWordWrap(Label::sizeHint().width() > widestLine());
  static const QRegularExpression blanks(QStringLiteral("\\s+"));
  const QStringList words = wordWrap() ? text.split(blanks) : QStringList();
  m_breaksWords = !isRich() && std::any_of(words.begin(), words.end(), [this](const QString& word) {
    return fontMetrics().horizontalAdvance(word) > widestLine();
  });
}

QSize CaptionLabel::sizeHint() const {
  if (!wordWrap())
    return Label::sizeHint();
  return {widestLine(), heightForWidth(widestLine())};
}

QSize CaptionLabel::minimumSizeHint() const {
  return wordWrap() ? sizeHint() : Label::minimumSizeHint();
}

int CaptionLabel::heightForWidth(int width) const {
  if (!m_breaksWords)
    return Label::heightForWidth(width);
  const QRect line(0, 0, width, QWIDGETSIZE_MAX);
  return fontMetrics().boundingRect(line, Qt::TextWrapAnywhere, text()).height();
}

void CaptionLabel::paintEvent(QPaintEvent* event) {
  if (!m_breaksWords) {
    Label::paintEvent(event);
    return;
  }
  QPainter painter(this);
  style()->drawItemText(&painter, contentsRect(), int(alignment()) | Qt::TextWrapAnywhere,
                        palette(), isEnabled(), text(), foregroundRole());
}

bool CaptionLabel::isRich() const {
  return textFormat() == Qt::AutoText && Qt::mightBeRichText(text());
}

bool CaptionLabel::isTooHigh() const {
  return sizeHint().height() >= (mostLines + 1) * fontMetrics().lineSpacing();
}

int CaptionLabel::widestLine() const {
  return lineLength * fontMetrics().averageCharWidth();
}

void captionField(CaptionLabel* label, QWidget* field, const QString& caption) {
  // Not a buddy: the caption is the script's, and an ampersand in it is meant to be seen.
  label->setCaption(caption);
  label->setVisible(!caption.isEmpty());
  const QString name = plainText(shownCaption(caption));
  field->setAccessibleName(name.isEmpty() ? field->window()->windowTitle() : name);
}
