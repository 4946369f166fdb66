#pragma once

#include "HostSupport/Containers.h"
#include "HostSupport/YString.h"
#include "HostSupportQt/Export.h"

/// Receives text that the user picks elsewhere in the host.
class HOSTSUPPORTQT_EXPORT PasteTextObject {
public:
  virtual void paste(const char* text) = 0;
  virtual bool isSame(const PasteTextObject* other) const = 0;
  virtual ~PasteTextObject();
};

/// From now on picked text goes to this object; the one before it is let go.
HOSTSUPPORTQT_EXPORT void sp_InstallPasteTextObject(YRef<PasteTextObject> object);
HOSTSUPPORTQT_EXPORT void sp_UnInstallPasteTextObject();
/// The object installed now; empty if none. For the host.
HOSTSUPPORTQT_EXPORT YRef<PasteTextObject> sp_InstalledPasteTextObject();

/// The clipboard's text; false, with `*text` empty, where it holds none.
HOSTSUPPORTQT_EXPORT bool sp_PasteTextFromClipboard(YString* text);
