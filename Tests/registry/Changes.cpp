#include "Changes.h"

#include "Drive/DialogDriver.h"
#include "Drive/DriveError.h"
#include "Drive/InputPlayer.h"
#include "Drive/ItemCells.h"
#include "Drive/WidgetFinder.h"
#include "Drive/WidgetValues.h"
#include "HostWidgets/Spinner.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTextEdit>

namespace {

constexpr int rowsTried = 12;

// ---- pages --------------------------------------------------------------------------------------

bool isPageHolder(const QWidget* widget) {
  return qobject_cast<const QTabWidget*>(widget) ||
         (qobject_cast<const QStackedWidget*>(widget) &&
          !qobject_cast<const QTabWidget*>(widget->parentWidget()));
}

/// The outermost ones below `parent` that are in sight.
QVector<QWidget*> pageHolders(const QWidget* parent) {
  QVector<QWidget*> found;
  for (QWidget* widget : parent->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    if (!widget->isVisible() || widget->isWindow())
      continue;
    if (isPageHolder(widget))
      found.append(widget);
    else
      found += pageHolders(widget);
  }
  return found;
}

/// False where a user could not bring the page to the front.
bool bringPage(QWidget* holder, int page) {
  if (auto* stack = qobject_cast<QStackedWidget*>(holder))
    stack->setCurrentIndex(page);
  else if (auto* tabs = qobject_cast<QTabWidget*>(holder);
           !tabs->isTabEnabled(page) || !tabs->isTabVisible(page) || !bringTab(tabs, page))
    return false;
  InputPlayer::settle();
  return true;
}

void visitPages(const QWidget* area, const std::string& name,
                const std::function<void(const std::string&)>& look) {
  const QVector<QWidget*> holders = pageHolders(area);
  if (holders.isEmpty())
    look(name);
  for (QWidget* holder : holders) {
    const int front = holder->property("currentIndex").toInt();
    const int count = holder->property("count").toInt();
    for (int step = 0; step < count; ++step) { // the one in front first, as the dialog opened
      const int page = (front + step) % count;
      if (page != front && !bringPage(holder, page))
        continue;
      const auto* tabs = qobject_cast<QTabWidget*>(holder);
      const QWidget* inFront =
          tabs ? tabs->currentWidget() : static_cast<QStackedWidget*>(holder)->currentWidget();
      visitPages(inFront, name + "/" + inFront->objectName().toStdString(), look);
    }
    if (count > 1)
      bringPage(holder, front);
  }
}

// ---- what a widget holds ------------------------------------------------------------------------

QString stateOfView(const QAbstractItemView* view) {
  QStringList parts;
  const std::function<void(const QModelIndex&)> add = [&](const QModelIndex& parent) {
    const int rows = view->model()->rowCount(parent);
    for (int row = 0; row < rows; ++row) {
      for (int column = 0; column < view->model()->columnCount(parent); ++column) {
        const QModelIndex cell = view->model()->index(row, column, parent);
        parts << cell.data().toString() << cell.data(Qt::CheckStateRole).toString()
              << QString::number(view->selectionModel() &&
                                 view->selectionModel()->isSelected(cell));
      }
      add(view->model()->index(row, 0, parent));
    }
  };
  add({});
  return parts.join(QLatin1Char('|'));
}

QString stateOfWidget(const QWidget* widget) {
  if (const auto* view = qobject_cast<const QAbstractItemView*>(widget))
    return view->model() ? stateOfView(view) : QString();
  if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
    return button->isCheckable() ? QString::number(button->isChecked()) : button->text();
  if (const auto* box = qobject_cast<const QGroupBox*>(widget))
    return box->isCheckable() ? QString::number(box->isChecked()) : QString();
  if (const auto* slider = qobject_cast<const QAbstractSlider*>(widget))
    return qobject_cast<const QScrollBar*>(widget) ? QString() : QString::number(slider->value());
  const auto* combo = qobject_cast<const QComboBox*>(widget);
  const QString row = combo ? QString::number(combo->currentIndex()) : QString();
  return hasWidgetText(widget) ? row + widgetText(widget) : row;
}

// ---- what a user does to a widget ---------------------------------------------------------------

/// One way to change a widget; `change` tries it once with the n-th of its values.
struct Way {
  const char* name;
  bool (*offers)(const QWidget* widget);
  void (*change)(DialogActions& dialog, const QString& name, QWidget* widget, int n);
};

template <class... Classes> bool isA(const QWidget* widget) {
  return (qobject_cast<const Classes*>(widget) || ...);
}

QVariant textToType(int n) {
  static const char* const texts[] = {"4.7k", "3", "1", "x", "", "0.5", "A"};
  return QString::fromLatin1(texts[unsigned(n) % std::size(texts)]);
}

bool offersText(const QWidget* widget) {
  return isA<QLineEdit, QPlainTextEdit, QTextEdit>(widget) &&
         !widget->property("readOnly").toBool();
}
bool offersNumber(const QWidget* widget) {
  return isA<Spinner, QAbstractSpinBox>(widget) && !widget->property("readOnly").toBool();
}
void typeIn(DialogActions& dialog, const QString& name, QWidget*, int n) {
  dialog.set(name, textToType(n));
}

bool offersEntry(const QWidget* widget) {
  const auto* combo = qobject_cast<const QComboBox*>(widget);
  return combo && (combo->count() > 1 || combo->isEditable());
}
void pickOther(DialogActions& dialog, const QString& name, QWidget* widget, int n) {
  const auto* combo = static_cast<QComboBox*>(widget);
  if (combo->count() > 1)
    dialog.set(name, (std::max(combo->currentIndex(), 0) + 1 + n) % combo->count());
  else
    dialog.set(name, textToType(n));
}

bool offersTick(const QWidget* widget) {
  const auto* button = qobject_cast<const QAbstractButton*>(widget);
  const auto* box = qobject_cast<const QGroupBox*>(widget);
  return (button && button->isCheckable() && !isA<QRadioButton>(widget)) ||
         (box && box->isCheckable());
}
void tick(DialogActions& dialog, const QString& name, QWidget*, int) {
  dialog.set(name, !dialog.checked(name));
}

bool offersRadio(const QWidget* widget) {
  const auto* button = qobject_cast<const QRadioButton*>(widget);
  return button && !button->isChecked();
}
void clickIt(DialogActions& dialog, const QString& name, QWidget*, int) {
  dialog.click(name);
}

bool offersSlide(const QWidget* widget) {
  return isA<QAbstractSlider>(widget) && !isA<QScrollBar>(widget);
}
void slide(DialogActions& dialog, const QString& name, QWidget* widget, int n) {
  auto* slider = static_cast<QAbstractSlider*>(widget);
  dialog.set(name, n % 2 ? slider->minimum() : slider->maximum());
}

const QAbstractItemView* viewIn(const QWidget* widget) {
  const auto* view = qobject_cast<const QAbstractItemView*>(widget);
  return view && view->model() ? view : nullptr;
}
bool offersRow(const QWidget* widget) {
  const QAbstractItemView* view = viewIn(widget);
  return view && view->selectionMode() != QAbstractItemView::NoSelection &&
         ItemCells::of(const_cast<QWidget*>(widget)).rows() > 1;
}
void selectRow(DialogActions& dialog, const QString& name, QWidget*, int n) {
  dialog.click(name, n % dialog.rows(name), 0);
}

/// The n-th cell of the first rows that has the flag; none where there are fewer.
QModelIndex cellWith(const QAbstractItemView* view, Qt::ItemFlag flag, int n) {
  const QAbstractItemModel* model = view->model();
  for (int row = 0; row < std::min(model->rowCount(), rowsTried); ++row)
    for (int column = 0; column < model->columnCount(); ++column) {
      const QModelIndex cell = model->index(row, column);
      const bool has = (cell.flags() & Qt::ItemIsEnabled) && (cell.flags() & flag) &&
                       (flag != Qt::ItemIsUserCheckable || cell.data(Qt::CheckStateRole).isValid());
      if (has && n-- == 0)
        return cell;
    }
  return {};
}
bool opensEditors(const QAbstractItemView* view) {
  return view->editTriggers() != QAbstractItemView::NoEditTriggers;
}
bool offersCell(const QWidget* widget) {
  const QAbstractItemView* view = viewIn(widget);
  return view && opensEditors(view) && cellWith(view, Qt::ItemIsEditable, 0).isValid();
}
void editCell(DialogActions& dialog, const QString& name, QWidget* widget, int n) {
  const QModelIndex cell = cellWith(viewIn(widget), Qt::ItemIsEditable, n);
  if (cell.isValid())
    dialog.setCell(name, cell.row(), cell.column(), textToType(n));
}

bool offersMark(const QWidget* widget) {
  const QAbstractItemView* view = viewIn(widget);
  return view && cellWith(view, Qt::ItemIsUserCheckable, 0).isValid();
}
void markCell(DialogActions& dialog, const QString& name, QWidget* widget, int n) {
  const QModelIndex cell = cellWith(viewIn(widget), Qt::ItemIsUserCheckable, n);
  if (cell.isValid())
    dialog.setCell(name, cell.row(), cell.column(),
                   cell.data(Qt::CheckStateRole).toInt() != Qt::Checked);
}

constexpr Way ways[] = {
    {"field", offersText, typeIn},     {"number", offersNumber, typeIn},
    {"entry", offersEntry, pickOther}, {"tick", offersTick, tick},
    {"radio", offersRadio, clickIt},   {"slider", offersSlide, slide},
    {"row", offersRow, selectRow},     {"cell", offersCell, editCell},
    {"mark", offersMark, markCell},
};

/// Tries the way's values until one of them changes what the widget holds.
bool changes(DialogActions& dialog, const Way& way, QWidget* widget, int variant) {
  constexpr int tries = 4;
  const QPointer<QWidget> guard(widget);
  const QString before = stateOfWidget(widget);
  for (int n = variant; n < variant + tries && guard && dialog.isOpen(); ++n) {
    try {
      way.change(dialog, WidgetFinder(dialog.dialog()).nameOf(widget), widget, n);
    } catch (const DriveError&) {
      // A user could not have done this either.
    }
    if (!guard || stateOfWidget(widget) != before)
      return true;
  }
  return false;
}

using Done = std::set<std::pair<const Way*, QWidget*>>;

void changePage(DialogActions& dialog, int variant, Done* done, Changes* changed) {
  QVector<QPointer<QWidget>> widgets;
  for (QWidget* widget : WidgetFinder(dialog.dialog()).widgets())
    widgets.append(widget);
  for (const Way& way : ways)
    for (const QPointer<QWidget>& widget : qAsConst(widgets)) {
      if (!dialog.isOpen())
        return;
      if (!widget || !widget->isVisible() || !widget->isEnabled() || !way.offers(widget))
        continue;
      changed->offered.insert(way.name);
      if (done->insert({&way, widget}).second && changes(dialog, way, widget, variant))
        ++changed->made[way.name];
    }
}

} // namespace

