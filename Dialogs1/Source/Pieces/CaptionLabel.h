#pragma once

#include "HostWidgets/Label.h"

/// Shows a script's caption, however long it is: one that is wider than a line of text wraps, at
/// words, or within a word that is as wide itself. What is more than some lines is in the tool tip.
class CaptionLabel : public Label {
public:
  using Label::Label;

  void setCaption(const QString& caption);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  int heightForWidth(int width) const override;

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  void showWrapped(const QString& text);
  void showBeginning(const QString& text);
  bool isRich() const;
  bool isTooHigh() const;
  int widestLine() const;

  bool m_breaksWords = false;
};

/// Shows a script's caption beside its field, and names the field by it, or by the window's title
/// where the caption is empty.
void captionField(CaptionLabel* label, QWidget* field, const QString& caption);
