#include "Workbench/FunctionTree.h"

#include "Signature.h"

#include <QHash>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int functionRole = Qt::UserRole;   ///< the name, on items of functions
constexpr int searchRole = Qt::UserRole + 1; ///< the text that is searched

} // namespace

FunctionTree::FunctionTree(const FunctionTable* table, const QVector<Sample>& samples,
                           QWidget* parent)
    : QWidget(parent), m_table(table), m_search(new QLineEdit), m_tree(new QTreeWidget),
      m_signature(new QLabel) {
  m_search->setPlaceholderText(tr("Search functions"));
  m_search->setAccessibleName(tr("Search functions"));
  m_search->setClearButtonEnabled(true);
  m_search->installEventFilter(this);
  m_tree->setAccessibleName(tr("Functions"));
  m_tree->setHeaderHidden(true);
  m_tree->setFrameShape(QFrame::NoFrame);
  m_tree->setUniformRowHeights(true);
  m_signature->setWordWrap(true);
  m_signature->setMargin(6);
  m_signature->setTextFormat(Qt::PlainText);
  m_signature->setTextInteractionFlags(Qt::TextSelectableByMouse);
  m_signature->setAccessibleName(tr("Signature"));

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  auto* searchRow = new QVBoxLayout;
  searchRow->setContentsMargins(6, 6, 6, 6);
  searchRow->addWidget(m_search);
  column->addLayout(searchRow);
  column->addWidget(m_tree, 1);
  column->addWidget(m_signature);
  setFocusProxy(m_tree);
  fill(samples);

  connect(m_search, &QLineEdit::textChanged, this, &FunctionTree::filter);
  connect(m_search, &QLineEdit::returnPressed, this, [this] {
    m_tree->setFocus(Qt::OtherFocusReason);
    if (!chosen().isEmpty())
      emit functionActivated(chosen());
  });
  connect(m_tree, &QTreeWidget::currentItemChanged, this, [this] {
    showSignature();
    if (!chosen().isEmpty())
      emit functionChosen(chosen());
  });
  // A click on the chosen one brings its call back where another script is shown.
  connect(m_tree, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
    if (!functionOf(item).isEmpty())
      emit functionChosen(functionOf(item));
  });
  connect(m_tree, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) {
    if (!functionOf(item).isEmpty())
      emit functionActivated(functionOf(item));
  });
}

void FunctionTree::fill(const QVector<Sample>& samples) {
  QHash<QString, Sample> sampleOf;
  for (const Sample& sample : samples)
    sampleOf.insert(sample.name, sample);

  QMap<QString, QVector<const FunctionInfo*>> families;
  for (const FunctionInfo& function : m_table->functions()) {
    const QString family = sampleOf.value(function.name).family;
    const bool isCommand = function.kind == FunctionInfo::Kind::Command;
    families[!family.isEmpty() ? family
             : isCommand       ? tr("Commands")
                               : tr("Other")]
        .append(&function);
  }
  for (auto family = families.cbegin(); family != families.cend(); ++family) {
    auto* parent = new QTreeWidgetItem(m_tree, {family.key()});
    QFont bold = m_tree->font();
    bold.setBold(true);
    parent->setFont(0, bold);
    parent->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    for (const FunctionInfo* function : family.value()) {
      const Sample sample = sampleOf.value(function->name);
      auto* item = new QTreeWidgetItem(parent, {function->name});
      item->setData(0, functionRole, function->name);
      item->setData(
          0, searchRole,
          QStringList{function->name, family.key(), sample.purpose}.join(QLatin1Char(' ')));
      const QString signature = signatureText(*function);
      item->setToolTip(0, sample.purpose.isEmpty()
                              ? signature
                              : signature + QStringLiteral("\n\n") + sample.purpose);
    }
  }
  m_tree->expandAll();
}

void FunctionTree::filter(const QString& text) {
  const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
  QTreeWidgetItem* first = nullptr;
  for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
    QTreeWidgetItem* family = m_tree->topLevelItem(i);
    bool isAnyShown = false;
    for (int j = 0; j < family->childCount(); ++j) {
      QTreeWidgetItem* item = family->child(j);
      const QString searched = item->data(0, searchRole).toString();
      const bool isShown =
          std::all_of(words.begin(), words.end(), [&searched](const QString& word) {
            return searched.contains(word, Qt::CaseInsensitive);
          });
      item->setHidden(!isShown);
      isAnyShown |= isShown;
      // Typing the name of a function chooses it, so that Return opens it.
      if (isShown && (!first || item->text(0).compare(text.trimmed(), Qt::CaseInsensitive) == 0))
        first = item;
    }
    family->setHidden(!isAnyShown);
  }
  const QTreeWidgetItem* current = m_tree->currentItem();
  if (first && !words.isEmpty() &&
      (!current || current->isHidden() || functionOf(current).isEmpty()))
    m_tree->setCurrentItem(first);
}

bool FunctionTree::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress)
    return QWidget::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_Down || key == Qt::Key_Up) {
    m_tree->setFocus(Qt::OtherFocusReason);
    return true;
  }
  if (key == Qt::Key_Escape && !m_search->text().isEmpty()) {
    m_search->clear();
    return true;
  }
  return false;
}

void FunctionTree::showSignature() {
  const FunctionInfo* function = m_table->find(chosen());
  m_signature->setText(function ? signatureText(*function) : QString());
}

QString FunctionTree::functionOf(const QTreeWidgetItem* item) {
  return item ? item->data(0, functionRole).toString() : QString();
}

QString FunctionTree::chosen() const {
  return functionOf(m_tree->currentItem());
}

void FunctionTree::choose(const QString& function) {
  for (int i = 0; i < m_tree->topLevelItemCount(); ++i)
    for (int j = 0; j < m_tree->topLevelItem(i)->childCount(); ++j)
      if (functionOf(m_tree->topLevelItem(i)->child(j)) == function)
        m_tree->setCurrentItem(m_tree->topLevelItem(i)->child(j));
}

void FunctionTree::focusSearch() {
  m_search->setFocus(Qt::ShortcutFocusReason);
  m_search->selectAll();
}
