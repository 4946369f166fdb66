#include "DriverHarness.h"

#include <QApplication>
#include <QClipboard>

// The members of the wrapper, one by one, on every kind of widget.

namespace {

TEST_F(Driving, ReadsPropertiesAndNames) {
  check({
      {"return [d.name, d.title, d.className, d.modal, d.isOpen]",
       R"(["fixture","Every Widget","FixtureDialog",true,true])"},
      {"d.accept(); return d.isOpen", "false"},
      {"return ['edit','spinner','inOptions','okButton','kind'].every(n => d.names().includes(n))",
       "true"},
      {"return d.names().filter(n => n.startsWith('qt_'))", "[]"},
      {"return [d.has('edit'), d.has('nothing'), d.has('Spinner:2'), d.has('Spinner:3'), "
       "d.has('twin:1'), d.has('twin:2'), d.has('Spinner:x'), d.has('')]",
       "[true,false,true,false,true,false,false,false]"},
      // the second one is in a cell; line edits inside of spinners do not count
      {"return d.get('Spinner:1','className') + d.get('QLineEdit:1','text')", R"("Spinnerfixed")"},
      // numbers stay as they are when pages change places behind the scenes
      {"const n = d.get('EditBox:3','accessibleName'); d.tab('Long'); d.tab('Fields'); "
       "d.tab('Choices'); return d.visible('EditBox:0') + ' ' + d.visible('EditBox:4')",
       R"("false false")"},
      {"return d.get('twin', 'visible') + ' ' + d.get('twin:1', 'visible')", R"("false false")"},
      {"d.tab('Choices'); return [d.visible('twin'), d.visible('twin:1')]", "[true,false]"},
      {"return d.get('nothing', 'text')", "!nothing|Every Widget|there are|edit|in all"},
      {"return d.get('edit', 'nothing')", "!nothing|edit|stringValue"},
      {"return d.text()", "!name is missing"},
      {"return [d.get('spinner','max') == 1e100, d.get('spinner','engMode'), "
       "d.get('infoLabel','info'), d.get('okButton','shortcut')]",
       R"([true,true,"More of it","Alt+O"])"},
      {"return d.get('infoLabel', 'heightForWidth') <= d.get('infoLabel', 'size').height", "true"},
      {"return [d.text('spinner'), d.value('spinner'), d.text('okButton'), d.text('readOnly')]",
       R"(["4.7k",4700,"&Ok","fixed"])"},
      {"return [d.value('check'), d.value('slider'), d.value('combo'), d.checked('third')]",
       "[0,0,0,true]"},
      {"return d.checked('edit')", "!edit|cannot be checked"},
      {"return d.value('readOnly')", "!readOnly|no value"},
      {"return [d.enabled('disabled'), d.enabled('hidden'), d.visible('hidden'), "
       "d.visible('combo'), d.visible('edit')]",
       "[false,true,false,false,true]"},
      {"return d.enabled('nothing')", "!nothing|there are"},
  });
}

TEST_F(Driving, TypesAndSetsFields) {
  check({
      {"d.type('edit', 'abc'); d.type('edit', 'Ünïcode µΩ 😀 {x}'); return [d.text('edit'), "
       "d.focused(), test.log()]",
       R"(["Ünïcode µΩ 😀 {x}","edit",""])"},
      {"d.type('edit', 'x'); d.type('edit', ''); return d.text('edit')", R"("")"},
      {"d.type('edit', 'a\\nb')", "!line break"},
      {"d.type('edit', 12.5); return d.text('edit')", R"("12.5")"},
      {"d.type('memo', 'one\\n\\ttwo\\r\\nthree'); return d.text('memo')",
       R"("one\n\ttwo\nthree")"},
      {"d.set('rich', 'plain'); return [d.text('rich'), d.focused() != 'rich']",
       R"(["plain",true])"},
      {"const t = 'line of text, '.repeat(20000); d.type('memo', t); return d.text('memo') == t",
       "true"},
      {"d.set('edit', 'done'); return [test.log(), d.focused() != 'edit']",
       R"(["edit=done",true])"},
      {"d.set('spinner', '2Meg'); return [d.text('spinner'), d.value('spinner'), test.log()]",
       R"(["2Meg",2000000,"spinner=2Meg"])"},
      {"d.set('spinner', 1e-9); return d.value('spinner')", "1e-9"},
      {"d.type('spinner', '5'); return [d.focused(), test.log()]", R"(["spinner",""])"},
      {"d.set('spinBox', 42); return [d.value('spinBox'), d.text('spinBox'), test.log()]",
       R"([42,"42 mm","spinBox=42"])"},
      {"d.set('doubleBox', 2.5); return d.value('doubleBox')", "2.5"},
      {"d.set('slider', 44); return d.value('slider')", "44"},
      {"d.set('slider', 97); d.set('slider', 13); return d.value('slider')", "13"},
      {"d.set('slider', 98)", "!slider|0 to 97"},
      {"d.set('slider', 1/0)", "!whole number"},
      {"d.set('readOnly', 'x')", "!readOnly|read-only"},
      {"d.type('readOnly', 'x')", "!readOnly|read-only"},
      {"d.set('hidden', 'x')", "!hidden"},
      {"d.type('disabled', 'x')", "!disabled"},
      {"d.set('combo', 'alpha')", "!combo|hidden"}, // on a page behind
      {"d.set('nothing', 'x')", "!nothing|there are"},
      {"d.set('edit')", "!value is missing"},
      {"d.set('area', 1)", "!hidden"},
      {"d.set('cover', 1)", "!cover|takes no value"},
  });
}

TEST_F(Driving, SetsChoices) {
  check({
      {"d.tab('Choices'); d.set('combo', 'gamma'); d.set('combo', 2); d.set('combo', 0); "
       "return [d.text('combo'), test.log()]",
       R"(["alpha","combo:2 combo:2 combo:0"])"},
      {"d.tab('Choices'); d.set('combo', 'delta')", "!combo|delta|alpha, beta, gamma"},
      {"d.tab('Choices'); d.set('combo', 3)", "!combo|3"},
      {"d.tab('Choices'); d.set('combo', 'beta')", "!beta|disabled"},
      {"d.tab('Choices'); d.set('editable', 'beta'); const l = test.log(); "
       "d.set('editable', 'own'); return [l, d.text('editable'), d.get('editable','currentText')]",
       R"(["editable:1","own","own"])"},
      {"d.tab('Choices'); d.key('editable', 'Down'); return d.focused()", R"("editable")"},
      {"d.tab('Choices'); d.set('check', true); d.set('check', true); d.set('check', false); "
       "return [d.checked('check'), test.log()]",
       R"([false,"check=1 check=0"])"},
      {"d.tab('Choices'); d.set('third', false); const a = d.get('third','checked'); "
       "d.set('third', true); return [a, d.get('third', 'checked')]",
       "[false,true]"},
      {"d.tab('Choices'); d.set('RadioButton:1', true); const a = d.value('group'); "
       "d.set('group', 2); return [a, d.value('group'), d.checked('RadioButton:1')]",
       "[1,2,false]"},
      {"d.tab('Choices'); d.set('RadioButton:1', true); d.set('RadioButton:1', false)",
       "!RadioButton|unchecked"},
      {"d.tab('Choices'); d.set('group', 3)", "!group|3"},
      {"d.tab('Choices'); d.set('inOptions', 'x')", "!inOptions|disabled"},
      {"d.tab('Choices'); d.set('options', true); d.set('inOptions', 'x'); "
       "return [d.checked('options'), d.text('inOptions')]",
       R"([true,"x"])"},
      {"d.tab('Choices'); d.click('options'); return d.checked('options')", "true"},
      {"d.tab('Choices'); return d.items('combo')", R"(["alpha","beta","gamma"])"},
      {"d.tab('Choices'); d.current('combo', 2); return d.current('combo')", "2"},
      {"d.set('okButton', true)", "!okButton|cannot be checked"},
      {"d.tab('Long'); d.set('CheckBox:40', true); return d.checked('CheckBox:40')", "true"},
      {"d.tab('Long'); d.set('last', 'x'); return d.text('last')", R"("x")"},
  });
}

TEST_F(Driving, ClicksAndPresses) {
  check({
      {"d.click('add'); d.press('Add…'); d.press('&Add…'); return test.log()", R"("add add add")"},
      {"d.click('add'); d.click('add'); d.doubleClick('add'); return test.log()",
       R"("add add add add")"},
      {"d.press('Nothing')", "!Nothing|Add…|Cancel"},
      {"d.press('Off')", "!off|disabled"},
      {"d.click('off')", "!off|disabled"},
      {"d.click('hidden')", "!hidden"},
      {"d.click('nothing')", "!nothing|there are"},
      {"d.click('covered')", "!covered|cover"},
      {"d.click('edit', 0)", "!edit|not a list"},
      {"d.click('infoLabel'); const shown = test.hasPopup(); d.click('add'); "
       "return shown + test.log()",
       R"("trueadd")"},
      {"d.press('Ok'); return d.isOpen", "false"},
      {"d.press('Ok'); d.press('Ok')", "!closed"},
      {"test.onDialog(m => { m.press('Copy') }); d.click('menuButton'); return test.log()",
       R"("copy")"},
      {"test.onDialog(m => { try { m.press('Paste') } catch (e) { m.reject() } }); "
       "d.click('menuButton'); return test.log() + d.isOpen",
       R"("true")"},
  });
}

TEST_F(Driving, PlaysKeys) {
  QApplication::clipboard()->setText(text("clip"));
  check({
      {"d.key('edit', 'Ctrl+V'); d.key('edit', 'a'); d.key('edit', 'Shift+B'); "
       "return d.text('edit')",
       R"("clipaB")"},
      {"d.key(null, 'Ctrl+K'); d.key('memo', 'Ctrl+K'); return test.log()", R"("Ctrl+K Ctrl+K")"},
      {"d.key('edit', 'Tab'); const a = d.focused(); d.key(null, 'Shift+Tab'); "
       "return [a, d.focused()]",
       R"(["readOnly","edit"])"},
      {"d.key(null, 'Alt+S'); return d.focused()", R"("spinner")"},
      {"d.key(null, 'Alt+A'); return test.log()", R"("add")"},
      {"d.key('spinner', 'Up'); return d.value('spinner')", "5000"},
      {"d.key('Spinner:1', 'Up'); return d.focused()", R"("Spinner:1")"},
      {"d.key(null, 'F1'); return test.log()", R"("key1000030")"},
      {"d.key(null, 'Alt+C'); return d.tab()", R"("Choices")"},
      {"d.tab('Choices'); d.key('combo', 'Alt+Down'); d.key('combo', 'End'); "
       "d.key('combo', 'Return'); return d.text('combo') + test.log()",
       R"("gammacombo:2")"},
      {"d.key('edit', 'Nonsense')", "!Nonsense"},
      {"d.key('edit', '')", "!not a key"},
      {"d.key('disabled', 'a')", "!disabled"},
      {"d.key('cover', 'a')", "!cover|takes no keys"},
      {"d.tab('Views & cells'); d.click('list', 1); d.key('list', 'Down'); "
       "return [d.current('list'), d.focused()]",
       R"([2,"list"])"},
  });
  drive(text("d.key('edit', 'Alt+O')"));
  EXPECT_EQ(result, int(QDialog::Accepted));
  drive(text("d.key('edit', 'Return')"));
  EXPECT_EQ(result, int(QDialog::Accepted));
  drive(text("d.key(null, 'Escape')"));
  EXPECT_EQ(result, int(QDialog::Rejected));
}

TEST_F(Driving, EndsDialogs) {
  const struct {
    const char* body;
    int result;
  } cases[] = {
      {"d.accept()", QDialog::Accepted},
      {"d.click('cancelButton')", QDialog::Rejected},
      {"d.key('add', 'Tab'); d.accept()", QDialog::Accepted}, // not the button that has the focus
      {"d.reject()", QDialog::Rejected},
      {"d.close()", QDialog::Rejected},
      {"d.tab('Choices'); d.key('combo', 'Alt+Down'); d.reject()", QDialog::Rejected},
      {"d.tab('Views & cells'); d.click('table', 0, 0); d.key('table', 'F2'); d.reject()",
       QDialog::Rejected},
      {"d.type('spinner', '7'); d.accept()", QDialog::Accepted},
  };
  for (const auto& one : cases) {
    EXPECT_EQ(drive(text(one.body) + text("; return d.isOpen")), text("false")) << one.body;
    EXPECT_EQ(result, one.result) << one.body;
  }
  EXPECT_EQ(driver.failures(), QStringList());
}

#define VIEWS "d.tab('Views & cells'); "

TEST_F(Driving, ReadsItemViews) {
  check({
      {"return [d.items('list').length, d.items('list')[3], d.rows('list'), d.columns('list')]",
       R"([40,"line 3",40,1])"},
      {"return [d.items('tree'), d.headers('tree'), d.rows('tree'), d.columns('tree')]",
       R"([["top0","child00","child01","top1","child10","child11","top2","child20","child21"],["Name","Unit"],9,2])"},
      {"return [d.rows('table'), d.columns('table'), d.headers('table')]",
       R"([30,4,["Part","Value","Kind","Use"]])"},
      {"return [d.table('table')[0], d.table('tree')[1], d.table('single')[1]]",
       R"([["a0","b0","npn","use"],["child00","V"],["line 1"]])"},
      {"return [d.cell('tree', 4, 1), d.cell('list', 2, 0), d.cell('table', 29, 1)]",
       R"(["V","line 2","b29"])"},
      {"return d.cell('table', 30, 0)", "!table|30"},
      {"return d.cell('table', 0, 4)", "!table|30 rows and 4 columns"},
      {"return d.cell('table', -1, 0)", "!from 0"},
      {"return d.cell('table', 0.5, 0)", "!whole number"},
      {"return d.items('edit')", "!edit|not a list"},
      {"return d.cellInfo('table', 0, 3)",
       R"({"background":"#a0b0c0","bold":true,"checkable":true,"checked":false,"editable":true,)"
       R"("enabled":true,"foreground":"#102030","hidden":false,)"
       R"("kind":"(anonymous namespace)::PartItem","text":"use","toolTip":"tip"})"},
      {"const i = d.cellInfo('table', 2, 1); "
       "return [i.enabled, i.editable, i.foreground.length, i.bold]",
       "[false,false,7,false]"},
      {"return [d.cellInfo('table', 5, 0).hidden, d.cellInfo('table', 0, 2).kind, "
       "d.cellInfo('table', 1, 2).kind, d.cellInfo('table', 3, 3).kind, "
       "d.cellInfo('tree', 1, 0).kind, d.cellInfo('list', 4, 0).hidden]",
       R"([true,"ComboBox","CheckBox","","QTreeWidgetItem",true])"},
      {"return [d.current('table'), d.current('tree'), d.current('single')]", "[[-1,-1],-1,-1]"},
  });
}

TEST_F(Driving, ActsOnItemViews) {
  check({
      {VIEWS "d.click('list', 30); return [d.current('list'), d.text('list')]",
       R"([30,"line 30"])"},
      {VIEWS "d.click('table', 25, 1); return d.current('table')", "[25,1]"},
      {VIEWS "d.current('table', 7, 3); return d.current('table')", "[7,3]"},
      {VIEWS "d.click('tree', 8, 1); return [d.current('tree'), d.focused()]", R"([8,"tree"])"},
      {VIEWS "d.doubleClick('list', 2); return test.log()", R"("double=line 2")"},
      {VIEWS "d.click('list', 2); d.click('list', 2); return test.log()", R"("")"},
      {VIEWS "d.click('list', 3)", "!list|3|disabled"},
      {VIEWS "d.click('list', 4)", "!list|4|hidden"},
      {VIEWS "d.click('list', 40)", "!list|40"},
      {VIEWS "d.click('table', 5, 0)", "!table|hidden"},
      {"d.click('table', 0, 0)", "!table|hidden"}, // on a page behind

      {VIEWS "d.cell('table', 20, 1, 'new'); return [d.cell('table', 20, 1), test.log(), d.isOpen]",
       R"(["new","cell=new",true])"},
      {VIEWS "d.cell('table', 0, 0, 'x'); d.cell('table', 0, 0, ''); d.cell('table', 4, 3, 12); "
             "return [d.cell('table', 0, 0), d.cell('table', 4, 3)]",
       R"(["","12"])"},
      {VIEWS "d.cell('tree', 2, 1, 'mV'); return d.cell('tree', 2, 1)", R"("mV")"},
      {VIEWS "d.cell('tree', 1, 0, 'x')", "!tree|not editable"},
      {VIEWS "d.cell('table', 1, 1, 'x')", "!table|not editable"},
      {VIEWS "d.cell('table', 0, 3, true); const a = d.cellInfo('table', 0, 3).checked; "
             "d.cell('table', 0, 3, false); return [a, d.cellInfo('table', 0, 3).checked]",
       "[true,false]"},
      {VIEWS "d.cell('table', 0, 0, true)", "!table|no check box"},
      {VIEWS "d.cell('table', 0, 2, 'pnp'); d.cell('table', 1, 2, true); "
             "d.cell('table', 2, 2, '3k'); "
             "return [d.cell('table', 0, 2), d.cellInfo('table', 1, 2).checked, "
             "d.cell('table', 2, 2), d.text('kind')]",
       R"(["pnp",true,"3k","pnp"])"},
      {VIEWS "d.click('table', 0, 0); d.key('table', 'F2'); d.key(null, 'z'); "
             "return [d.focused(), d.cell('table', 0, 0, 'end'), d.cell('table', 0, 0), "
             "d.current('table'), test.log()]",
       R"(["table",null,"end",[0,0],"cell=z cell=end"])"},
  });
}

TEST_F(Driving, ChoosesSelections) {
  // what is chosen, read back as the rows whose items are selected
  check({
      {VIEWS
       "d.choose('list', [1, 'line 30', 2, 1]); d.choose('list', [5, 0]); d.choose('list', [])"
       "; d.choose('list', [6, 7]); return d.current('list')",
       "7"},
      {VIEWS "d.choose('single', [1]); d.choose('single', [3]); d.choose('single', []); "
             "d.choose('single', 'line 9'); return d.current('single')",
       "9"},
      {VIEWS "d.choose('single', [1, 2])", "!single|2"},
      {VIEWS "d.choose('multi', [1, 2, 3]); d.choose('multi', [3, 8]); return d.current('multi')",
       "8"},
      {VIEWS "d.choose('tree', ['child11', 'top0']); return d.current('tree')", "0"},
      {VIEWS "d.choose('table', [[0, 1], [20, 0]]); return d.current('table')", "[20,0]"},
      {VIEWS "d.choose('table', [8, 2]); return d.current('table')[0]", "2"},
      {VIEWS "d.choose('table', [[0]])", "![row, column]"},
      // nothing, after cells one by one, after whole rows, after both
      {VIEWS "d.choose('table', [[0, 1], [20, 0], [20, 1]]); d.choose('table', []); return 1", "1"},
      {VIEWS "d.choose('table', [8, 0]); d.choose('table', []); d.choose('table', []); return 1",
       "1"},
      {VIEWS
       "d.choose('table', [8]); d.choose('table', [[7, 0]]); d.choose('table', [[9, 3], [8, 1]]);"
       "d.choose('table', [6, 2]); d.choose('table', [[6, 0]]); d.choose('table', []); return 1",
       "1"},
      {VIEWS "d.choose('list', ['nothing'])", "!list|nothing|line 0|in all"},
      {VIEWS "d.choose('list', [3])", "!list|3|disabled"},
      {VIEWS "d.choose('list', [99])", "!list|99"},
      {VIEWS "d.choose('list')", "!missing"},
  });
}

TEST_F(Driving, ChangesTabs) {
  check({
      {"return [d.tab(), d.tabs()]",
       R"(["Fields",["Fields","Choices","Views & cells","Long","Disabled"]])"},
      {"return [d.tab('&Long'), d.tab(1), d.tab('Views & cells'), d.tab('Fields')]",
       R"(["Long","Choices","Views & cells","Fields"])"},
      {"d.tab('Nowhere')", "!Nowhere|Fields, Choices"},
      {"d.tab(9)", "!9"},
      {"d.tab('Disabled')", "!Disabled|disabled"},
      {"d.tab('Long'); d.tab('Sheet 29'); const a = d.text('manyTabs'); d.tab('Sheet 2'); "
       "return [a, d.text('manyTabs'), d.tab()]",
       R"(["Sheet 29","Sheet 2","Long"])"},
  });
}

} // namespace
