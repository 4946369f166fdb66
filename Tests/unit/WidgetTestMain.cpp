#include <QApplication>

#include <gtest/gtest.h>

#include <array>

namespace {

// What the offscreen platform says of itself; everything else that Qt warns of is a fault.
constexpr std::array<const char*, 2> knownNoise{"This plugin does not support", "XDG_RUNTIME_DIR"};

void failOnWarning(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type == QtDebugMsg || type == QtInfoMsg)
    return;
  for (const char* noise : knownNoise)
    if (message.contains(QLatin1String(noise)))
      return;
  ADD_FAILURE() << "Qt warns: " << message.toStdString();
}

} // namespace

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(failOnWarning);
  QApplication application(argc, argv);
  // The same sizes and hints wherever the tests run.
  QApplication::setStyle(QStringLiteral("Fusion"));
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
