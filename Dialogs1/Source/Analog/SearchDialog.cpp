#include "Analog/SearchDialog.h"

#include "Frame/ScriptFunction.h"

#include <QMessageBox>
#include <QShortcut>

static const ScriptFunction declaration("SearchDialog", 1, "SS", StringVectorResult,
                                        runDialogFunction<SearchDialog, UserString>);

namespace {

enum Argument { Catalogue, Settings };
enum Setting { WithModels };
enum ResultElement { Identity, SearchedModels };

} // namespace

SearchResults::SearchResults(PartCatalogue* parts, QObject* parent)
    : QAbstractListModel(parent), m_parts(parts) {}

void SearchResults::showAll(bool withModels) {
  beginResetModel();
  m_lines = m_parts->parts(withModels);
  endResetModel();
}

void SearchResults::search(const QString& text, bool withModels) {
  beginResetModel();
  m_parts->search(text, withModels, &m_lines);
  endResetModel();
}

int SearchResults::line(const QModelIndex& index) const {
  return index.isValid() ? m_lines[static_cast<std::size_t>(index.row())] : -1;
}

int SearchResults::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

QVariant SearchResults::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || role != Qt::DisplayRole)
    return {};
  return m_parts->shownName(line(index));
}

SearchDialog::SearchDialog()
    : KelvarinDialog(nullptr, "SearchDialog", true, {}), results(new SearchResults(&parts, this)) {
  form.setupUi(this);
  form.searchResultsListBox->setModel(results);
  using Self = SearchDialog;
  connect(form.searchEdit, &QLineEdit::textChanged, this, &Self::searchEdit_textChanged);
  connect(form.cbIncludeModelLibraryParts, &QCheckBox::clicked, this,
          &Self::cbIncludeModelLibraryParts_clicked);
  connect(form.searchResultsListBox, &ColumnsView::clicked, this,
          &Self::searchResultsListBox_clicked);
  connect(form.searchResultsListBox, &ColumnsView::doubleClicked, this, &Self::okClicked);
  connect(form.searchResultsListBox->selectionModel(), &QItemSelectionModel::currentChanged, this,
          &Self::currentChanged);
  connectKeys();
}

void SearchDialog::connectKeys() {
  auto* down = new QShortcut(Qt::Key_Down, form.searchEdit, nullptr, nullptr, Qt::WidgetShortcut);
  connect(down, &QShortcut::activated, this, &SearchDialog::enterList);
  connect(form.searchResultsListBox, &ColumnsView::typed, this, &SearchDialog::typedInList);
}

void SearchDialog::initialiseDialog() {
  if (texts(Settings).number(WithModels) == 1)
    form.cbIncludeModelLibraryParts->setChecked(true);
  parts = PartCatalogue(texts(Catalogue));
  form.searchResultsListBox->setWidestTexts(parts.longestNames());
  results->showAll(form.cbIncludeModelLibraryParts->isChecked());
  form.pathLabel->clear();
}

void SearchDialog::readDialog(UserDataType, bool accepted) {
  const int line = selectedLine();
  if (!accepted || line < 0)
    return;
  TextVector result;
  result.set(Identity, parts.identity(line));
  result.set(SearchedModels, form.cbIncludeModelLibraryParts->isChecked() ? "1" : "0");
  setTextsResult(result);
}

void SearchDialog::searchEdit_textChanged(const QString& text) {
  results->search(text, form.cbIncludeModelLibraryParts->isChecked());
  form.pathLabel->clear();
  if (results->rowCount() == 1)
    form.searchResultsListBox->setCurrentIndex(results->index(0));
}

void SearchDialog::cbIncludeModelLibraryParts_clicked() {
  searchEdit_textChanged(form.searchEdit->text());
}

void SearchDialog::searchResultsListBox_clicked(const QModelIndex& index) {
  const int line = results->line(index);
  // The first line of a catalogue has no path to show.
  form.pathLabel->setText(line < 1 ? QString() : parts.path(line));
}

void SearchDialog::currentChanged(const QModelIndex& current) {
  // The arrow keys do what a click does.
  searchResultsListBox_clicked(current);
}

void SearchDialog::enterList() {
  form.searchResultsListBox->setFocus(Qt::OtherFocusReason);
  if (selectedLine() < 0 && results->rowCount() > 0)
    form.searchResultsListBox->setCurrentIndex(results->index(0));
}

void SearchDialog::typedInList(const QString& text) {
  form.searchEdit->setFocus(Qt::OtherFocusReason);
  form.searchEdit->end(false);
  if (text == QLatin1String("\b"))
    form.searchEdit->backspace();
  else
    form.searchEdit->insert(text);
}

int SearchDialog::selectedLine() const {
  const QModelIndexList selected = form.searchResultsListBox->selectionModel()->selectedIndexes();
  return selected.isEmpty() ? -1 : results->line(selected.first());
}

void SearchDialog::okClicked() {
  // A row that has the cursor without being selected is none that the user has chosen.
  if (selectedLine() >= 0)
    accept();
  else if (asksForAPart())
    form.searchEdit->setFocus(Qt::OtherFocusReason);
  else
    reject();
}

bool SearchDialog::asksForAPart() {
  QMessageBox box(QMessageBox::Warning, tr("Nothing selected"),
                  tr("No part has been selected.\n\nWould you like to select a part or cancel"),
                  QMessageBox::NoButton, this);
  QPushButton* select = box.addButton(tr("Select a part"), QMessageBox::AcceptRole);
  box.addButton(tr("Cancel"), QMessageBox::DestructiveRole);
  box.setDefaultButton(select);
  box.setEscapeButton(select);
  box.exec();
  return box.clickedButton() == select;
}
