// InputSchem keeps its window size apart from InputGraph; InputGraph.js has what they share.

host.config("WidgetDims", "InputSchem", "20 20 500 200");
const width = call => {
  let pixels;
  host.onDialog(d => {
    equal([d.name, d.title, d.focused()], [call.name || d.name, "Enter Text", "edit"]);
    pixels = d.get("edit", "width");
    d.key(null, "X");
    d.key(null, "Return");
  });
  equal(call("old", "Caption"), ["x"]);
  return pixels;
};
const schem = width(InputSchem);
const graph = width(InputGraph);
check(schem > 450 && graph < 450, `remembered ${schem}, fresh ${graph}`);
equal(width(InputSchem), schem, "the same again");

host.onDialog(d => d.key(null, "Escape"));
equal(host.call("InputSchem", "old"), { made: false, type: null, values: [] });