void onEveryPage(DialogActions& dialog, const std::function<void(const std::string&)>& look) {
  visitPages(dialog.dialog(), dialog.name().toStdString(), look);
}

QString stateOf(const QWidget* dialog) {
  QStringList parts;
  for (const QWidget* widget : WidgetFinder(const_cast<QWidget*>(dialog)).widgets())
    if (!qobject_cast<const QTabWidget*>(widget)) // what is in front is no input
      parts << describeWidget(widget) + QLatin1Char('=') + stateOfWidget(widget);
  return parts.join(QLatin1Char('\n'));
}

int Changes::count() const {
  int sum = 0;
  for (const auto& [name, count] : made)
    sum += count;
  return sum;
}

std::string Changes::words() const {
  std::string text = std::to_string(count());
  const char* between = ": ";
  for (const auto& [name, count] : made) {
    text += between + name + " " + std::to_string(count);
    between = ", ";
  }
  return text;
}

std::string Changes::missed() const {
  std::string text;
  for (const std::string& name : offered)
    if (!made.count(name))
      text += name + " ";
  return text;
}

Changes changeFields(DialogActions& dialog, int variant) {
  Changes changed;
  Done done;
  onEveryPage(dialog, [&](const std::string&) { changePage(dialog, variant, &done, &changed); });
  return changed;
}

