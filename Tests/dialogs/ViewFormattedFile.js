// ViewFormattedFile: documents by name and by address.

const folder = host.tempDir();
const page = `${folder}/a page #1 50%.html`;
host.writeFile(page, "<h1>Page µΩ</h1><p><a href='next.txt'>next</a></p>");
host.writeFile(`${folder}/next.txt`, "next < document\nline");
host.writeFile(`${folder}/notes.md`, "# Notes\n\ntext");
host.writeFile(`${folder}/empty.html`, "");

function opened(name, ...title) {
  const before = host.windows().length;
  equal(host.call("ViewFormattedFile", [name, ...title]), { made: true, type: "string", values: ["ok"] });
  equal(host.windows().length, before + 1);
  return host.windows()[before];
}
function shown(name) {
  const window = opened(name);
  const text = window.text("textBrowser");
  window.close();
  return text;
}

// Two calls, two windows.
const first = opened(page, "First");
const second = opened(`${folder}/next.txt`);
equal(host.windows().map(w => w.title), ["First", "View Results"]);
equal(second.text("textBrowser"), "next < document\nline");

// A local link opens here when the user follows it, by keyboard too; Alt+Left goes back.
equal(first.text("textBrowser"), "Page µΩ\nnext");
first.key(null, "Tab");
equal(first.text("textBrowser"), "Page µΩ\nnext");
first.key(null, "Return");
equal(first.text("textBrowser"), "next < document\nline");
first.key(null, "Alt+Left");
equal(first.text("textBrowser"), "Page µΩ\nnext");
first.key(null, "Escape");
second.key(null, "Return");
equal(host.windows().length, 0);

equal(shown(GetURLFromLocalPath(page)[0]), "Page µΩ\nnext", "by address");
equal(shown(`${folder}/notes.md`), "Notes\ntext");
equal(shown(`${folder}/notes.md#Notes`), "Notes\ntext", "a place in a document");
equal(shown(""), "");

// What belongs to a document comes from the same host only, even where the path leads somewhere here.
host.writeFile(`${folder}/blanks.css`, "p { white-space: pre }");
for (const [sheet, text] of [["blanks.css", "a  b"], [`file://${folder}/blanks.css`, "a  b"],
                             [`file:/${folder}/blanks.css`, "a b"]]) {
  host.writeFile(`${folder}/styled.html`,
                 `<html><head><link rel="stylesheet" type="text/css" href="${sheet}"></head><p>a  b</p></html>`);
  equal(shown(`${folder}/styled.html`), text, sheet);
}

// What cannot be shown is said, and no device or folder stops the host.
for (const name of [`${folder}/none.html`, folder, "/dev/zero", "none.html", "file:///none.html", "%s%n",
                    "<b>x</b>", "qrc:/none", "x".repeat(100000)])
  check(shown(name).endsWith(" cannot be read."), name.slice(0, 20));
equal(shown(`${folder}/none<b>.html`), `The document ${folder}/none<b>.html cannot be read.`);
equal(shown(`${folder}/empty.html`), `The document ${folder}/empty.html is empty.`);
equal(shown("http://127.0.0.1:1/x.html"), "This document opens in the browser: http://127.0.0.1:1/x.html");
for (const [content, reason] of [["<table><tr><td>".repeat(1000), "its elements are nested too deep"],
                                 ["<table cellpadding=1000000000><tr><td>x", "it asks for spaces"],
                                 ["<table>" + "<tr><td>x<td>y".repeat(100000), "its tables have more than 20000 cells"]]) {
  host.writeFile(`${folder}/large.html`, `<html>${content}`);
  const text = shown(`${folder}/large.html`);
  check(text.startsWith(`This document is shown as it is written, since ${reason}`), text.slice(0, 100));
  check(text.endsWith(content.slice(-20)), text.slice(-20));
}

const empty = (ViewFormattedFile([]), host.windows()[0]);
equal(empty.text("textBrowser"), "");
empty.close();
equal(ViewFormattedFile(new Array(1000000).fill(page)), ["ok"]);
host.windows()[0].close();
equal(host.windows().length, 0);
