// Calls that tell a thrown value from a returned one, values and faults as text, and what the host
// takes over of values: see ScriptRunner.h.
(function (global, marker) {
  "use strict";
  const AnyError = Error;
  const ownTexts = [Object, Array, Error].map(type => type.prototype.toString);
  const slice = Function.prototype.call.bind(Array.prototype.slice);
  const AnyDate = Date;
  const timeOf = Function.prototype.call.bind(Date.prototype.getTime);
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
    else if (spelled && value instanceof AnyError)
      parts.push(errorText(value, above.concat([value])));
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

  // String(error) recurses natively where its name or message is an error, itself perhaps.
  function errorText(error, above) {
    const [name, message] = [error.name, error.message].map(part => {
      const parts = [];
      if (typeof part === "string")
        parts.push(part);
      else if (part !== undefined)
        write(part, true, parts, above);
      return parts.join("");
    });
    return name && message ? name + ": " + message : name || message;
  }

  function thrownText(thrown) {
    if (thrown instanceof AnyError)
      return thrown.name === "Error" && typeof thrown.message === "string" && thrown.message ||
        errorText(thrown, [thrown]);
    if (thrown === null || typeof thrown !== "object")
      return String(thrown);
    const own = thrown.toString;
    const text = typeof own === "function" && ownTexts.indexOf(own) < 0 ? thrown.toString() : null;
    return typeof text === "string" ? text : toText(thrown, true);
  }

  // What an exception says and where it was made. Telling it may throw as well.
  function describe(thrown, tries = 3) {
    try {
      const stack = thrown instanceof AnyError ? thrown.stack : "";
      return { text: thrownText(thrown), stack: typeof stack === "string" ? stack : "" };
    } catch (another) {
      return tries > 0 ? describe(another, tries - 1)
                       : { text: "a fault that cannot be told", stack: "" };
    }
  }

  // The host reads copies with nothing in them that runs: what a getter throws is thrown here.
  const longestSlice = 1e7;
  const deepest = 8;

  // Elements as they are. A length is what the script says; the first hole is refused anyway.
  function elements(array) {
    if (array.length <= longestSlice)
      return slice(array);
    const list = [];
    for (let i = 0; i < array.length && (i === 0 || list[i - 1] !== undefined); ++i)
      list.push(array[i]);
    list.length = array.length;
    return list;
  }

  function part(value) { return Array.isArray(value) ? elements(value) : value; }

  // A vector of a call: an array, {y, x, divisions}, or a single value.
  function takeVector(value) {
    if (value === null || typeof value !== "object" || Array.isArray(value) || !("y" in value))
      return part(value);
    const curve = {};
    for (const member of ["y", "x", "divisions"])
      if (member in value)
        curve[member] = part(value[member]);
    return curve;
  }

  function isPlain(prototype) { return prototype === null || prototype === Object.prototype; }

  // Those of a class are found through its prototype, and stay there.
  function takeInherited(prototype, value, depth) {
    if (isPlain(prototype))
      return {};
    const copy = Object.create(takeInherited(Object.getPrototypeOf(prototype), value, depth));
    for (const name of Object.getOwnPropertyNames(prototype))
      if (typeof value[name] !== "function")
        copy[name] = takeRecord(value[name], depth);
    return copy;
  }

  function takeMembers(value, depth) {
    const prototype = Object.getPrototypeOf(value);
    const copy = isPlain(prototype) ? {} : Object.create(takeInherited(prototype, value, depth));
    for (const name of Object.keys(value))
      copy[name] = takeRecord(value[name], depth);
    return copy;
  }

  function takeElements(array, depth) {
    const list = elements(array);
    for (let i = 0; i < list.length; ++i) {
      if (list[i] === undefined)
        throw new TypeError("element [" + i + "] of an array is missing");
      list[i] = takeRecord(list[i], depth);
    }
    return list;
  }

  // By what it is, not by what it says that it is.
  function isDate(value) {
    try {
      return value instanceof AnyDate && typeof timeOf(value) === "number";
    } catch (another) {
      return false;
    }
  }

  // An object whose members are looked at by name, or an array of them.
  function takeRecord(value, depth = 0) {
    if (value === null || typeof value !== "object" || isDate(value))
      return value;
    if (depth >= deepest)
      throw new RangeError("a value is nested more than " + deepest + " deep");
    return Array.isArray(value) ? takeElements(value, depth + 1) : takeMembers(value, depth + 1);
  }

  return { call, toText, describe, takeVector, takeRecord };
})
