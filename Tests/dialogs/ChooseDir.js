// ChooseDir: opening along a path, moving by keyboard, making directories, and what is given back.

const base = host.tempDir();
const tree = "directoryListView";
const chosen = d => d.text("directoryLabel");

function choose(args, act) {
  host.onDialog(act);
  return ChooseDir(...args);
}
const shownAt = start => {
  let label;
  choose([start], d => { label = chosen(d); d.reject(); });
  return label;
};
/// Presses the button, types, and leaves the box by `end`; `also` is for a message that follows.
function create(d, text, end, also) {
  host.onDialog(box => {
    equal([box.text("label"), box.text("edit")], ["Enter directory to create", chosen(d)]);
    box.type("edit", text);
    end(box);
  });
  if (also)
    host.onDialog(also);
  d.press("Create Directory");
}
const ok = box => box.accept();

// --- making directories -------------------------------------------------------------------------

equal(choose([base], d => {
  equal([chosen(d), d.title], [base, "Choose Directory"]);
  for (const name of ["runs", "runs/tran", "runs/tran/deep", "runs/ac", "runs/<b>&x", ".cache"]) {
    create(d, `${base}/${name}`, ok);
    equal(chosen(d), `${base}/${name}`, "the new directory is the chosen one");
  }
  create(d, `${base}/runs`, ok);
  equal(chosen(d), `${base}/runs`, "one that is there already is as good");

  // What is no full path goes below the chosen directory, and not where the host happens to run.
  create(d, "below", ok);
  equal(chosen(d), `${base}/runs/below`);
  create(d, "../tran/x y", ok);
  equal(chosen(d), `${base}/runs/tran/x y`);
  create(d, "a/b", ok, message => {
    equal(message.message().text, `Cannot create directory ${base}/runs/tran/x y/a/b`);
    message.accept();
  });
  create(d, `${base}/runs`, ok);

  const before = d.items(tree);
  create(d, `${base}/else`, box => box.reject());
  host.writeFile(`${base}/file`, "");
  for (const text of [`${base}/a/b`, `${base}/file`, "", "/proc/<b>x</b>"])
    create(d, text, ok, message => {
      equal([message.message().title, message.message().text],
            ["Cannot Create Directory", `Cannot create directory ${text}`]);
      message.accept();
    });
  equal(d.items(tree), before, "the tree stays as it was");
  d.accept();
}), [`${base}/runs`]);
check(!host.exists(`${base}/else`), "nothing is made on cancel");

// --- where it opens -----------------------------------------------------------------------------

for (const [start, label] of [
  [`${base}/runs/tran/`, `${base}/runs/tran`],
  [`${base}//runs///tran//`, `${base}/runs/tran`],
  [`${base}/runs/tran/deep`.replace(/\//g, "\\"), `${base}/runs/tran/deep`],
  [base.slice(1), base],                            // all paths begin at the root
  [`${base}/runs/none/tran`, `${base}/runs`],       // as far down as there is something
  [`${base}/file`, base],
  [`${base}/runs/../runs`, `${base}/runs`],
  [`${base}/${"x".repeat(1e6)}`, base],
  [`${base}${"/x".repeat(500000)}`, base],
  [`${base}/.cache`, `${base}/.cache`],
  ["/", ""], ["", ""], ["~", ""], ["\n", ""], ["\ud800", ""], [[], ""],
])
  equal(shownAt(start), label, `opened at ${String(start).slice(0, 60)}`);

// Where names differ in case only, the exact one counts; else any, on a system that takes them alike.
const cases = host.tempDir();
choose([cases], d => {
  for (const name of ["runs", "RUNS"])
    create(d, `${cases}/${name}`, ok);
  d.reject();
});
const sensitive = host.system("caseSensitiveFiles");
for (const [value, pattern] of [[true, /^$/], [false, /^\/runs$/i]]) {
  host.system("caseSensitiveFiles", value);
  equal(["runs", "RUNS"].map(name => shownAt(`${cases}/${name}`)), [`${cases}/runs`, `${cases}/RUNS`]);
  check(pattern.test(shownAt(`${cases}/Runs`).slice(cases.length)), `names alike: ${!value}`);
}
host.system("caseSensitiveFiles", sensitive);

choose([`${base}/runs`], d => {
  const items = d.items(tree);
  const at = items.indexOf("runs");
  equal(items.slice(at, at + 4), ["runs", "<b>&x", "ac", "below"], "read where it is opened");
  check(!items.includes("deep"), "and nowhere else");
  check(items.includes(".cache"), "hidden ones are there");
  check(!items.includes("file"), "files are not");
  d.reject();
});

// --- by keyboard, and by mouse ------------------------------------------------------------------

equal(choose([base], d => {
  equal(d.focused(), tree);
  d.key(tree, "r");
  equal(chosen(d), `${base}/runs`, "typing goes to the name");
  check(!d.items(tree).includes("tran"), "closed until it is opened");
  d.key(tree, "Right");
  check(d.items(tree).includes("tran"), "Right opens");
  for (const key of ["Right", "Down", "Down", "Down"])
    d.key(tree, key);
  equal(chosen(d), `${base}/runs/tran`);
  d.key(tree, "Left");
  equal(chosen(d), `${base}/runs`, "Left goes up");
  d.key(tree, "Left");
  d.key(tree, "Down");
  check(chosen(d) !== `${base}/runs/<b>&x`, "Left closes");
  d.key(tree, "Up");
  d.key(tree, "Return");
}), [`${base}/runs`]);

choose([`${base}/runs/tran/deep`], d => {
  const before = d.items(tree).length;
  d.key(tree, "Left");
  d.key(tree, "Right");
  equal([chosen(d), d.items(tree).length], [`${base}/runs/tran/deep`, before], "an empty one");
  d.reject();
});

equal(choose([base], d => {
  d.doubleClick(tree, d.items(tree).indexOf("runs"), 0);
  d.click(tree, d.items(tree).indexOf("ac"), 0);
  d.press("OK");
}), [`${base}/runs/ac`]);

// Links that lead back: every process has one. An asterisk opens all, where there is an end.
const loop = "/proc/self/root";
if (host.exists(`${loop}/proc`)) {
  choose([loop.repeat(3)], d => {
    equal(chosen(d), loop.repeat(3));
    const before = d.items(tree).length;
    d.key(tree, "*");
    equal(d.items(tree).length, before);
    d.accept();
  });
  check(shownAt(loop.repeat(200)).length < 200 * loop.length, "ends where the system gives up");
}

// --- cancel, and what a script may hand in ------------------------------------------------------

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel")]) {
  host.onDialog(leave);
  equal(host.call("ChooseDir", base), { made: true, type: "string", values: [""] });
}
equal(choose([base, "Where to?", "*.raw"], d => { equal(d.title, "Where to?"); d.accept(); }), [base]);
equal(choose([base, "", []], d => { equal(d.title, "Choose Directory"); d.accept(); }), [base]);
equal(choose([], d => d.accept()), [""]);
equal(choose([base, "t".repeat(1e6)], d => d.accept()), [base]);
equal(choose([[base].concat(new Array(1e6).fill("x")), new Array(1e6).fill("t")], d => d.accept()), [base]);
