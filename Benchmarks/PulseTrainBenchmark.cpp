#include "PaintedDialogs.h"

#include <QCoreApplication>
#include <QPushButton>

// A train of pulses added to a digital source of eight outputs: from the click to painted strips.
// The arithmetic alone is in DigitalSourceBenchmark.

namespace {

void clickToPaint(benchmark::State& state) {
  const FunctionInfo* function = functionTable().find(QStringLiteral("DigitalSourceDialog"));
  const std::vector<ScriptVector> arguments{
      ScriptVector::ofStrings({"a|b|c|d|e|f|g|h", "0 0s 0s 0s 0s 0s 0s 0s 0s\n"})};
  for (auto _ : state) {
    PaintedDialogs::onPaint = [&](QDialog* dialog) {
      const auto set = [dialog](const char* spinner, const QByteArray& text) {
        dialog->findChild<QWidget*>(QLatin1String(spinner))
            ->setProperty("stringValue", QString::fromLatin1(text));
      };
      set("repetitivePulseWidthEdit", "500n");
      set("repetitivePeriodEdit", "1u");
      set("repetitiveEndEdit", QByteArray::number(qlonglong(state.range(0))) + "u");
      const PaintedDialogs::Clock::time_point start = PaintedDialogs::Clock::now();
      dialog->findChild<QPushButton*>(QStringLiteral("repetitiveAddButton"))->click();
      dialog->repaint();
      QCoreApplication::processEvents();
      state.SetIterationTime(
          std::chrono::duration<double>(PaintedDialogs::Clock::now() - start).count());
    };
    callHandler(*function, arguments);
    PaintedDialogs::onPaint = nullptr;
  }
}
BENCHMARK(clickToPaint)
    ->RangeMultiplier(10)
    ->Range(1000, 100000)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();

} // namespace

int main(int argc, char** argv) {
  return runDialogBenchmarks(argc, argv);
}
