#include "HostSupportQt/QtMessages.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace {

void failOnWarning(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type != QtDebugMsg && type != QtInfoMsg && !qtsp_IsPlatformNoise(message))
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
