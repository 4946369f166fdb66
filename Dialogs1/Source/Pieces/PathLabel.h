#pragma once

#include <QLabel>

/// Shows a path on one line, however long it is: what there is no room for is left out of its
/// middle, and stands in the tool tip.
class PathLabel : public QLabel {
public:
  using QLabel::QLabel;

  QSize minimumSizeHint() const override;

protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  QString shownText() const;
};
