#pragma once

#include "Analog/ui_SearchDialog.h"
#include "Core/Analog/PartCatalogue.h"
#include "Frame/KelvarinDialog.h"

#include <QAbstractListModel>

/// The parts that a search has found, as a list shows them: lines of a catalogue, whose names are
/// made when somebody looks at them.
class SearchResults : public QAbstractListModel {
public:
  SearchResults(PartCatalogue* parts, QObject* parent);

  void showAll(bool withModels);
  void search(const QString& text, bool withModels);
  /// The catalogue's line behind a row; -1 for none.
  int line(const QModelIndex& index) const;

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role) const override;

private:
  PartCatalogue* m_parts; ///< not owned
  PartCatalogue::Lines m_lines;
};

/// Finds a part by typing some of one of its names.
class SearchDialog : public KelvarinDialog {
  Q_OBJECT

public:
  SearchDialog();

  void initialiseDialog() override;
  /// The identity of the part, and whether the model library was searched.
  void readDialog(UserDataType type, bool accepted) override;
  void okClicked() override;

private slots:
  void searchEdit_textChanged(const QString& text);
  void searchResultsListBox_clicked(const QModelIndex& index);
  void cbIncludeModelLibraryParts_clicked();

private:
  void connectKeys();
  void enterList();
  void typedInList(const QString& text);
  void currentChanged(const QModelIndex& current);
  int selectedLine() const; ///< -1 for none
  bool asksForAPart();

  Ui::SearchDialog form;
  PartCatalogue parts;
  SearchResults* results;
};
