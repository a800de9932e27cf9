#pragma once

namespace ledra {

/// What every plugin's context begins with, as a script whose value is a function. It takes what the runner
/// lends (log, load a module, ask the program), lays out the surface that plugins see and returns what the
/// runner calls. What it needs of the language is fetched before a plugin can have changed it.
inline constexpr auto surfaceScript = R"js((function (log, load, ask, hasFetch, hasConnector) {
  "use strict";
  const { parse, stringify } = JSON;
  const pending = new Map();
  let latest = 0;

  const shown = (value) => {
    if (typeof value === "string") return value;
    if (value instanceof Error) return told(value);
    try { return stringify(value) ?? String(value); } catch { return String(value); }
  };
  const told = (error) => {
    try {
      if (!(error instanceof Error)) return shown(error);
      const place = error.sourceURL && error.line > 3 ? ` (${error.sourceURL}:${error.line - 3})` : "";
      return `${error.message || error.name}${place}`;
    } catch { return "an error that cannot be shown"; }
  };
  const request = (kind, detail) => new Promise((resolve, reject) => {
    const number = ++latest;
    pending.set(number, { resolve, reject });
    ask(number, kind, stringify(detail));
  });

  globalThis.console = { log: (...values) => log(values.map(shown).join(" ")) };
  globalThis.require = (path) => load(String(path));
  if (hasConnector) globalThis.connector = { run: (value) => request("connector", { value }) };
  if (hasFetch) {
    globalThis.fetch = async (url, { method = "GET", headers = {}, body = "" } = {}) => {
      const reply = await request("fetch", { url: String(url), method: String(method), headers, body: String(body) });
      return {
        url: reply.url, status: reply.status, ok: reply.status >= 200 && reply.status < 300,
        headers: { get: (name) => reply.headers[String(name).toLowerCase()] ?? null },
        text: async () => reply.body,
        json: async () => parse(reply.body),
      };
    };
  }

  return {
    async call(main, operation, texts, finish) {
      pending.clear();
      try {
        finish(true, stringify(await main[operation](...parse(texts))) ?? "null");
      } catch (error) {
        finish(false, told(error));
      }
    },
    answer(number, problem, text) {
      const waiting = pending.get(number);
      pending.delete(number);
      if (!waiting) return;
      if (problem) waiting.reject(new Error(problem)); else waiting.resolve(parse(text));
    },
    isWaiting: () => pending.size > 0,
    told,
  };
}))js";

/// Has everything read from disk that scripts come to use: time zone, languages, number formats.
inline constexpr auto warmUpScript = R"js((async function () {
  const day = new Date(2026, 0, 1);
  day.toString(); day.toLocaleString("de-DE"); day.getTimezoneOffset();
  new Intl.DateTimeFormat("en", { timeZone: "America/New_York", dateStyle: "full" }).format(day);
  (1234.5).toLocaleString("de-DE", { style: "currency", currency: "EUR" });
  ["b", "ä"].sort((a, b) => a.localeCompare(b)); "a\u0308".normalize("NFC"); "ß".toLocaleUpperCase("de");
  Math.random(); new Map(); new RegExp("\\p{L}+(?<=x)", "u").test("äx"); await null;
  new Intl.Segmenter("de").segment("ab"); new Intl.PluralRules("de").select(1); new Uint8Array(100000);
})())js";

} // namespace ledra
