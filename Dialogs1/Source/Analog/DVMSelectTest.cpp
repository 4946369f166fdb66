#include "Analog/DVMSelectTest.h"

#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/Captions.h"
#include "Pieces/ListRows.h"

namespace {

enum Argument { Lines, Settings };
enum Setting { WindowTitle, Heading };

void copyCheckState(const QTreeWidgetItem* item) {
  for (int i = 0; i < item->childCount(); ++i) {
    item->child(i)->setCheckState(0, item->checkState(0));
    copyCheckState(item->child(i));
  }
}

} // namespace

template <bool IsVoltmeter> static int runSelectTest(UserFunctionInterface* call) {
  DVMSelectTest dialog;
  if (!IsVoltmeter)
    dialog.setWindowTitle(DVMSelectTest::tr("Select Test"));
  dialog.runDialog(call, UserString);
  return 0;
}

static const ScriptFunction declaration("DVMSelectTest", 1, "SS", StringVectorResult,
                                        runSelectTest<true>);
static const ScriptFunction declarationPlain("SelectTest", 1, "SS", StringVectorResult,
                                             runSelectTest<false>);

DVMSelectTest::DVMSelectTest() : KelvarinDialog(nullptr, "DVMSelectTest", true, {}) {
  form.setupUi(this);
  QTreeWidget* tree = form.dvmSelectListView;
  tree->setItemDelegate(new OneLineDelegate(tree));
  connect(tree, &QTreeWidget::itemClicked, this, &DVMSelectTest::slotItemClicked);
  connect(tree, &QTreeWidget::itemChanged, this, &DVMSelectTest::itemChanged);
}

void DVMSelectTest::initialiseDialog() {
  const Texts settings = texts(Settings);
  setWindowTitle(shownCaption(settings.text(WindowTitle, windowTitle())));
  QTreeWidget* tree = form.dvmSelectListView;
  const Updating guard(this);
  if (!settings.text(Heading).isEmpty())
    tree->headerItem()->setText(0, rowText(settings.text(Heading)));

  tests = TestTree(texts(Lines));
  QList<QTreeWidgetItem*> top;
  for (const TestTree::Node& node : tests.nodes()) {
    auto* item = new QTreeWidgetItem(QStringList(toQs(node.text)));
    item->setFlags(Qt::ItemIsUserCheckable | Qt::ItemIsEnabled);
    item->setCheckState(0, Qt::Unchecked);
    items.push_back(item);
    if (node.parent < 0)
      top.append(item);
    else
      items[static_cast<std::size_t>(node.parent)]->addChild(item);
  }
  tree->addTopLevelItems(top);
  tree->expandAll();
  tree->resizeColumnToContents(0);
  tree->setCurrentItem(tree->topLevelItem(0));
  resizeToContents(this);
}

void DVMSelectTest::readDialog(UserDataType, bool accepted) {
  if (!accepted)
    return;
  TextVector result;
  for (int leaf : tests.leaves()) {
    const bool isOn = items[static_cast<std::size_t>(leaf)]->checkState(0) == Qt::Checked;
    const YString line = YString(isOn ? "on;" : "off;").concat(tests.path(leaf));
    result.append(line);
  }
  setTextsResult(result);
}

void DVMSelectTest::slotItemClicked(QTreeWidgetItem* item, int) {
  const Updating guard(this);
  copyCheckState(item);
}

void DVMSelectTest::itemChanged(QTreeWidgetItem* item, int column) {
  // The space bar does what a click does.
  if (!updating)
    slotItemClicked(item, column);
}
