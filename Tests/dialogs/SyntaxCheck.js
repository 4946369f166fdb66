// EditFileDefinedPWLDialog's syntax check with the host's own command and program.

const grid = "pwlGrid";
/// Opens the dialog on these lines, checks, and gives the box that came and the rows in red, with
/// what they say.
function checked(lines, settings = ["0", "0", "0", "scope.txt", "Disk"], isSilent = false) {
  const seen = { marks: {} };
  host.onDialog(d => {
    if (!isSilent)
      host.onDialog(m => { Object.assign(seen, m.message()); m.accept(); });
    d.click("toolButtonCheckSyntax");
    for (let row = 0; row < d.rows(grid); ++row) {
      const cell = d.cellInfo(grid, row, 0);
      if (cell.kind === "ErrorPWLTableItem")
        seen.marks[row] = cell.toolTip.replace(/^Line number \d+:\n\n/, "");
    }
    seen.first = d.cell(grid, 0, 0);
    d.reject();
  });
  EditFileDefinedPWLDialog(lines, settings);
  return seen;
}
const folder = host.tempDir();
host.writeFile(folder + "/more.txt", "0 1\n");

// --- what the program finds, as the dialog shows it ----------------------------------------------

const passed = "Syntax Check Passed";
const faulty = "Source definition file has errors";
for (const [name, lines, title, rows] of [
  ["good", ["START_DATA REPEAT_COUNT=2", "* c", "0 1", "1u {a}", "2u 3k"], passed, []],
  ["comma separated", ["START_DATA FORMAT=CSV", "0 1", "1 {a}"], passed, []],
  ["super data points", ["0 1", `1 file="${folder}/more.txt"`, `2 file="${folder}/none.txt"`],
    faulty, [2]],
  ["an expression with blanks", ["0 1", "1 {a + b}"], passed, []],
  ["every kind", ["0 1", "x 2", "1 y", "0.5 1", "2 1 1", "3", "4 4"], faulty, [1, 2, 3, 4, 5]],
  ["two start lines", ["START_DATA", "START_DATA", "0 1", "1 2"], faulty, [1]],
  ["no lines", [], "File is empty", []],
  ["one point", ["* c", "0 1"], "Less than two data points", []],
  ["one point, one fault", ["0 1", "x"], "Less than two data points", [1]],
  ["before the trigger", ["-1 1", "0 2"], faulty, [0]],
  ["more faults than are shown", ["0 1"].concat(new Array(40).fill("x y")), faulty,
    Array.from({ length: 20 }, (_, i) => i + 1)],
]) {
  const seen = checked(lines);
  equal(seen.title, title, name);
  equal(Object.keys(seen.marks).map(Number), rows, name);
}
equal(checked(["0 1", "x*y 2", "1 2"]).marks, { 1: "The time \"x\u2217y\" is not a number." });
check(checked([]).text.includes("scope.txt") && checked([]).text.includes("empty"), "the file");
equal(checked(["START_DATA FASTER", "0 1", "1 2"]).title, passed, "the controls write the line");
const device = ["0", "0", "0", "s", "Disk", "0"];
equal(checked(["0 1", "x 2"], device.concat("V \u00e9 1")).title, faulty, "any device name");
equal(checked(["0 1", "1 2"], device.concat("*V")).title, faulty, "a deck without a source");
equal(checked(["0 1"].concat(new Array(50000).fill("{t} 1"))).title, passed, "a long file");
equal(checked(["0 " + "1".repeat(1e5), "1 2", "2 2"]).marks[0].length < 200, true, "a long line");

// --- a correction, and the check again ------------------------------------------------------------

