// check, equal and near. What they find is counted and reported by `checks`, see ScriptChecks.h.
(function (global, checks) {
  "use strict";

  function kind(value) { return Object.prototype.toString.call(value); }

  function isList(value) {
    return Array.isArray(value) ||
      (value !== null && typeof value === "object" && typeof value.length === "number");
  }

  function sameScalar(a, b) { return a === b || (a !== a && b !== b); }

  // The first difference as {place, actual, expected}, or null. `seen` closes cycles.
  function difference(a, b, place, seen) {
    const here = { place: place, actual: a, expected: b };
    if (sameScalar(a, b))
      return null;
    if (a === null || b === null || typeof a !== "object" || typeof b !== "object")
      return here;
    if (seen.get(a) === b)
      return null;
    seen.set(a, b);
    if (isList(a) && isList(b)) {
      if (a.length !== b.length)
        return here;
      for (let i = 0; i < a.length; ++i) {
        const found = sameScalar(a[i], b[i])
          ? null : difference(a[i], b[i], place + "[" + i + "]", seen);
        if (found)
          return found;
      }
      return null;
    }
    if (kind(a) !== kind(b) || isList(a) || isList(b))
      return here;
    if (a instanceof Map || a instanceof Set)
      return difference(Array.from(a), Array.from(b), place, seen) ? here : null;
    if (a instanceof Date || a instanceof Number || a instanceof String || a instanceof Boolean)
      return sameScalar(a.valueOf(), b.valueOf()) ? null : here;
    if (a instanceof RegExp)
      return String(a) === String(b) ? null : here;
    if (a instanceof Error)
      return difference(a.name, b.name, place + ".name", seen) ||
        difference(a.message, b.message, place + ".message", seen);
    const keys = Object.keys(a);
    if (keys.length !== Object.keys(b).length)
      return here;
    for (const key of keys) {
      if (!Object.prototype.hasOwnProperty.call(b, key))
        return here;
      const found = difference(a[key], b[key], place + "." + key, seen);
      if (found)
        return found;
    }
    return null;
  }

  // The first pair of numbers that are too far apart, in the same form.
  function distance(a, b, relative, place) {
    const here = { place: place, actual: a, expected: b };
    if (isList(a) && isList(b)) {
      if (a.length !== b.length)
        return here;
      for (let i = 0; i < a.length; ++i) {
        const found = distance(a[i], b[i], relative, place + "[" + i + "]");
        if (found)
          return found;
      }
      return null;
    }
    if (typeof a !== "number" || typeof b !== "number")
      return here;
    const limit = relative * Math.max(Math.abs(a), Math.abs(b));
    return sameScalar(a, b) || (isFinite(limit) && Math.abs(a - b) <= limit) ? null : here;
  }

  function words(message) {
    if (message === undefined)
      return "";
    return typeof message === "string" ? message : checks.toText(message);
  }

  function report(found, message) {
    if (!found)
      checks.pass();
    else
      checks.failEqual(words(message), new Error().stack, found.place, found.actual,
                       found.expected);
    return !found;
  }

  global.check = function check(condition, message) {
    if (condition)
      checks.pass();
    else
      checks.fail(words(message), new Error().stack);
    return !!condition;
  };
  global.equal = function equal(actual, expected, message) {
    return report(difference(actual, expected, "", new Map()), message);
  };
  global.near = function near(actual, expected, relative, message) {
    if (typeof relative !== "number" || !(relative >= 0))
      throw new TypeError("near: the relative tolerance must be a number from 0 up");
    return report(distance(actual, expected, relative, ""), message);
  };
})