std::vector<Opener> openers(DialogActions& dialog) {
  static const QStringList others{
      QStringLiteral("okButton"),
      QStringLiteral("cancelButton"),
      QStringLiteral("closeButton"),
      QStringLiteral("helpButton"),
      QStringLiteral("createDirectoryButton"), // makes one at once, as it says
      QStringLiteral("toolButtonCheckSyntax"), // hands files to the simulator
  };
  const WidgetFinder finder(dialog.dialog());
  std::vector<Opener> found;
  for (QWidget* widget : finder.widgets()) {
    if (!widget->isVisible() || !widget->isEnabled())
      continue;
    const QString name = finder.nameOf(widget);
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    const QAbstractItemView* view = viewIn(widget);
    if (button && !button->isCheckable() && !others.contains(name) &&
        !qobject_cast<const QDialogButtonBox*>(button->parentWidget()))
      found.push_back({name.toStdString(), name, [](DialogActions&) {},
                       [name](DialogActions& d) { d.click(name); }});
    else if (view && !(view->currentIndex().flags() & Qt::ItemIsEditable))
      for (int row = 0; row < std::min(dialog.rows(name), rowsTried); ++row)
        found.push_back({name.toStdString() + ", row " + std::to_string(row), name,
                         [name, row](DialogActions& d) { d.setCurrent(name, row); },
                         [name](DialogActions& d) { d.key(name, QStringLiteral("F2")); }});
  }
  return found;
}

