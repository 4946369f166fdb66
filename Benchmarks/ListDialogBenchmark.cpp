#include "PaintedDialogs.h"

#include <QListWidget>
#include <QVBoxLayout>

// From the call to the first paint of a box with a long list, against a plain QListWidget in a bare
// QDialog, filled with the same texts in the same process.

namespace {

std::string textOf(int64_t row) {
  return "V(net_" + std::to_string(row) + ")";
}

std::vector<QByteArray> scriptTexts(int64_t count) {
  std::vector<QByteArray> made;
  for (int64_t row = 0; row < count; ++row)
    made.push_back(QByteArray::fromStdString(textOf(row)));
  return made;
}

/// `uniform`: the view is told that its rows are of one size, as few programs do.
void bareList(benchmark::State& state, bool uniform) {
  QStringList texts;
  for (int64_t row = 0; row < state.range(0); ++row)
    texts.append(QString::fromStdString(textOf(row)));
  for (auto _ : state)
    state.SetIterationTime(PaintedDialogs::secondsToPaint([&] {
      QDialog dialog;
      auto* layout = new QVBoxLayout(&dialog);
      auto* list = new QListWidget(&dialog);
      list->setUniformItemSizes(uniform);
      list->addItems(texts);
      layout->addWidget(list);
      dialog.exec();
    }));
}

void addRemoveDialog(benchmark::State& state) {
  const FunctionInfo* function = functionTable().find(QStringLiteral("AddRemoveDialog"));
  const std::vector<ScriptVector> arguments{ScriptVector::ofStrings({"V(out)"}),
                                            ScriptVector::ofStrings(scriptTexts(state.range(0)))};
  for (auto _ : state)
    state.SetIterationTime(
        PaintedDialogs::secondsToPaint([&] { callHandler(*function, arguments); }));
}

/// `word`: "sorted", or nothing.
void selectDialog(benchmark::State& state, const char* word) {
  const FunctionInfo* function = functionTable().find(QStringLiteral("SelectDialog"));
  const std::vector<ScriptVector> arguments{
      ScriptVector::ofStrings({"Select Net", "Net:", "Single", word}),
      ScriptVector::ofStrings(scriptTexts(state.range(0)))};
  for (auto _ : state)
    state.SetIterationTime(
        PaintedDialogs::secondsToPaint([&] { callHandler(*function, arguments); }));
}

BENCHMARK_CAPTURE(bareList, plain, false)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2)
    ->UseManualTime();
BENCHMARK_CAPTURE(bareList, uniform, true)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2)
    ->UseManualTime();
BENCHMARK(addRemoveDialog)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2)
    ->UseManualTime();
BENCHMARK_CAPTURE(selectDialog, asGiven, "")
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2)
    ->UseManualTime();
BENCHMARK_CAPTURE(selectDialog, sorted, "sorted")
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2)
    ->UseManualTime();

} // namespace

int main(int argc, char** argv) {
  return runDialogBenchmarks(argc, argv);
}
