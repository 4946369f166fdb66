#include "HostSupportQt/Paste.h"

#include "HostSupportQt/Text.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace {

YRef<PasteTextObject>& installed() {
  static YRef<PasteTextObject> object;
  return object;
}

} // namespace

PasteTextObject::~PasteTextObject() = default;

void sp_InstallPasteTextObject(YRef<PasteTextObject> object) {
  installed() = std::move(object);
}

void sp_UnInstallPasteTextObject() {
  installed().reset();
}

YRef<PasteTextObject> sp_InstalledPasteTextObject() {
  return installed();
}

bool sp_PasteTextFromClipboard(YString* text) {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  const bool has = data && data->hasText();
  *text = has ? toYs(data->text()) : YString();
  return has;
}
