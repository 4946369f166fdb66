#include "HostSupport/Numbers.h"

#include <benchmark/benchmark.h>

#include <charconv>
#include <cmath>
#include <random>
#include <string>
#include <vector>

// A million engineering numbers read and written, against the standard library on the same values
// with exponents.

namespace {

constexpr int count = 1000000;

const std::vector<double>& values() {
  static const std::vector<double> numbers = [] {
    std::mt19937 random(4711);
    std::vector<double> made;
    for (int i = 0; i < count; ++i) {
      // Component values as engineers write them: two to six digits, from femto to tera.
      const double mantissa = std::uniform_int_distribution<>(10, 999999)(random);
      const double exact =
          mantissa * std::pow(10.0, std::uniform_int_distribution<>(-18, 8)(random));
      made.push_back(exact);
    }
    return made;
  }();
  return numbers;
}

std::vector<std::string> texts(bool engineering) {
  std::vector<std::string> made;
  char buffer[64];
  for (const double value : values()) {
    if (engineering)
      sp_FormatEng(value, 6, buffer);
    else
      *std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, 5).ptr =
          0;
    made.emplace_back(buffer);
  }
  return made;
}

void readFromChars(benchmark::State& state) {
  const std::vector<std::string> numbers = texts(false);
  for (auto _ : state)
    for (const std::string& text : numbers) {
      double value = 0;
      std::from_chars(text.data(), text.data() + text.size(), value);
      benchmark::DoNotOptimize(value);
    }
}

void readEngineering(benchmark::State& state) {
  const std::vector<std::string> numbers = texts(true);
  for (auto _ : state)
    for (const std::string& text : numbers)
      benchmark::DoNotOptimize(sp_ConvertEngToReal(text.c_str()));
}

void writeToChars(benchmark::State& state) {
  char buffer[64];
  for (auto _ : state)
    for (const double value : values()) {
      std::to_chars(buffer, buffer + sizeof buffer, value);
      benchmark::DoNotOptimize(buffer);
    }
}

void writeEngineering(benchmark::State& state) {
  char buffer[64];
  for (auto _ : state)
    for (const double value : values()) {
      sp_FormatEng(value, 6, buffer);
      benchmark::DoNotOptimize(buffer);
    }
}

void writeEngineeringText(benchmark::State& state) {
  for (auto _ : state)
    for (const double value : values())
      benchmark::DoNotOptimize(sp_ConvertRealToJSEng(value, 6, false));
}

BENCHMARK(readFromChars)->Unit(benchmark::kMillisecond);
BENCHMARK(readEngineering)->Unit(benchmark::kMillisecond);
BENCHMARK(writeToChars)->Unit(benchmark::kMillisecond);
BENCHMARK(writeEngineering)->Unit(benchmark::kMillisecond);
BENCHMARK(writeEngineeringText)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
