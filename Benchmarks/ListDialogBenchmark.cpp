#include "FunctionTable.h"
#include "HostCall.h"
#include "HostSupport/Files.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDialog>
#include <QListWidget>
#include <QTemporaryDir>
#include <QVBoxLayout>

// From the call to the first paint of a box with a long list, against a plain QListWidget in a bare
// QDialog, filled with the same texts in the same process.

namespace {

FunctionTable table;

/// Closes every dialog as soon as it and its lists have painted themselves.
class CloseOncePainted : public QObject {
public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && watched->inherits("QDialog") && !m_closing) {
      m_closing = true;
      QMetaObject::invokeMethod(
          watched,
          [this, watched] {
            m_closing = false;
            static_cast<QDialog*>(watched)->reject();
          },
          Qt::QueuedConnection);
    }
    return false;
  }

private:
  bool m_closing = false;
};

std::string textOf(int64_t row) {
  return "V(net_" + std::to_string(row) + ")";
}

/// `uniform`: the view is told that its rows are of one size, as few programs do.
void bareList(benchmark::State& state, bool uniform) {
  QStringList texts;
  for (int64_t row = 0; row < state.range(0); ++row)
    texts.append(QString::fromStdString(textOf(row)));
  for (auto _ : state) {
    QDialog dialog;
    auto* layout = new QVBoxLayout(&dialog);
    auto* list = new QListWidget(&dialog);
    list->setUniformItemSizes(uniform);
    list->addItems(texts);
    layout->addWidget(list);
    dialog.exec();
  }
}

void addRemoveDialog(benchmark::State& state) {
  const FunctionInfo* function = table.find(QStringLiteral("AddRemoveDialog"));
  std::vector<QByteArray> texts;
  for (int64_t row = 0; row < state.range(0); ++row)
    texts.push_back(QByteArray::fromStdString(textOf(row)));
  const std::vector<ScriptVector> arguments{ScriptVector::ofStrings({"V(out)"}),
                                            ScriptVector::ofStrings(texts)};
  for (auto _ : state)
    callHandler(*function, arguments);
}

BENCHMARK_CAPTURE(bareList, plain, false)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2);
BENCHMARK_CAPTURE(bareList, uniform, true)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(2);
BENCHMARK(addRemoveDialog)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->MinTime(2);

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
