const ENTITIES = { lt: "<", gt: ">", amp: "&", quot: '"', apos: "'" };
const textOf = (markup) => markup
  .replace(/&(?:(lt|gt|amp|quot|apos)|#(\d+)|#x([0-9a-fA-F]+));/g, (_, name, decimal, hex) =>
    name ? ENTITIES[name] : String.fromCodePoint(parseInt(decimal ?? hex, decimal ? 10 : 16)))
  .trim();

/** What stands in the elements of a name, with any prefix. */
const inside = (xml, name) =>
  [...xml.matchAll(new RegExp(`<(?:\\w+:)?${name}(?:\\s[^>]*)?>([^]*?)</(?:\\w+:)?${name}>`, "g"))].map((found) => found[1]);

/** The booked credits of a CAMT.053 statement (ISO 20022): {date, amount, currency, text}. */
exports.credits = (xml) => inside(xml.replace(/<!--[^]*?-->/g, ""), "Ntry").flatMap((entry) => {
  const whole = entry.replace(/<(?:\w+:)?NtryDtls[^]*<\/(?:\w+:)?NtryDtls>/, ""); // details repeat the amounts
  if (inside(whole, "CdtDbtInd")[0]?.trim() !== "CRDT") return [];
  return [{
    date: textOf(inside(inside(whole, "BookgDt")[0] ?? "", "Dt")[0] ?? "").slice(0, 10),
    amount: Number(inside(whole, "Amt")[0]),
    currency: /<(?:\w+:)?Amt[^>]*\bCcy="(\w+)"/.exec(whole)?.[1],
    text: [...inside(entry, "Ustrd"), ...inside(entry, "Ref"), ...inside(entry, "EndToEndId")].map(textOf).join(" "),
  }];
});
