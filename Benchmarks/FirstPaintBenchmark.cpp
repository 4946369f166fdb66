#include "PaintedDialogs.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>

// From the call to the first paint of a box of four numbers, against a bare QDialog with four
// QDoubleSpinBoxes in the same process.

namespace {

void bareDialog(benchmark::State& state) {
  for (auto _ : state)
    state.SetIterationTime(PaintedDialogs::secondsToPaint([] {
      QDialog dialog;
      auto* layout = new QFormLayout(&dialog);
      for (const char* caption : {"a", "b", "c", "d"})
        layout->addRow(QString::fromLatin1(caption), new QDoubleSpinBox(&dialog));
      layout->addRow(
          new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog));
      dialog.exec();
    }));
}

void valueDialog(benchmark::State& state) {
  const FunctionInfo* function = functionTable().find(QStringLiteral("ValueDialog"));
  const std::vector<ScriptVector> arguments{ScriptVector::ofReals({1, 2, 3, 4}),
                                            ScriptVector::ofStrings({"a", "b", "c", "d"})};
  for (auto _ : state)
    state.SetIterationTime(
        PaintedDialogs::secondsToPaint([&] { callHandler(*function, arguments); }));
}

BENCHMARK(bareDialog)->Unit(benchmark::kMicrosecond)->MinTime(2)->UseManualTime();
BENCHMARK(valueDialog)->Unit(benchmark::kMicrosecond)->MinTime(2)->UseManualTime();

} // namespace

int main(int argc, char** argv) {
  return runDialogBenchmarks(argc, argv);
}