host.onDialog(d => {
  for (const [text, title] of [["x", faulty], ["1", passed], ["0", faulty]]) {
    d.cell(grid, 1, 0, text);
    host.onDialog(m => { equal(m.title, title, text); m.accept(); });
    d.click("toolButtonCheckSyntax");
    equal(d.cellInfo(grid, 1, 0).kind === "ErrorPWLTableItem", title === faulty, text);
  }
  d.cell(grid, 1, 0, "1");
  host.onDialog(m => { equal(m.title, passed); m.accept(); });
  d.click("toolButtonCheckSyntax");
  d.key(grid, "Ctrl+Z");
  equal(d.cell(grid, 1, 0), "0", "a check that finds nothing is no step");
  host.clipboard("1,5\t2");
  d.key(grid, "Ctrl+V");
  check(/Nothing was pasted.*\S+ \S+/.test(d.text("pointNote")), d.text("pointNote"));
  d.reject();
});
EditFileDefinedPWLDialog(["0 1", "1 2"], ["0", "0", "0", "scope.txt", "Disk"]);

host.onDialog(d => {
  d.cell(grid, 0, 0, "START_DATA FASTER");
  host.onDialog(m => { equal(m.title, faulty, "an unknown keyword"); m.accept(); });
  d.click("toolButtonCheckSyntax");
  equal(d.cell(grid, 0, 0), "START_DATA", "the controls write the line anew");
  d.reject();
});
EditFileDefinedPWLDialog(["9 9", "0 1", "1 2"], ["0", "0", "0", "scope.txt", "Disk"]);

// --- programs that fail: the dialog says so and stays usable --------------------------------------

for (const [program, words] of [
  ["/bin/sh -c \"exec sleep 60\"", "has not ended within 0.5 s"],
  ["/bin/sh -c \"kill -SEGV $$\"", "crashed"],
  ["/bin/sh -c \"echo out of order >&2; exit 1\"", "status 1. out of order"],
  [folder + "/none", "could not be started"],
]) {
  host.option("SimulatorProgram", program);
  host.option("SimulatorTimeLimit", words.includes("0.5 s") ? 0.5 : null);
  const began = host.now();
  let raised = "";
  try {
    host.onDialog(d => d.click("toolButtonCheckSyntax"));
    EditFileDefinedPWLDialog(["0 1", "x 2"], ["0", "0", "0", "scope.txt", "Disk"]);
  } catch (error) { raised = error.message; }
  check(raised.includes("RunBRENNIX: ") && raised.includes(words), words + ": " + raised);
  check(host.now() - began < 5000, words);
}
host.option("SimulatorProgram", null);
host.option("SimulatorTimeLimit", null);
equal(Object.keys(checked(["0 1", "x 2"]).marks), ["1"], "and back");

// --- the command by itself ------------------------------------------------------------------------

host.writeFile(folder + "/p.txt", "0 1\nx 2\n");
host.writeFile(folder + "/d.deck", `*\nV1 1 0 FDPWL file="${folder}/p.txt"\n.END\n`);
const run = deck =>
  command(`RunBRENNIX /hidestatusbox /additionalargs SYNTAX_CHK_ONLY,,BATCH_MODE,, "${deck}"`);
run(folder + "/d.deck");
check(host.readFile(folder + "/d.deck.err").includes(", line 2:\n"), "the message file");
host.writeFile(folder + "/p.txt", "0 1\n1 2\n");
run(folder + "/d.deck");
check(!host.exists(folder + "/d.deck.err"), "no faults, no file");
let fault = null;
try { run(folder + "/none.deck"); } catch (error) { fault = error.message; }
check(fault.includes("none.deck"), fault);

