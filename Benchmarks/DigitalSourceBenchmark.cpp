#include "Core/Digital/PulseOperations.h"
#include "HostSupport/CompressedData.h"

#include <benchmark/benchmark.h>

#include <charconv>
#include <random>
#include <string>
#include <vector>

// Definitions of digital sources: a million states read, against std::from_chars on the times
// alone; trains of pulses added to a table of eight outputs, step by step; traces thinned out to
// half the width of a screen.

namespace {

constexpr int cells = 1000000;
constexpr int outputs = 8;
constexpr int pixels = 960;

/// Rows at times that have no pattern, written as the editor writes them.
Timetable tableOf(int rows, int columns) {
  std::mt19937 random(4711);
  std::vector<unsigned char> states(static_cast<std::size_t>(columns));
  Timetable table;
  table.outputs = columns;
  double time = 0;
  for (int i = 0; i < rows; ++i) {
    for (unsigned char& state : states)
      state = static_cast<unsigned char>(random() % digitalStateCount);
    table.append(time, states.data());
    time += 1e-12 * (1 + random() % 100000);
  }
  return table;
}

std::vector<std::string> timesOf(const Timetable& table) {
  std::vector<std::string> texts;
  char buffer[40];
  for (double time : table.times) {
    char* const end = std::to_chars(buffer, buffer + 40, time, std::chars_format::general, 15).ptr;
    texts.emplace_back(buffer, end);
  }
  return texts;
}

Timetable millionStates(benchmark::State& state) {
  const int columns = static_cast<int>(state.range(0));
  return tableOf(cells / columns, columns);
}

void timesByFromChars(benchmark::State& state) {
  const std::vector<std::string> texts = timesOf(millionStates(state));
  for (auto _ : state)
    for (const std::string& text : texts) {
      double value = 0;
      std::from_chars(text.data(), text.data() + text.size(), value);
      benchmark::DoNotOptimize(value);
    }
}

void readSource(benchmark::State& state) {
  const Timetable table = millionStates(state);
  const YString text = writeTable(table);
  Timetable read = table;
  const Source_Table_Info_t info = {table.outputs, static_cast<int>(table.rows())};
  for (auto _ : state)
    if (DigitalSource::ReadSource(text, read.states.data(), read.times.data(), info, nullptr) != 0)
      state.SkipWithError("not read");
}

void readWholeTable(benchmark::State& state) {
  const Timetable table = millionStates(state);
  const YString text = writeTable(table);
  Timetable read;
  for (auto _ : state)
    if (!readTable(text, table.outputs, &read, nullptr))
      state.SkipWithError("not read");
}

void writeWholeTable(benchmark::State& state) {
  const Timetable table = millionStates(state);
  for (auto _ : state)
    benchmark::DoNotOptimize(writeTable(table));
}

/// A train of so many pulses over a table of as many rows that another train has left.
PulseTrain trainOf(std::int64_t pulses) {
  PulseTrain train;
  train.start = 1e-9;
  train.width = 3e-9;
  train.period = 1e-8;
  train.end = train.start + train.period * static_cast<double>(pulses);
  train.output = 0;
  return train;
}

void apply(Timetable* table, const PulseTrain& train) {
  PulseOperationRepetitive operation(train);
  applyPulseOperation(table, operation);
}

Timetable tableBeforeTrain(std::int64_t pulses) {
  Timetable table = tableOf(1, outputs);
  PulseTrain other = trainOf(pulses);
  other.width = 4e-9;
  other.output = 5;
  apply(&table, other);
  return table;
}

void pulsesRead(benchmark::State& state) {
  const YString text = writeTable(tableBeforeTrain(state.range(0)));
  Timetable table;
  for (auto _ : state)
    readTable(text, outputs, &table, nullptr);
  state.SetComplexityN(state.range(0));
}

void pulsesApplied(benchmark::State& state) {
  const Timetable before = tableBeforeTrain(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    Timetable table = before;
    state.ResumeTiming();
    apply(&table, trainOf(state.range(0)));
    benchmark::DoNotOptimize(table);
  }
  state.SetComplexityN(state.range(0));
}

void pulsesWritten(benchmark::State& state) {
  Timetable table = tableBeforeTrain(state.range(0));
  apply(&table, trainOf(state.range(0)));
  for (auto _ : state)
    benchmark::DoNotOptimize(writeTable(table));
  state.SetComplexityN(state.range(0));
}

void traceThinnedOut(benchmark::State& state) {
  Timetable table = tableBeforeTrain(state.range(0));
  const double end = table.times.back();
  const Trace trace = traceOf(table, 5);
  CompressedData data;
  for (auto _ : state)
    data.build(trace.x.data(), trace.y.data(), static_cast<std::int64_t>(trace.x.size()), 0, end,
               pixels, false);
  state.counters["before"] = static_cast<double>(trace.x.size());
  state.counters["after"] = static_cast<double>(data.numPoints());
  state.SetComplexityN(state.range(0));
}

BENCHMARK(timesByFromChars)->Arg(1)->Arg(8)->Unit(benchmark::kMillisecond);
BENCHMARK(readSource)->Arg(1)->Arg(8)->Unit(benchmark::kMillisecond);
BENCHMARK(readWholeTable)->Arg(1)->Arg(8)->Unit(benchmark::kMillisecond);
BENCHMARK(writeWholeTable)->Arg(1)->Arg(8)->Unit(benchmark::kMillisecond);
BENCHMARK(pulsesRead)
    ->RangeMultiplier(10)
    ->Range(1000, 100000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity();
BENCHMARK(pulsesApplied)
    ->RangeMultiplier(10)
    ->Range(1000, 100000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity();
BENCHMARK(pulsesWritten)
    ->RangeMultiplier(10)
    ->Range(1000, 100000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity();
BENCHMARK(traceThinnedOut)
    ->RangeMultiplier(10)
    ->Range(1000, 100000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity();

} // namespace

BENCHMARK_MAIN();
