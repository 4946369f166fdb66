#include "FunctionTable.h"
#include "HostCall.h"
#include "HostSupport/Files.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QTemporaryDir>

#include <chrono>

// From the call to the first paint of a box of four numbers, against a bare QDialog with four
// QDoubleSpinBoxes in the same process.

namespace {

FunctionTable table;

using Clock = std::chrono::steady_clock;
Clock::time_point painted;

/// Closes every dialog as soon as it has painted itself, and stops the clock.
class CloseOncePainted : public QObject {
public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && watched->inherits("QDialog") && !m_closing) {
      m_closing = true;
      QMetaObject::invokeMethod(
          watched,
          [this, watched] {
            m_closing = false;
            painted = Clock::now();
            static_cast<QDialog*>(watched)->reject();
          },
          Qt::QueuedConnection);
    }
    return false;
  }

private:
  bool m_closing = false;
};

double secondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(painted - start).count();
}

void bareDialog(benchmark::State& state) {
  for (auto _ : state) {
    const Clock::time_point start = Clock::now();
    QDialog dialog;
    auto* layout = new QFormLayout(&dialog);
    for (const char* caption : {"a", "b", "c", "d"})
      layout->addRow(QString::fromLatin1(caption), new QDoubleSpinBox(&dialog));
    layout->addRow(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog));
    dialog.exec();
    state.SetIterationTime(secondsSince(start));
  }
}

void valueDialog(benchmark::State& state) {
  const FunctionInfo* function = table.find(QStringLiteral("ValueDialog"));
  const std::vector<ScriptVector> arguments{ScriptVector::ofReals({1, 2, 3, 4}),
                                            ScriptVector::ofStrings({"a", "b", "c", "d"})};
  for (auto _ : state) {
    const Clock::time_point start = Clock::now();
    callHandler(*function, arguments);
    state.SetIterationTime(secondsSince(start));
  }
}

BENCHMARK(bareDialog)->Unit(benchmark::kMicrosecond)->MinTime(2)->UseManualTime();
BENCHMARK(valueDialog)->Unit(benchmark::kMicrosecond)->MinTime(2)->UseManualTime();

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_FONT_DPI", "96");
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QTemporaryDir settings;
  sp_SetSettingsDir(settings.path().toUtf8().constData());
  table.loadModule(QStringLiteral(KV_MODULE_FILE));
  CloseOncePainted closer;
  application.installEventFilter(&closer);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
