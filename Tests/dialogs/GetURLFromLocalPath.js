// GetURLFromLocalPath: paths in, addresses out.

for (const [path, url] of [
  ["/home/lab/report.html", "file:///home/lab/report.html"],
  ["/a b/µΩ.html", "file:///a b/µΩ.html"],
  ["/a%20b/#1?.html", "file:///a%2520b/%231%3F.html"],
  ["report.html", "file:report.html"],
  ["//server/share/x.html", "file://server/share/x.html"],
  ["", ""],
])
  equal(host.call("GetURLFromLocalPath", path), { made: true, type: "string", values: [url] }, path);

// The first element counts, and where there is none there is no result.
equal(GetURLFromLocalPath(new Array(1000000).fill("/x")), ["file:///x"]);
equal(host.call("GetURLFromLocalPath", []), { made: false, type: null, values: [] });
let refused = "";
try { GetURLFromLocalPath(); } catch (error) { refused = error.message; }
check(refused.includes("GetURLFromLocalPath"), refused);
