#pragma once

#include "Analog/ui_SelectDeviceDialog.h"
#include "Core/Analog/DeviceList.h"
#include "Frame/KelvarinDialog.h"

/// A device in the list. Its name sorts as text; another column by the numbers in it, which may
/// have suffixes, and by its texts where they are none.
class SelectFetListViewItem : public QTreeWidgetItem {
public:
  SelectFetListViewItem(int line, const QStringList& fields);

  bool operator<(const QTreeWidgetItem& other) const override;

  const std::int32_t line; ///< its place in the script's list

private:
  /// A column's number, and of what is no number the text, which stands where 0 does.
  std::pair<double, QString> keyOf(int column) const;

  QStringList m_texts;           ///< by column
  std::vector<double> m_numbers; ///< the same as numbers; NaN for what is none
};

/// Picks a device of a list that up to three ranges of values narrow down.
class SelectDeviceDialog : public KelvarinDialog {
  Q_OBJECT

public:
  SelectDeviceDialog();

  void initialiseDialog() override;
  void readDialog(UserDataType type, bool accepted) override;

private slots:
  void idFilterEdit_activated(const QString& text);
  void vdsmaxFilterEdit_activated(const QString& text);
  void rdsonFilterEdit_activated(const QString& text);

private:
  void setHeaders();
  void filter(std::size_t changed, const QString& text);
  void showDevices(const DeviceList::Ranges& ranges);
  SelectFetListViewItem* selectedDevice() const; ///< null where there is none

  Ui::SelectDeviceDialog form;
  DeviceList devices;
};
