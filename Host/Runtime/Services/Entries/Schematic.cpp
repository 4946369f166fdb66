#include "Services/Entries/Schematic.h"

#include "HostSupportQt/Paste.h"
#include "HostSupportQt/Text.h"
#include "Services/Entries/Entries.h"

namespace {

class Schematic final : public GlobalSchematicInterface {
public:
  void reserved1() override {}
  void reserved2() override {}
  void setPicking(int on) override { picking.append(on); }
  bool hasCurrentSchematic() override { return hasCurrent; }

  bool hasCurrent = false;
  QVector<int> picking;
};

Schematic& schematic() {
  static Schematic instance;
  return instance;
}

} // namespace

GlobalSchematicInterface* globalSchematicInterfaceEntry() {
  return &schematic();
}

bool hasSchematic() {
  return schematic().hasCurrent;
}

void setHasSchematic(bool on) {
  schematic().hasCurrent = on;
}

QVector<int> passedPicking() {
  return schematic().picking;
}

bool pasteText(const QString& text) {
  const YRef<PasteTextObject> object = sp_InstalledPasteTextObject();
  if (!object)
    return false;
  object->paste(Tocs(text));
  return true;
}
