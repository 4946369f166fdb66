// Device, selection and test tables: ten times as many lines take ten times as long, and no more.

const shown = d => d.has("filter1Edit") && d.set("filter1Edit", "100-200");
for (const [name, line, rest] of [
  ["SelectDeviceDialog", (i, n) => `N${(i * 7919) % n};${i % 300}.5;${i % 900};${i % 77}m;SO-${i % 9}`,
    ["T", ["A", "B", "C", "D", "E"], ["a"], ["all", "all", "all", "100-200", "", ""]]],
  ["DefineSelectionTableDialog", i => `row ${i};x${i % 7 ? "" : "\\n2"};some text ${i}`, ["x", ["exclusive"]]],
  ["DVMSelectTest", i => `Folder ${i % 1000};sub ${i % 10};test ${i}`, []],
]) {
  const [few, many] = [4000, 40000].map(count => {
    const lines = Array.from({ length: count }, (_, i) => line(i, count));
    const start = host.processTime();
    host.onDialog(d => { shown(d); d.accept(); });
    host.call(name, lines, ...rest);
    return host.processTime() - start;
  });
  check(many < 30 * Math.max(few, 10), `${name}: ${few} and ${many} ms`);
}
