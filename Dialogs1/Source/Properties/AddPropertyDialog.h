#pragma once

#include "Frame/KelvarinDialog.h"
#include "HostSupport/Containers.h"
#include "Pieces/Fields.h"
#include "Properties/ui_BaseAddPropertyDialog.h"

/// A schematic property, or a symbol pin, as the property dialogs edit it.
struct PropertyRecord {
  YString value;
  YString name;
  std::int32_t flags = 0;  ///< `PropertyAttributes`, among bits of the schematic's own
  bool isInstance = false; ///< of an instance in a schematic, and not of the symbol's definition
  YString fontStyle;       ///< empty for the default style
  QStringList fontStyles;  ///< the names on offer
};

/// Makes a property; base of the dialogs that change one.
class AddPropertyDialog : public KelvarinDialog {
  Q_OBJECT

public:
  explicit AddPropertyDialog(const char* objectName = "AddPropertyDialog",
                             QWidget* parent = nullptr);

  int helpContextId() override;
  void initialiseDialog() override;
  void readDialog(UserDataType type, bool accepted) override;

  /// Shows a property; to be called once.
  virtual void loadProperty(PropertyRecord* property);

  /// Takes over what is shown. Bits of the flags that are not shown stay.
  void readProperty(PropertyRecord* property) const;
  /// The name is not the user's to change; they start at the value.
  void fixName();

public slots:
  virtual void fontStyleCombo_highlighted(int index); ///< nothing follows a style pointed at
  virtual void cbDefault_clicked();
  virtual void cbHidden_clicked();
  virtual void rbAuto_clicked();

protected:
  /// Fills `record` with the arguments that mean the same in all property dialogs.
  void gatherArguments();
  /// The check boxes that only a pin has.
  void showPinParts(bool shown);

  Ui::BaseAddPropertyDialog form;
  PropertyRecord record; ///< the script's property
  Fields attributeBoxes; ///< by `PropertyBit`

private:
  void describeBoxes();
  void loadFontStyles(const PropertyRecord& property);
  void letOnlyLook();
  void updateEnables();

  bool isInstance = false;
};

/// Edits a property over another dialog, all but its name. On OK what the user has changed of its
/// value, flags and font style is updated, and true is returned; on cancel it stays as it was.
bool editProperty(QWidget* over, PropertyRecord* property);
