#pragma once

#include "HostSupportQt/KV_FunctionDef.h"
#include "HostWidgets/Export.h"

#include <QLabel>

/// A caption that can show an argument element, and that can carry a longer information text.
///
/// With an information text the label shows a mark; a click on it, or Space, Return or F1 while it
/// has the focus, pops the text up, and Escape closes it. A caption that has a link to "ref" when
/// the information is set brings its mark along: what the link shows stands for the mark.
class HOSTWIDGETS_EXPORT Label : public QLabel, public KV_FunctionDef {
  Q_OBJECT
  KV_BINDING_PROPERTIES
  Q_PROPERTY(QString stringValue READ text WRITE setStringValue STORED false)
  Q_PROPERTY(QString info READ info WRITE setInfo)

public:
  explicit Label(QWidget* parent = nullptr, const char* objectName = nullptr);
  bool isReal() override { return false; }

  void setStringValue(const QString& text) { setText(text); }
  QString info() const { return m_info; }
  void setInfo(const QString& text); ///< plain or rich text; empty: no mark, no focus
  void showInfo();                   ///< pops the text up; nothing where there is none

protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

private:
  bool drawsMark() const { return !m_info.isEmpty() && !m_linksToInfo; }
  QRect markRect() const;
  void paintMark(QPainter* painter) const;
  int markSpace() const;
  void reserveMark();
  void setHovered(bool on);

  QString m_info;
  bool m_linksToInfo = false;
  int m_reserved = 0; ///< width of the margin that the mark stands in
  bool m_reservedLeft = false;
  bool m_hovered = false;
};
