#pragma once

#include "Services/Digitiser/DigitiserModel.h"

#include <QDialog>

#include <array>
#include <memory>

class DigitisedPoints;
class QLineEdit;
class QToolButton;
namespace Ui {
class DigitiserDialog;
}

/// The window in which points are taken from the picture of a graph: the axes are marked, then
/// points are clicked, or a curve is traced by its colour.
class DigitiserDialog : public QDialog {
  Q_OBJECT

public:
  explicit DigitiserDialog(const QImage& picture, QWidget* parent = nullptr);
  ~DigitiserDialog() override;

  const std::vector<QPointF>& values() const { return m_model.values(); }
  void reject() override; ///< asks where something would be lost

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void connectTools();
  void connectAxes();
  void connectPoints();
  void connectZoom();
  void addUndo();

  void follow();
  void updateEnables();
  void showAdvice();
  void showPosition();
  void useTool(int tool);
  void goToValue(int mark);
  void goOn(int mark);
  void trace(const QPoint& pixel);
  void removeSelected();
  void selectRow();
  void showSelected();
  TraceOptions traceOptions() const;

  std::unique_ptr<Ui::DigitiserDialog> m_ui;
  DigitiserModel m_model;
  DigitisedPoints* m_table;
  std::array<QLineEdit*, markCount> m_values;
  std::vector<QToolButton*> m_tools; ///< in the order of `DigitiserView::Tool`
  QString m_fault;                   ///< of the last click, until the next change
  bool m_isSelecting = false;
};
