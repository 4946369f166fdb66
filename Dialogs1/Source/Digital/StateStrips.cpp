#include "Digital/StateStrips.h"

#include "HostSupport/CompressedData.h"
#include "HostSupport/Options.h"
#include "HostSupportQt/HostSupportQt.h"
#include "HostWidgets/Plotter.h"
#include "Pieces/Captions.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>

#include <algorithm>

namespace {

constexpr int mostStrips = 64; // nobody looks at more of them, and each is a widget
constexpr double topLevel = 1.4;
constexpr double axisHeight = 5.5; // millimetres, below the last strip
constexpr double millimetresPerInch = 25.4;
constexpr unsigned withLabels = 2;
constexpr int stripLines = 2; // of text

/// A colour that the host's graphs are drawn in; invalid, and so the palette's, where none is set.
QColor graphColour(const char* option) {
  QColor colour;
  colour.setNamedColor(toQs(sp_GetStringOption(option)));
  return colour;
}

/// Into how many columns a strip is thinned out: several for each pixel that it may have across,
/// since the plot makes its own columns of them, and of columns that are as wide it would make a
/// pattern.
int stripColumns() {
  constexpr int columnsOfPixel = 4;
  const QScreen* screen = QGuiApplication::primaryScreen();
  const int pixels = screen ? int(screen->size().width() * screen->devicePixelRatio()) : 1;
  return columnsOfPixel * std::max(pixels, 1);
}

int bottomMargin(const QWidget* widget) {
  return int(axisHeight / millimetresPerInch * widget->logicalDpiY());
}

} // namespace

StateStrips::StateStrips(QGridLayout* grid, QWidget* before) : m_grid(grid), m_before(before) {}

StateStrips::~StateStrips() = default;

void StateStrips::clear() {
  for (int row = 1; row <= static_cast<int>(m_plotters.size()) + 1; ++row) {
    m_grid->setRowStretch(row, 0);
    m_grid->setRowMinimumHeight(row, 0);
  }
  for (Plotter* plotter : m_plotters)
    delete plotter;
  for (QLabel* label : m_labels)
    delete label;
  delete m_rest;
  m_plotters.clear();
  m_labels.clear();
  m_traces.clear();
  m_rest = nullptr;
}

void StateStrips::draw(const Timetable& table, const QStringList& names) {
  clear();
  const AxisEnd end = axisEnd(table.times.back());
  Timetable drawn = table;
  extendTo(&drawn, end.end);
  m_end = end.end;
  const auto divisions = static_cast<unsigned>(end.divisions);
  m_time.setAxisParams(0, m_end, divisions, 0, 0, 0);
  m_labelledTime.setAxisParams(0, m_end, divisions, 0, 0, withLabels);
  m_level.setAxisParams(0, topLevel, 0, 0, 0, 0);

  const int strips = std::min(names.size(), mostStrips);
  for (int output = 0; output < strips; ++output) {
    m_traces.push_back(traceOf(drawn, output));
    addStrip(output, names.at(output));
  }
  // The labels of the axis stand in a row of their own, so that all strips are as high.
  Plotter* last = m_plotters.back();
  last->setMargins(0, 0, 0, bottomMargin(last));
  last->setMinimumHeight(last->minimumHeight() + bottomMargin(last));
  last->initializeAxes(m_labelledTime, m_level);
  m_grid->addWidget(last, strips, 1, 2, 1);
  m_grid->setRowMinimumHeight(strips + 1, bottomMargin(last));
  if (names.size() > strips) {
    m_rest = new QLabel(tr("%1 more outputs are not shown.").arg(names.size() - strips));
    m_grid->addWidget(m_rest, strips + 2, 0, 1, 2);
  }
  // One of them speaks for all: they show the same range.
  connect(m_plotters.front(), &Plotter::xRangeChanged, this, &StateStrips::show);
  show(0, m_end);
}

void StateStrips::addStrip(int output, const QString& name) {
  auto* label = new QLabel;
  captionShortly(label, name);
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  auto* plotter = new Plotter;
  m_grid->addWidget(label, output + 1, 0);
  m_grid->addWidget(plotter, output + 1, 1);
  m_grid->setRowStretch(output + 1, 1);
  plotter->setObjectName(QStringLiteral("strip%1").arg(output));
  plotter->setAccessibleName(shownCaption(name));
  plotter->setBackgroundColour(graphColour("GraphColourBackground"));
  plotter->setMajorGridColor(graphColour("GraphColourMajorGrid"));
  plotter->setMinorGridColour(graphColour("GraphColourMinorGrid"));
  plotter->setTextColour(graphColour("GraphColourText"));
  plotter->setZoomDirections(Qt::Horizontal);
  plotter->setMargins(0, 0, 0, 0);
  plotter->setMinimumHeight(stripLines * plotter->fontMetrics().lineSpacing());
  plotter->initializeAxes(m_time, m_level);
  if (m_plotters.empty()) {
    QWidget::setTabOrder(m_before, plotter);
  } else {
    plotter->setFocusPolicy(Qt::ClickFocus);
    m_plotters.front()->shareXRange(plotter);
  }
  m_labels.push_back(label);
  m_plotters.push_back(plotter);
}

void StateStrips::show(double from, double to) {
  const QPen pen(QColor(255, 0, 0));
  CompressedData seen;
  for (std::size_t strip = 0; strip < m_plotters.size(); ++strip) {
    const Trace& trace = m_traces[strip];
    seen.build(trace.x.data(), trace.y.data(), static_cast<std::int64_t>(trace.x.size()), from, to,
               stripColumns(), false);
    m_plotters[strip]->setCurveData(0, seen.xraw(), seen.yraw(), seen.numPoints(), pen);
  }
}

void StateStrips::rename(int output, const QString& name) {
  if (output < static_cast<int>(m_labels.size())) {
    captionShortly(m_labels[static_cast<std::size_t>(output)], name);
    m_plotters[static_cast<std::size_t>(output)]->setAccessibleName(shownCaption(name));
  }
}
