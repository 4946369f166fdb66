// Calls that tell a thrown value from a returned one, and values as text: see ScriptRunner.h.
(function (global, marker) {
  "use strict";
  Object.defineProperty(global, "$end", { value: function () { marker.ended = true; } });

  function call(fn, args) {
    try {
      return { ok: true, value: fn(...args) };
    } catch (thrown) {
      return { ok: false, value: thrown };
    }
  }

  // JSON.stringify recurses natively, and deep nesting would end the process.
  function write(value, spelled, parts, above) {
    if (value !== null && typeof value === "object" && typeof value.toJSON === "function")
      value = value.toJSON();
    if (typeof value === "string")
      parts.push(JSON.stringify(value));
    else if (typeof value === "number")
      parts.push(spelled || isFinite(value) ? String(value) : "null");
    else if (value === null || typeof value === "boolean")
      parts.push(String(value));
    else if (typeof value !== "object")
      parts.push(spelled ? (typeof value === "function" ? "function" : String(value)) : "null");
    else if (above.length > 200 || above.indexOf(value) >= 0)
      parts.push(spelled ? "…" : "null");
    else if (spelled && value instanceof Error)
      parts.push(String(value));
    else
      writeMembers(value, spelled, parts, above.concat([value]));
  }

  function writeMembers(value, spelled, parts, above) {
    const comma = spelled ? ", " : ",";
    if (Array.isArray(value)) {
      parts.push("[");
      for (let i = 0; i < value.length; ++i) {
        if (i > 0)
          parts.push(comma);
        write(value[i], spelled, parts, above);
      }
      parts.push("]");
      return;
    }
    parts.push("{");
    let first = true;
    for (const key of Object.keys(value)) {
      const member = value[key];
      if (!spelled && (member === undefined || typeof member === "function"))
        continue;
      parts.push((first ? "" : comma) + JSON.stringify(key) + (spelled ? ": " : ":"));
      first = false;
      write(member, spelled, parts, above);
    }
    parts.push("}");
  }

  function toText(value, spelled) {
    if (value === undefined)
      return "undefined";
    const parts = [];
    write(value, spelled, parts, []);
    return parts.join("");
  }

  return { call: call, toText: toText };
})
