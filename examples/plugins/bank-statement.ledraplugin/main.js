// ledra plugin run bank-statement updateInvoices STATEMENT.xml
const camt = require("lib/camt");
const csv = require("lib/csv");

const COLUMNS = {
  date: ["date", "booking date", "buchungstag", "buchungsdatum", "valutadatum", "wertstellung"],
  amount: ["amount", "betrag", "betrag (eur)", "umsatz"],
  currency: ["currency", "währung", "waehrung"],
  text: ["text", "reference", "purpose", "verwendungszweck", "buchungstext", "remittance information"],
};

const creditsIn = ({ content }) => {
  if (content.trimStart().startsWith("<")) return camt.credits(content);
  return csv.records(content, COLUMNS)
    .map((row) => ({ ...row, date: csv.day(row.date), amount: csv.number(row.amount) }))
    .filter((row) => row.amount > 0);
};

// Banks break and stretch what payers write.
const squeezed = (text) => text.toUpperCase().replace(/\s+/g, "");

/** The number must stand for itself: 2026-01 is no part of 2026-012. */
const names = (text, number) => {
  const escaped = squeezed(number).replace(/[.*+?^${}()|[\]\\]/g, "\\$&");
  return number !== "" && new RegExp(`(?<![0-9])${escaped}(?![0-9])`).test(squeezed(text));
};

exports.updateInvoices = (summaries, context) => {
  if (context.input?.encoding !== "utf-8") throw new Error("Give a bank statement: CAMT.053 or CSV, in UTF-8.");
  const open = summaries.filter((invoice) => invoice.status === "Sent" && invoice.total > 0);
  const patches = {};
  for (const credit of creditsIn(context.input)) {
    const paid = open.filter((invoice) =>
      !patches[invoice.id] && names(credit.text, invoice.formattedNumber) &&
      Math.abs(invoice.total - credit.amount) < 0.005 && (credit.currency || invoice.currency) === invoice.currency);
    if (paid.length !== 1) continue; // a payment that could be for several is for a person to judge
    patches[paid[0].id] = { status: "Paid", ...(credit.date ? { statusDate: credit.date } : {}) };
    console.log(`${paid[0].formattedNumber} was paid on ${credit.date}`);
  }
  return patches;
};
