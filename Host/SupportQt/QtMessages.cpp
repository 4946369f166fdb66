#include "HostSupportQt/QtMessages.h"

#include <algorithm>
#include <iterator>

static QtMessageHandler handlerBefore = nullptr;

static void passOn(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (type == QtFatalMsg || !qtsp_IsPlatformNoise(message))
    handlerBefore(type, context, message);
}

bool qtsp_IsPlatformNoise(const QString& message) {
  static const char* const noise[] = {"This plugin does not support", "XDG_RUNTIME_DIR",
                                      "OpenType support missing for"};
  return std::any_of(std::begin(noise), std::end(noise),
                     [&](const char* part) { return message.contains(QLatin1String(part)); });
}

void qtsp_DropPlatformNoise() {
  const QtMessageHandler installed = qInstallMessageHandler(passOn);
  if (installed != passOn)
    handlerBefore = installed;
}
