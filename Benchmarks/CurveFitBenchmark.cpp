#include "ExhaustivePolyline.h"
#include "Services/Numerics/CurveFit.h"

#include <benchmark/benchmark.h>

#include <random>

// Curves of data sheets, as the conversion of capacitance to charge and of inductance to flux
// linkage hands them over: resampled to 1000 points, integrated, fitted. Counters state the
// greatest distance in parts per million of the curve's height, and the ratio to what equal widths
// give; for small curves the ratio to the best polyline that an exhaustive search of a grid finds.

namespace {

using Function = double (*)(double);

/// Output capacitance of a power transistor, farads at volts.
double outputCapacitance(double volts) {
  return 1.2e-9 / std::pow(1 + volts / 0.7, 0.45) + 30e-12;
}

/// Super-junction: the capacitance falls by two decades within a few volts.
double superJunction(double volts) {
  return 40e-12 + 6e-9 / (1 + std::exp((volts - 25) / 3));
}

/// An inductor on ferrite that saturates softly at 8 A, henries at amperes.
double ferrite(double amperes) {
  return 5e-6 + 95e-6 / (1 + std::pow(amperes / 8, 6));
}

/// A gapped core in steps: three bends.
double steppedGap(double amperes) {
  return 10e-6 + 80e-6 / (1 + std::pow(amperes / 2, 8)) + 60e-6 / (1 + std::pow(amperes / 9, 12));
}

const struct {
  const char* name;
  Function function;
  double last;
} dataSheets[] = {
    {"outputCapacitance", outputCapacitance, 100},
    {"superJunction", superJunction, 400},
    {"ferrite", ferrite, 20},
    {"steppedGap", steppedGap, 16},
};

/// Twenty points as somebody reads them off, then what the conversion makes of them.
Curve converted(Function function, double last, int count) {
  Curve read;
  for (int i = 0; i <= 20; ++i) {
    const double x = last * std::pow(i / 20.0, 2); // denser where it is steep
    read.push_back({x, function(x)});
  }
  return runningIntegral(resampled(read, count));
}

void fit(benchmark::State& state) {
  const auto& sheet = dataSheets[state.range(0)];
  const int segments = static_cast<int>(state.range(1));
  const Curve curve = converted(sheet.function, sheet.last, 1000);
  Curve made;
  for (auto _ : state)
    benchmark::DoNotOptimize(made = fitPolyline(curve, segments));
  const double distance = greatestDistance(curve, made);
  state.SetLabel(sheet.name);
  state.counters["ppm"] = 1e6 * distance / (curve.back().y - curve.front().y);
  state.counters["equalWidths"] = greatestDistance(curve, equalWidths(curve, segments)) / distance;
}

/// Ratio of the best of the grid to the fit, over small curves of random shape: at least 1.
void againstAllOfAGrid(benchmark::State& state) {
  const int segments = static_cast<int>(state.range(0));
  const int columns = static_cast<int>(state.range(1));
  double least = INFINITY;
  double sum = 0;
  int count = 0;
  for (auto _ : state) {
    std::mt19937 random(99);
    std::uniform_real_distribution<> part(0, 1);
    for (int round = 0; round < 20; ++round) {
      Curve curve = {{0, 0}};
      for (int i = 0; i < 7; ++i)
        curve.push_back({curve.back().x + 0.1 + part(random), curve.back().y + part(random)});
      const double found = greatestDistance(curve, fitPolyline(curve, segments));
      const double ratio =
          exhaustiveDistance(curve, segments, columns, 3 * columns, 1.25 * found) / found;
      least = std::min(least, ratio);
      sum += ratio;
      ++count;
    }
  }
  state.counters["leastRatio"] = least;
  state.counters["meanRatio"] = sum / count;
}

void fitManyPoints(benchmark::State& state) {
  const Curve curve = converted(outputCapacitance, 100, static_cast<int>(state.range(0)));
  for (auto _ : state)
    benchmark::DoNotOptimize(fitPolyline(curve, 255));
  state.SetComplexityN(state.range(0));
}

BENCHMARK(fit)
    ->ArgsProduct({{0, 1, 2, 3}, {1, 2, 4, 8, 11, 32, 255}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(againstAllOfAGrid)
    ->ArgsProduct({{2, 3, 4}, {4, 8, 12}})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(fitManyPoints)
    ->RangeMultiplier(4)
    ->Range(1000, 256000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

} // namespace

BENCHMARK_MAIN();
