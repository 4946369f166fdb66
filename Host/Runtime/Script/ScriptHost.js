// host, command, print, include and the functions of the table: the form that scripts see. What is
// behind them is done by `bridge`, see ScriptHost.h. Gives the function that defines one more.
(function (global, bridge) {
  "use strict";

  function text(value, call, what) {
    if (typeof value !== "string")
      throw new TypeError(call + ": " + what + " must be a text, " + bridge.toText(value) +
                          " was given");
    return value;
  }

  function settle(outcome) {
    if (!outcome.ok)
      throw outcome.value;
    return outcome.value;
  }

  const { takeVector, takeRecord } = bridge.takers();

  function taken(args) { return args.map(value => takeVector(value)); }

  const host = {
    call(name, ...args) {
      return bridge.callDetailed(text(name, "host.call", "the name"), taken(args));
    },
    option(key, value) { return bridge.option(text(key, "host.option", "the key"), value); },
    config(section, key, value) {
      return bridge.config(text(section, "host.config", "the section"),
                           text(key, "host.config", "the key"), value);
    },
    readFile(path) { return bridge.readFile(text(path, "host.readFile", "the path")); },
    writeFile(path, content) {
      bridge.writeFile(text(path, "host.writeFile", "the path"),
                       text(content, "host.writeFile", "the content"));
    },
    exists(path) { return bridge.exists(text(path, "host.exists", "the path")); },
    clipboard(content) {
      if (content !== undefined)
        bridge.setClipboard(text(content, "host.clipboard", "the content"));
      return bridge.clipboard();
    },
    wait(ms) { bridge.wait(typeof ms === "number" ? ms : NaN); },
    now() { return bridge.now(); },
    processTime() { return bridge.processTime(); },
    tempDir() { return bridge.tempDir(); },
    functions() { return bridge.functions(); },
    helpRequests() { return bridge.helpRequests(); },
    system(key, value) {
      text(key, "host.system", "the key");
      if (value !== undefined)
        bridge.setSystem(key, takeRecord(value));
      return bridge.system(key);
    },
    onDialog(handler) {
      if (typeof handler !== "function")
        throw new TypeError("host.onDialog: the handler must be a function, " +
                            bridge.toText(handler) + " was given");
      bridge.onDialog(handler);
    },
    windows() { return bridge.windows(); },
    provide(name, fn) {
      bridge.provide(text(name, "host.provide", "the name"),
                     typeof fn === "function" ? (...args) => takeVector(fn(...args)) : fn);
    },
    paste(content) { return bridge.paste(text(content, "host.paste", "the content")); },
    schematic: {
      get hasCurrent() { return bridge.hasSchematic(); },
      set hasCurrent(on) { bridge.setHasSchematic(!!on); },
      get picking() { return bridge.picking(); },
    },
    graphs(facts) {
      if (facts !== undefined)
        bridge.setGraphs(takeRecord(facts));
      return bridge.graphs();
    },
    analysis(parameters, fields) {
      return bridge.analysis(takeRecord(parameters), takeRecord(fields));
    },
    openAnalysis(block) { bridge.openAnalysis(block); },
    symbolFileDialog(request) {
      return bridge.symbolFileDialog(request === undefined ? {} : takeRecord(request));
    },
    get args() { return bridge.args(); },
  };

  global.host = host;
  global.command = function command(line) { bridge.command(text(line, "command", "the line")); };
  global.print = function print(...values) {
    bridge.print(values.map(v => typeof v === "string" ? v : bridge.toText(v)).join(" "));
  };
  global.include = function include(file) {
    return settle(bridge.include(text(file, "include", "the file"), new Error().stack));
  };

  return function define(name) {
    if (["host", "command", "print", "include", "check", "equal", "near"].indexOf(name) < 0)
      global[name] = function (...args) { return bridge.call(name, taken(args)); };
  };
})
