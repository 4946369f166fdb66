#include "Startup.h"

#include "CommandLine.h"
#include "HostSupport/System.h"
#include "HostSupportQt/QtMessages.h"

#include <QApplication>
#include <QProxyStyle>
#include <QStyleOption>

#include <clocale>

using Command = CommandLine::Command;

static const char* const platformVariable = "QT_QPA_PLATFORM";

/// Where windows come through a display server, its address stands in the environment.
static bool lacksDisplay() {
  return sp_GetOs() == OperatingSystem::Linux && qEnvironmentVariableIsEmpty("DISPLAY") &&
         qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

/// Fusion measures the ink of a group's title and draws the title from its origin: where the first
/// letter stands off that, as "D" does, the last one was cut.
class WholeTitlesStyle : public QProxyStyle {
public:
  using QProxyStyle::QProxyStyle;

  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override {
    QRect rect = QProxyStyle::subControlRect(control, option, part, widget);
    if (control == CC_GroupBox && part == SC_GroupBoxLabel)
      rect.setWidth(rect.width() + option->fontMetrics.averageCharWidth());
    return rect;
  }
};

/// Fusion looks the same everywhere and follows our palettes; a script that a user runs by hand
/// shows dialogs as the desktop does.
static bool wantsFusion(Command command) {
  return command == Command::Tour || command == Command::Workbench;
}

bool lacksDisplayFor(const CommandLine& line) {
  return line.command == Command::Workbench && line.screenshot.isEmpty() &&
         qEnvironmentVariableIsEmpty(platformVariable) && lacksDisplay();
}

void prepareEnvironment(const CommandLine& line) {
  qtsp_DropPlatformNoise();
  const bool isTour = line.command == Command::Tour;
  const bool tourOffscreen = isTour && sp_GetOs() == OperatingSystem::Linux;
  if (qEnvironmentVariableIsEmpty(platformVariable) && (lacksDisplay() || tourOffscreen))
    qputenv(platformVariable, "offscreen");
  if (qgetenv(platformVariable).startsWith("offscreen") &&
      !qEnvironmentVariableIsSet("QT_FONT_DPI"))
    qputenv("QT_FONT_DPI", "96");
  if (line.scale != 1)
    qputenv("QT_SCALE_FACTOR", QByteArray::number(line.scale));
  QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
  QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
  if (isTour)
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  if (wantsFusion(line.command) || qgetenv(platformVariable).startsWith("offscreen"))
    QApplication::setStyle(new WholeTitlesStyle(QStringLiteral("fusion")));
}

void prepareApplication() {
  // The application object takes the user's locale over; numbers are read and written the C way.
  std::setlocale(LC_NUMERIC, "C");
  QCoreApplication::setApplicationName(QStringLiteral("dialoghost"));
  QCoreApplication::setApplicationVersion(QStringLiteral(KV_VERSION));
}

bool hasUser() {
  const QString platform = QGuiApplication::platformName();
  return platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
}