int useOpeners(DialogActions& dialog) {
  int used = 0;
  const auto acceptChanged = [](DialogActions& opened) {
    try {
      if (!qobject_cast<QMessageBox*>(opened.dialog())) {
        changeFields(opened);
        opened.accept();
      }
    } catch (const DriveError&) {
      // Its OK is grey.
    }
    if (opened.isOpen())
      opened.reject();
  };
  onEveryPage(dialog, [&](const std::string&) {
    for (const Opener& opener : openers(dialog)) {
      QString before;
      servingDialogs(acceptChanged, [&] {
        opener.prepare(dialog);
        before = stateOf(dialog.dialog());
        opener.use(dialog);
      });
      if (!dialog.isOpen())
        throw DriveError(
            QStringLiteral("%1 ended the dialog").arg(QString::fromStdString(opener.name)));
      used += stateOf(dialog.dialog()) != before;
    }
  });
  return used;
}

void servingDialogs(const std::function<void(DialogActions&)>& serve,
                    const std::function<void()>& action, int most) {
  DialogDriver* driver = DialogDriver::instance();
  driver->beginScope();
  for (int i = 0; i < most; ++i)
    driver->onDialog([&serve](QWidget* widget) {
      DialogActions opened(widget);
      serve(opened);
    });
  try {
    action();
  } catch (const DriveError&) {
    // Grey by now.
  }
  driver->endScope();
  const QStringList failures = driver->failures();
  driver->clearFailures();
  for (const QString& failure : failures)
    if (!failure.contains(QLatin1String("still waiting")))
      driver->fail(failure);
}
