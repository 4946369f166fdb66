#include "Pieces/PicturePane.h"

#include "HostSupport/Options.h"
#include "HostSupportQt/Text.h"

#include <QAbstractButton>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr const char* section = "Pictures";
constexpr int plotWidth = 320; // pixels that a plot likes to have
constexpr int plotHeight = 160;

} // namespace

PicturePane::PicturePane(QWidget* parent)
    : QWidget(parent), m_canvas(new QWidget(this)), m_reason(new QLabel(this)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(m_canvas, 1);
  layout->addWidget(m_reason, 1);
  m_plots = new QVBoxLayout(m_canvas);
  m_plots->setContentsMargins(0, 0, 0, 0);
  m_reason->setTextFormat(Qt::PlainText);
  m_reason->setAlignment(Qt::AlignCenter);
  m_reason->setWordWrap(true);
  m_reason->setMinimumWidth(plotWidth);
  m_reason->hide();
  hide();
}

Plotter* PicturePane::addPlot(const QString& name, const QString& xCaption) {
  m_plots->addWidget(new QLabel(name));
  auto* plot = new Plotter;
  plot->setMinimumSize(plotWidth, plotHeight);
  plot->setAccessibleName(name);
  m_plots->addWidget(plot, 1);
  auto* below = new QLabel(xCaption);
  below->setAlignment(Qt::AlignRight);
  m_plots->addWidget(below);
  return plot;
}

YString PicturePane::settingName() const {
  return YString(window()->metaObject()->className());
}

void PicturePane::start(QAbstractButton* button, Draw draw) {
  m_draw = std::move(draw);
  YString wasOpen;
  cfgman_GetConfigSetting(section, settingName().c_str(), &wasOpen);
  button->setCheckable(true);
  button->setChecked(wasOpen == "open");
  setOpen(button->isChecked());
  connect(button, &QAbstractButton::toggled, this, [this](bool isOpen) {
    setOpen(isOpen);
    sp_RememberSetting(section, settingName().c_str(), isOpen ? "open" : "closed");
  });
}

void PicturePane::setOpen(bool isOpen) {
  QWidget* const dialog = window();
  const QSize before = dialog->size();
  const int hintBefore = dialog->sizeHint().width();
  setVisible(isOpen);
  refresh();
  if (!dialog->isVisible())
    return;
  // A window gets no smaller than its layout had last wanted.
  if (QLayout* layout = dialog->layout())
    layout->activate();
  const QSize hint = dialog->sizeHint();
  if (!isOpen) {
    dialog->resize(before - m_gained.value_or(QSize(hintBefore - hint.width(), 0)));
    return;
  }
  const QSize wanted(before.width() + hint.width() - hintBefore,
                     std::max(before.height(), hint.height()));
  dialog->resize(wanted.boundedTo(dialog->screen()->availableSize()));
  m_gained = dialog->size() - before;
}

void PicturePane::refresh() {
  if (!m_draw || isHidden())
    return;
  const QString reason = m_draw();
  m_canvas->setVisible(reason.isEmpty());
  m_reason->setVisible(!reason.isEmpty());
  m_reason->setText(reason);
}
