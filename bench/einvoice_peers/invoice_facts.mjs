// Reads an invoice file of Ledra into the plain facts that both libraries are given: ISO dates, amounts as text.
import { readFileSync } from "node:fs";

const SECONDS_FROM_1970_TO_2001 = 978307200;
const DAY = 24 * 60 * 60 * 1000;
const UNIT_CODES = { Piece: "H87", Hour: "HUR", Day: "DAY", Week: "WEE", "Lump Sum": "LS" };

const isoDay = (date) => date.toISOString().slice(0, 10);
const dayOf = (value) =>
  new Date(typeof value === "number" ? (value + SECONDS_FROM_1970_TO_2001) * 1000 : value.slice(0, 10));
const money = (cents) => (cents / 100).toFixed(2);
const filled = (text) => text?.trim() || undefined;

function numberText(invoice, day) {
  if (typeof invoice.number === "string" || !invoice.numberFormat) return String(invoice.number);
  return invoice.numberFormat
    .replace("{YYYY}", String(day.getUTCFullYear()))
    .replace(/\{(N+)\}/, (_, digits) => String(invoice.number).padStart(digits.length, "0"));
}

function lineOf(item, index) {
  const [name, ...rest] = item.description.split("\n");
  if (!(item.unit in UNIT_CODES)) throw new Error(`an unknown unit: ${item.unit}`);
  const cents = Math.round(item.quantity * item.unitPrice * 100 + 1e-6);
  return {
    id: String(index + 1), name, description: filled(rest.join("\n")), cents, net: money(cents),
    quantity: String(item.quantity), unitCode: UNIT_CODES[item.unit], price: item.unitPrice.toFixed(2),
    category: item.vatPercentage > 0 ? "S" : "Z", percent: item.vatPercentage.toFixed(2),
  };
}

function taxesOf(lines) {
  const groups = new Map();
  for (const line of lines) {
    const group = groups.get(line.percent) ?? { category: line.category, percent: line.percent, cents: 0 };
    group.cents += line.cents;
    groups.set(line.percent, group);
  }
  return [...groups.values()].map((group) => {
    const taxCents = Math.round((group.cents * Number(group.percent)) / 100);
    return { ...group, basis: money(group.cents), taxCents, tax: money(taxCents) };
  });
}

function partyOf(party) {
  const { address } = party;
  return {
    name: filled(party.businessName) ?? party.name, contact: filled(party.name), email: filled(party.email),
    phone: filled(party.phone), street: filled(address.lineOne), addition: filled(address.lineTwo),
    postcode: filled(address.postcode), city: filled(address.city), state: filled(address.state),
    country: address.country, vatNumber: filled(party.vatNumber), taxNumber: filled(party.taxNumber),
  };
}

export function readFacts(path) {
  const invoice = JSON.parse(readFileSync(path, "utf8"));
  if (invoice.grossPrices) throw new Error("an invoice with net prices is needed");
  const day = dayOf(invoice.date);
  const lines = invoice.items.map(lineOf);
  const taxes = taxesOf(lines);
  const netCents = lines.reduce((sum, line) => sum + line.cents, 0);
  const taxCents = taxes.reduce((sum, group) => sum + group.taxCents, 0);
  const { serviceDateStart: start, serviceDateEnd: end } = invoice;
  return {
    number: numberText(invoice, day), date: isoDay(day), due: isoDay(new Date(day.getTime() + invoice.daysToPay * DAY)),
    period: start && { start: isoDay(dayOf(start)), end: isoDay(dayOf(end ?? start)) }, currency: invoice.currency,
    note: filled(invoice.note), reference: filled(invoice.reference) ?? "-", lines, taxes,
    seller: partyOf(invoice.sender), buyer: partyOf(invoice.recipient),
    iban: invoice.sender.iban.replaceAll(" ", ""), bic: filled(invoice.sender.bic),
    net: money(netCents), tax: money(taxCents), gross: money(netCents + taxCents),
  };
}
