#include "Workbench/ScriptDocuments.h"

#include "HostSupport/Files.h"
#include "HostSupportQt/Text.h"
#include "Workbench/ScriptEditor.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPlainTextDocumentLayout>
#include <QSaveFile>
#include <QTextDocument>

struct ScriptDocuments::Script {
  QString title;
  QString path;   ///< of a file
  QString sample; ///< the file that it began as a copy of
  std::unique_ptr<QTextDocument> document;
  int cursor = 0;
};

namespace {

constexpr std::uint64_t longestScript = 20'000'000; // bytes; an editor of more does not answer

std::unique_ptr<QTextDocument> makeDocument(const QString& text) {
  auto document = std::make_unique<QTextDocument>();
  document->setDocumentLayout(new QPlainTextDocumentLayout(document.get()));
  document->setPlainText(text);
  document->setModified(false);
  return document;
}

QString filters() {
  return ScriptDocuments::tr("Scripts (*.js);;All files (*)");
}

} // namespace

ScriptDocuments::ScriptDocuments(ScriptEditor* editor) : QObject(editor), m_editor(editor) {
  openNew();
}

ScriptDocuments::~ScriptDocuments() = default;

QWidget* ScriptDocuments::window() const {
  return m_editor->window();
}

void ScriptDocuments::show(const Key& key, std::unique_ptr<Script> script) {
  const auto before = m_scripts.find(m_current);
  if (before != m_scripts.end())
    before->second->cursor = m_editor->textCursor().position();
  if (script) {
    connect(script->document.get(), &QTextDocument::modificationChanged, this,
            &ScriptDocuments::shown);
    m_scripts[key] = std::move(script);
  }
  m_current = key;
  const Script& next = *m_scripts[key];
  m_editor->showDocument(next.document.get());
  QTextCursor cursor(next.document.get());
  cursor.setPosition(next.cursor);
  m_editor->setTextCursor(cursor);
  dropUnchanged();
  emit shown();
}

void ScriptDocuments::dropUnchanged() {
  for (auto each = m_scripts.begin(); each != m_scripts.end();)
    each = each->first == m_current || each->second->document->isModified() ? std::next(each)
                                                                            : m_scripts.erase(each);
}

void ScriptDocuments::showSample(const QString& function, const QString& text,
                                 const QString& file) {
  const Key key = QStringLiteral("sample:") + function;
  if (m_scripts.count(key)) {
    show(key, nullptr);
    return;
  }
  auto script = std::make_unique<Script>();
  script->title = function;
  script->sample = file;
  script->document = makeDocument(text);
  show(key, std::move(script));
}

void ScriptDocuments::openNew(const QString& text) {
  auto script = std::make_unique<Script>();
  ++m_newCount;
  script->title = m_newCount == 1 ? tr("New Script") : tr("New Script %1").arg(m_newCount);
  script->document = makeDocument(text);
  show(QStringLiteral("new:%1").arg(m_newCount), std::move(script));
}

bool ScriptDocuments::openFile(const QString& path) {
  const QFileInfo info(path);
  const Key key = info.absoluteFilePath();
  if (m_scripts.count(key)) {
    show(key, nullptr);
    return true;
  }
  std::string bytes;
  YString fault;
  if (!sp_ReadPlainFile(Tocs(key), &bytes, &fault, longestScript)) {
    QMessageBox::warning(window(), tr("Open Script"),
                         tr("%1 cannot be read: %2").arg(key, toQs(fault)));
    return false;
  }
  auto script = std::make_unique<Script>();
  script->title = info.fileName();
  script->path = key;
  script->document = makeDocument(QString::fromStdString(bytes));
  show(key, std::move(script));
  m_folder = info.absolutePath();
  emit fileUsed(key);
  return true;
}

void ScriptDocuments::chooseFile() {
  const QString path =
      QFileDialog::getOpenFileName(window(), tr("Open Script"), m_folder, filters());
  if (!path.isEmpty())
    openFile(path);
}

bool ScriptDocuments::save() {
  return path().isEmpty() ? saveAs() : write(path());
}

bool ScriptDocuments::saveAs() {
  const QString offered =
      path().isEmpty() ? m_folder + QLatin1Char('/') + title() + QStringLiteral(".js") : path();
  QFileDialog dialog(window(), tr("Save Script"), QString(), filters());
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(QStringLiteral("js"));
  dialog.selectFile(offered);
  return dialog.exec() == QDialog::Accepted && write(dialog.selectedFiles().value(0));
}

bool ScriptDocuments::write(const QString& target) {
  QSaveFile file(target);
  const QByteArray bytes = m_editor->toPlainText().toUtf8();
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
    QMessageBox::warning(window(), tr("Save Script"),
                         tr("%1 cannot be written: %2").arg(target, file.errorString()));
    return false;
  }
  const QFileInfo info(target);
  const Key key = info.absoluteFilePath();
  if (key != m_current) {
    std::unique_ptr<Script> script = std::move(m_scripts[m_current]);
    m_scripts.erase(m_current);
    script->title = info.fileName();
    script->path = key;
    m_scripts[key] = std::move(script);
    m_current = key;
  }
  m_scripts[key]->document->setModified(false);
  m_folder = info.absolutePath();
  emit fileUsed(key);
  emit shown();
  return true;
}

bool ScriptDocuments::mayClose() {
  std::vector<Key> edited;
  for (const auto& each : m_scripts)
    if (each.second->document->isModified())
      edited.push_back(each.first);
  for (const Key& key : edited)
    if (!mayDrop(key))
      return false;
  return true;
}

bool ScriptDocuments::mayDrop(const Key& key) {
  if (key != m_current)
    show(key, nullptr);
  const auto answer = QMessageBox::question(
      window(), tr("Unsaved Script"),
      tr("The script \"%1\" has changes that are not saved.").arg(title()),
      QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
  if (answer == QMessageBox::Save)
    return save();
  return answer == QMessageBox::Discard;
}

QString ScriptDocuments::title() const {
  return m_scripts.at(m_current)->title;
}

QString ScriptDocuments::path() const {
  return m_scripts.at(m_current)->path;
}

QString ScriptDocuments::fileName() const {
  for (const QString& name : {path(), m_scripts.at(m_current)->sample})
    if (!name.isEmpty())
      return name;
  return title();
}

bool ScriptDocuments::isModified() const {
  return m_scripts.at(m_current)->document->isModified();
}
