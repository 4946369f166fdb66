#include "Analog/SelectDeviceDialog.h"

#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/Captions.h"
#include "Pieces/ListRows.h"

#include <QHeaderView>

#include <cmath>
#include <limits>

static const ScriptFunction declaration("SelectDeviceDialog", 1, "SSSSS", RealVectorResult,
                                        runDialogFunction<SelectDeviceDialog, UserReal>);

namespace {

enum Argument { Devices, Titles, Headers, Filters, Choices };

constexpr int mostColumns = 100; // what a tree can show in reasonable time
constexpr int widestLabel = 40;  // characters, as wide as on the average

double numberOf(const QString& text) {
  bool isNumber = false;
  double value = text.toDouble(&isNumber);
  if (!isNumber && !sp_IsEngNumber(text, &value))
    value = std::numeric_limits<double>::quiet_NaN();
  return value;
}

} // namespace

SelectFetListViewItem::SelectFetListViewItem(int itsLine, const QStringList& fields)
    : QTreeWidgetItem(fields), line(itsLine), m_texts(fields) {
  for (const QString& field : fields)
    m_numbers.push_back(numberOf(field));
}

std::pair<double, QString> SelectFetListViewItem::keyOf(int column) const {
  if (column >= m_texts.size())
    return {};
  const double number = m_numbers[static_cast<std::size_t>(column)];
  return std::isnan(number) ? std::pair(0.0, m_texts.at(column)) : std::pair(number, QString());
}

bool SelectFetListViewItem::operator<(const QTreeWidgetItem& other) const {
  const auto& device = static_cast<const SelectFetListViewItem&>(other);
  const int column = treeWidget() ? treeWidget()->sortColumn() : 0;
  if (column <= DeviceList::Name)
    return m_texts.at(DeviceList::Name) < device.m_texts.at(DeviceList::Name);
  return keyOf(column) < device.keyOf(column);
}

SelectDeviceDialog::SelectDeviceDialog() : KelvarinDialog(nullptr, "SelectDeviceDialog", true, {}) {
  form.setupUi(this);
  using Self = SelectDeviceDialog;
  connect(form.filter1Edit, &QComboBox::textActivated, this, &Self::idFilterEdit_activated);
  connect(form.filter2Edit, &QComboBox::textActivated, this, &Self::vdsmaxFilterEdit_activated);
  connect(form.filter3Edit, &QComboBox::textActivated, this, &Self::rdsonFilterEdit_activated);
  // Before anything is sorted, which is then done once.
  form.fetSelectListView->header()->setSortIndicator(DeviceList::Name, Qt::AscendingOrder);
  connect(form.fetSelectListView, &QTreeWidget::itemDoubleClicked, this, &Self::okClicked);
}

void SelectDeviceDialog::initialiseDialog() {
  dimsSavingEnabled = true;
  const QString title = texts(Titles).text(0);
  if (!title.isEmpty())
    setWindowTitle(shownCaption(title));
  KelvarinDialog::initialiseDialog();
  setHeaders();

  devices = DeviceList(texts(Devices), texts(Choices).raw(0));
  // The filters begin to count when the user picks one; until then no negative value is seen.
  const ValueRange positive{0, ValueRange().high};
  showDevices({positive, positive, positive});
  makeRowsUniform(form.fetSelectListView);
  resizeToContents(this);
}

void SelectDeviceDialog::setHeaders() {
  const Texts headers = texts(Headers);
  if (!headers.isEmpty()) {
    QStringList shown;
    for (const QString& header : headers.all().mid(0, mostColumns))
      shown.append(rowText(header));
    form.fetSelectListView->setColumnCount(shown.size());
    form.fetSelectListView->setHeaderLabels(shown);
  }
  const unsigned filters = texts(Filters).count();
  const struct {
    CaptionLabel* label;
    ComboBox* filter;
  } rows[] = {{form.label1, form.filter1Edit},
              {form.label2, form.filter2Edit},
              {form.label3, form.filter3Edit}};
  unsigned row = 0;
  for (const auto& [label, filter] : rows) {
    // All of it stands in the heading of the column.
    captionField(label, filter,
                 fontMetrics().elidedText(rowText(label->text()), Qt::ElideRight,
                                          widestLabel * fontMetrics().averageCharWidth()));
    if (row++ >= filters)
      setShown({label, filter}, false);
  }
  form.groupBox5->setVisible(filters > 0);
}

void SelectDeviceDialog::readDialog(UserDataType, bool accepted) {
  const SelectFetListViewItem* device = selectedDevice();
  if (accepted && device)
    setRealResult(device->line);
}

void SelectDeviceDialog::idFilterEdit_activated(const QString& text) {
  filter(0, text);
}

void SelectDeviceDialog::vdsmaxFilterEdit_activated(const QString& text) {
  filter(1, text);
}

void SelectDeviceDialog::rdsonFilterEdit_activated(const QString& text) {
  filter(2, text);
}

void SelectDeviceDialog::filter(std::size_t changed, const QString& text) {
  const ComboBox* filters[] = {form.filter1Edit, form.filter2Edit, form.filter3Edit};
  DeviceList::Ranges ranges;
  for (std::size_t i = 0; i < ranges.size(); ++i)
    ranges[i] = readRange(toYs(i == changed ? text : filters[i]->currentText()));
  showDevices(ranges);
}

void SelectDeviceDialog::showDevices(const DeviceList::Ranges& ranges) {
  QTreeWidget* tree = form.fetSelectListView;
  const SelectFetListViewItem* before = selectedDevice();
  const int selected = before ? before->line : -1;
  tree->clear();
  QTreeWidgetItem* again = nullptr;
  QList<QTreeWidgetItem*> items;
  for (int line : devices.within(ranges)) {
    items.append(new SelectFetListViewItem(line, devices.fields(line)));
    if (line == selected)
      again = items.last();
  }
  // A tree that sorts as it is filled compares every device with every other one.
  tree->setSortingEnabled(false);
  tree->addTopLevelItems(items);
  tree->setSortingEnabled(true);
  if (again)
    tree->setCurrentItem(again);
}

SelectFetListViewItem* SelectDeviceDialog::selectedDevice() const {
  const QList<QTreeWidgetItem*> selected = form.fetSelectListView->selectedItems();
  return selected.isEmpty() ? nullptr : dynamic_cast<SelectFetListViewItem*>(selected.first());
}
