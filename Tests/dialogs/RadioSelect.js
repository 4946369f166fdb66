// RadioSelect: the buttons, the optional check box, and a cancel that is a number.

function box(args, act) {
  host.onDialog(act);
  return RadioSelect(...args);
}
const buttons = d => d.names().filter(n => /^RadioButton\d+$/.test(n));
const three = ["a", "b", "c"];

// --- buttons ------------------------------------------------------------------------------------

box([], d => {
  equal(buttons(d).map(n => d.text(n)), [1, 2, 3, 4, 5, 6].map(n => `Button ${n}`));
  equal(d.title, "Select Button");
  check(!d.visible("label") && !d.visible("checkBox"), "nothing but the buttons");
  d.reject();
});

for (const [number, result] of [
  [1, 1], [3, 3], [2.9, 2], [undefined, 0], [[], 0], [0, 0], [-1, 0], [4, 0], [NaN, 0], [Infinity, 0],
  [1e300, 0],
])
  equal(box([number, three], d => d.accept()), [result], `button ${number}`);

box([2, ["", "b"]], d => {
  equal(buttons(d).length, 2);
  equal([d.text("RadioButton0"), d.get("RadioButton0", "accessibleName")], ["", "Button 1"]);
  d.reject();
});

// By keyboard alone, and by mouse.
equal(box([2, three], d => {
  equal(d.focused(), "RadioButton1", "the user starts at what is chosen");
  d.key(null, "Down");
  d.key(null, "Return");
}), [3]);
equal(box([undefined, three], d => {
  equal(d.focused(), "RadioButton0");
  d.key(null, "Space");
  d.key(null, "Return");
}), [1]);
equal(box([1, three], d => { d.click("RadioButton2"); d.press("OK"); }), [3]);

// --- title, heading, check box ------------------------------------------------------------------

const full = ["Title", "Heading", "Always"];
equal(box([1, three, full], d => {
  equal([d.title, d.text("label"), d.text("checkBox")], full);
  check(d.visible("label"), "heading");
  d.accept();
}), [1, 0]);
equal(box([1, three, full], d => {
  d.key(null, "Down");
  d.key(null, "Tab");
  equal(d.focused(), "checkBox");
  d.key(null, "Space");
  d.key(null, "Return");
}), [2, 1]);
equal(box([0, three, full], d => { d.set("checkBox", true); d.accept(); }), [0], "none chosen");
equal(box([1, three, ["T", "", "Always"]], d => {
  check(!d.visible("label"), "an empty heading takes no room");
  d.accept();
}), [1, 0]);

const name = title => {
  let seen;
  box([1, three].concat(title), d => { seen = d.name; d.reject(); });
  return seen;
};
check(/^RadioSelect_\d+$/.test(name([["One"]])), "name");
check(name([["One"]]) === name([["One", "else"]]), "a title has one name");
check(name([["One"]]) !== name([["Two"]]), "two titles have two");
check(name([]) === name([["Select Button"]]), "the title that is shown counts");
box([1, ["R & D", "b"], ["", "", "A & B"]], d => {
  equal([d.title, d.text("RadioButton0"), d.text("checkBox")], ["Select Button", "R && D", "A && B"]);
  d.reject();
});

// --- help ---------------------------------------------------------------------------------------

for (const [number, topic] of [["12", "12"], ["1k", "1000"], ["7.9", "7"]]) {
  box([1, three, "T", number], d => { d.press("Help"); d.reject(); });
  equal(host.helpRequests().pop(), topic, `help ${number}`);
}
box([1, three, "T"], d => { check(!d.visible("helpButton"), "no page, no button"); d.reject(); });

// --- cancel, and what a script may hand in ------------------------------------------------------

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel")]) {
  host.onDialog(d => { d.click("RadioButton2"); d.set("checkBox", true); leave(d); });
  equal(host.call("RadioSelect", 1, three, full), { made: true, type: "real", values: [0] });
}

equal(box([1, new Array(1e6).fill("x")], d => {
  check(d.message().text.includes("1000000"), "a million buttons are refused in words");
  d.accept();
}), [0], "and answered as cancelled");

equal(box([500, new Array(1000).fill("x")], d => {
  check(d.visible("okButton"), "a thousand buttons scroll");
  d.key(null, "Down");
  d.accept();
}), [501]);

const long = "x".repeat(1e6);
equal(box([1, [long, "b"], [long, long, long]], d => d.accept()), [1, 0], "captions of any length");
