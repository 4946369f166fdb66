#pragma once

#include "HostSupport/YString.h"
#include "HostWidgets/Plotter.h"

#include <QWidget>

#include <functional>
#include <optional>

class QAbstractButton;
class QLabel;
class QVBoxLayout;

/// A pane of a form in which the user sees what the fields beside it say. A checkable button opens
/// and closes it, and the window grows and shrinks by it; which of the two is remembered for each
/// kind of dialog. Closed it takes no room and draws nothing.
class PicturePane : public QWidget {
  Q_OBJECT

public:
  /// Draws what the fields say into the plots; why that is not known, or nothing.
  using Draw = std::function<QString()>;

  explicit PicturePane(QWidget* parent = nullptr);

  /// A plot below those that stand there, with its captions; its name is also the accessible one.
  Plotter* addPlot(const QString& name, const QString& xCaption);
  /// To be called once, when the plots have been added: from now on the button opens the pane. It
  /// opens at once where it was open the last time.
  void start(QAbstractButton* button, Draw draw);

public slots:
  void refresh(); ///< draws anew; to be called whenever a field has changed

private:
  void setOpen(bool isOpen);
  YString settingName() const;

  QVBoxLayout* m_plots;
  QWidget* m_canvas; ///< holds the plots
  QLabel* m_reason;
  Draw m_draw;
  std::optional<QSize> m_gained; ///< what the window has grown by, as far as the screen let it
};