// The open cell is checked, the first fault becomes the current row and is told, F3 goes on.
host.onDialog(d => {
  d.current(grid, 1, 0);
  d.key(grid, "x");
  host.onDialog(m => m.accept());
  d.key(null, "Alt+X");
  equal(d.cell(grid, 1, 0), "x");
  check(/^Line number 2: /.test(d.text("pointNote")), d.text("pointNote"));
  for (const [key, line] of [["F3", 4], ["F3", 2], ["Shift+F3", 4]]) {
    d.key(grid, key);
    check(d.text("pointNote").startsWith(`Line number ${line}: `), `${key}: ${d.text("pointNote")}`);
  }
  d.current(grid, 3, 1);
  d.key(grid, "3");
  d.key(null, "Return");
  equal(d.cellInfo(grid, 3, 0).kind, "PWLTableItem", "either cell takes the red away");
  d.reject();
});
EditFileDefinedPWLDialog(["0 1", "1 2", "2 3", "3 y"], ["0"]);

// --- a folder in which others have been before -----------------------------------------------------

const temporary = folder + "/Kelvarin";
const files = ["temp_points.txt", "fdpwl_test_syntax_deck.deck", "fdpwl_test_syntax_deck.deck.err"];
/// Runs a program, as the host runs its simulator.
function shell(script) {
  host.option("SimulatorProgram", "/bin/sh");
  command(`RunBRENNIX -c "cd ${folder}; ${script}"`);
  host.option("SimulatorProgram", null);
}
host.option("TempDataDir", folder);
for (const [name, script, title] of [
  ["links to files of others", `mkdir -m 777 Kelvarin victims; for f in ${files.join(" ")};
    do echo mine > victims/$f; ln -s ../victims/$f Kelvarin/$f; done`, faulty],
  ["links to nothing", `for f in ${files.join(" ")}; do ln -s ../new-$f Kelvarin/$f; done`, faulty],
  ["pipes", `for f in ${files.join(" ")}; do mkfifo Kelvarin/$f; done`, faulty],
  ["a folder for the deck", `mkdir Kelvarin/${files[1]}`, "Temporary Directory Not Writeable"],
  ["a folder for the points", `mkdir Kelvarin/${files[0]}`, undefined],
  ["a file for the folder", "rmdir Kelvarin; touch Kelvarin", undefined],
]) {
  shell(`rm -rf Kelvarin/*; ${script}`);
  equal(checked(["0 1", "x 2"], undefined, !title).title, title, name);
  shell("stat -c %a Kelvarin > mode; cat victims/* > victims.txt; ls > names");
  check(/00\n/.test(host.readFile(folder + "/mode")) || title !== faulty, "closed to others");
  equal(host.readFile(folder + "/victims.txt"), "mine\n".repeat(3), name);
  check(!host.readFile(folder + "/names").includes("new-"), name);
}
shell("rm Kelvarin");
host.provide("dyn_RunCommand", () => {
  host.provide("dyn_RunCommand", undefined);
  shell(`mkfifo Kelvarin/${files[2]}`);
});
equal(checked(["0 1", "x 2"]).title, "Messages Not Readable", "a pipe for an answer");
shell(`rm Kelvarin/${files[2]}`);
host.provide("dyn_RunCommand", () => {
  host.provide("dyn_RunCommand", undefined);
  EditFileDefinedPWLDialog(["0 1", "x 2"], ["0"]);
});
const told = [];
const clicking = handlers => d => {
  for (const handler of handlers)
    host.onDialog(handler);
  d.click("toolButtonCheckSyntax");
  d.reject();
};
const note = m => { told.push(m.message().title); m.accept(); };
host.onDialog(clicking([clicking([note]), note]));
EditFileDefinedPWLDialog(["0 1", "1 2"], ["0"]);
equal(told, ["Temporary Directory In Use", passed], "of two at once each reads its own answer or none");
for (const script of ["chown 12345 Kelvarin", "mv Kelvarin K; ln -s K Kelvarin; chown -h 12345 Kelvarin"]) {
  shell(`rm -rf Kelvarin; mkdir Kelvarin; ${script}; stat -c %u Kelvarin > owner`);
  if (host.readFile(folder + "/owner") === "12345\n") // not every user may give folders away
    equal(checked(["0 1", "x 2"]).title, "Temporary Directory Not Private", script);
}
host.option("TempDataDir", null);
