#include "HostWidgets/Plotter.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>

#include <benchmark/benchmark.h>

#include <qwt_plot_curve.h>
#include <qwt_scale_map.h>

#include <cmath>
#include <random>
#include <vector>

// A picture of a long noisy curve, 800 by 300 pixels: by the plotter, and by the plotting library's
// own curve as it comes and with its filter of points, which merges what falls on the same pixel.
// The plotter draws grid and labels besides. Then the same after a zoom to a
// hundredth, and with nothing changed but the cursor.

namespace {

constexpr QSize size(800, 300);

struct Points {
  std::vector<double> x, y;
};

const Points& noise(std::size_t count) {
  static Points points;
  if (points.x.size() != count) {
    points = {};
    std::mt19937 random(4711);
    std::normal_distribution<> normal(0, 0.1);
    for (std::size_t i = 0; i < count; ++i) {
      points.x.push_back(double(i) / double(count));
      points.y.push_back(std::sin(40 * points.x.back()) + normal(random));
    }
  }
  return points;
}

void drawLibrary(benchmark::State& state, bool filtered, double right) {
  const Points& points = noise(std::size_t(state.range(0)));
  QwtPlotCurve curve;
  curve.setRawSamples(points.x.data(), points.y.data(), int(points.x.size()));
  curve.setPaintAttribute(QwtPlotCurve::FilterPoints, filtered);
  curve.setPaintAttribute(QwtPlotCurve::ClipPolygons, true);
  curve.setPen(Qt::red, double(state.range(1)));
  QwtScaleMap x, y;
  x.setScaleInterval(0, right);
  x.setPaintInterval(0, size.width());
  y.setScaleInterval(-1.5, 1.5);
  y.setPaintInterval(size.height(), 0);
  QPixmap picture(size);
  for (auto _ : state) {
    picture.fill(Qt::white);
    QPainter painter(&picture);
    curve.draw(&painter, x, y, QRectF(QPointF(), size));
  }
}

void drawPlotter(benchmark::State& state, double right) {
  const Points& points = noise(std::size_t(state.range(0)));
  Axis x, y;
  x.setAxisParams(0, 1, 4, 0, 0, 2);
  y.setAxisParams(-1.5, 1.5, 4, 0, 0, 2);
  Plotter plotter;
  plotter.resize(size);
  plotter.setMargins(0, 0, 0, 0);
  plotter.initializeAxes(x, y);
  plotter.setCurveData(0, points.x.data(), points.y.data(), qint64(points.x.size()),
                       QPen(Qt::red, double(state.range(1))));
  QPixmap picture(size);
  double shift = 0;
  for (auto _ : state) {
    shift = shift > 0 ? 0 : right * 1e-6; // another view, so that no picture serves twice
    plotter.setXRange(shift, right + shift);
    plotter.render(&picture);
  }
}

void moveCursor(benchmark::State& state) {
  const Points& points = noise(std::size_t(state.range(0)));
  Plotter plotter;
  plotter.resize(size);
  plotter.setCurveData(0, points.x.data(), points.y.data(), qint64(points.x.size()),
                       QPen(Qt::red, double(state.range(1))));
  QPixmap picture(size);
  plotter.render(&picture);
  for (auto _ : state) {
    const QPointF position(400 + double(state.iterations() % 100), 150);
    QMouseEvent move(QEvent::MouseMove, position, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&plotter, &move);
    plotter.render(&picture);
  }
}

void shapes(benchmark::internal::Benchmark* run) {
  for (const int width : {1, 3})
    for (const int count : {1000, 100000, 1000000})
      run->Args({count, width});
  run->ArgNames({"points", "pen"})->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(drawLibrary, plain, false, 1.0)->Apply(shapes);
BENCHMARK_CAPTURE(drawLibrary, filtered, true, 1.0)->Apply(shapes);
BENCHMARK_CAPTURE(drawPlotter, whole, 1.0)->Apply(shapes);
BENCHMARK_CAPTURE(drawLibrary, plainZoomed, false, 0.01)->Apply(shapes);
BENCHMARK_CAPTURE(drawPlotter, zoomed, 0.01)->Apply(shapes);
BENCHMARK(moveCursor)->Apply(shapes);

} // namespace

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
