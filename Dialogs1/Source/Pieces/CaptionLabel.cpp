#include "Pieces/CaptionLabel.h"

#include "HostSupportQt/Captions.h"
#include "Pieces/Captions.h"

#include <QPainter>
#include <QRegularExpression>
#include <QStyle>
#include <QTextDocument>

#include <algorithm>

static constexpr int lineLength = 50; // characters, as they are wide on the average

void CaptionLabel::setCaption(const QString& caption) {
  setText(labelText(caption));
  setWordWrap(Label::sizeHint().width() > widestLine());
  static const QRegularExpression blanks(QStringLiteral("\\s+"));
  const QStringList words = wordWrap() ? text().split(blanks) : QStringList();
  m_breaksWords = !Qt::mightBeRichText(text()) &&
                  std::any_of(words.begin(), words.end(), [this](const QString& word) {
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
