#pragma once

#include <QObject>
#include <QString>

#include <map>
#include <memory>

class QTextDocument;
class QWidget;
class ScriptEditor;

/// The scripts that the editor has open: files, and samples that may be edited for a try. Each
/// keeps its own history of changes; what was edited stays until it is saved or given up.
class ScriptDocuments : public QObject {
  Q_OBJECT

public:
  explicit ScriptDocuments(ScriptEditor* editor);
  ~ScriptDocuments() override;

  /// Shows the sample `text` of a function, or what it has been edited to.
  /// `file` is the one that the sample comes from: it finds its own includes.
  void showSample(const QString& function, const QString& text, const QString& file);
  bool openFile(const QString& path); ///< says so where it cannot be read
  void openNew(const QString& text = QString());
  bool save(); ///< asks for a name where there is none
  bool saveAs();
  void chooseFile(); ///< asks which file to open
  /// Asks about each script with unsaved changes; false where the user would rather go on.
  bool mayClose();

  QString title() const;    ///< of the present script
  QString fileName() const; ///< where the present script is, for errors and includes
  QString path() const;     ///< empty where it is no file yet
  bool isModified() const;
  /// The name that the next new file is offered in.
  void setFolder(const QString& folder) { m_folder = folder; }
  QString folder() const { return m_folder; }

signals:
  void shown();                       ///< another script, or its name or state of change is another
  void fileUsed(const QString& path); ///< opened or saved: for the list of recent files

private:
  struct Script;
  using Key = QString; ///< path of a file, "sample:NAME", "new:N"
  void show(const Key& key, std::unique_ptr<Script> script);
  void dropUnchanged();
  bool write(const QString& path);
  bool mayDrop(const Key& key);
  QWidget* window() const;

  ScriptEditor* m_editor;
  std::map<Key, std::unique_ptr<Script>> m_scripts;
  Key m_current;
  QString m_folder;
  int m_newCount = 0;
};
