#include "HostSupportQt/Paste.h"

#include "HostSupportQt/GuiThread.h"
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
  *text = YString();
  if (!sp_IsGuiThread("sp_PasteTextFromClipboard"))
    return false;
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  const bool has = data && data->hasText();
  if (has)
    *text = toYs(data->text());
  return has;
}
