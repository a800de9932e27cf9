// Settings (ledra plugin set timesheet KEY=VALUE):
//   rate=80   for entries without a rate of their own      vat=19   percent
const csv = require("lib/csv");

const COLUMNS = {
  date: ["date", "start date", "datum"],
  client: ["client", "customer", "kunde"],
  email: ["email", "e-mail"],
  project: ["project", "projekt"],
  task: ["task", "description", "notes", "aufgabe", "beschreibung"],
  hours: ["hours", "duration", "time", "stunden", "dauer"],
  rate: ["rate", "hourly rate", "billable rate", "stundensatz"],
};

/** "1:30", "01:30:00" or "1,5" */
const hoursIn = (text) => {
  if (!text.includes(":")) return csv.number(text);
  const [hours, minutes, seconds = 0] = text.split(":").map(Number);
  return hours + minutes / 60 + seconds / 3600;
};

function itemsOf(entries, settings) {
  const items = new Map();
  for (const entry of entries) {
    const hours = hoursIn(entry.hours);
    const unitPrice = entry.rate ? csv.number(entry.rate) : Number(settings.rate ?? NaN);
    if (!Number.isFinite(hours)) throw new Error(`“${entry.hours}” is no number of hours.`);
    if (!Number.isFinite(unitPrice)) throw new Error("An entry has no rate: set one with rate=…");
    const description = [entry.project, entry.task].filter(Boolean).join(": ") || "Services";
    const key = JSON.stringify([description, unitPrice]);
    const item = items.get(key) ?? { description, unit: "Hour", unitPrice, quantity: 0,
      vatPercentage: Number(settings.vat ?? 19) };
    item.quantity += hours;
    items.set(key, item);
  }
  return [...items.values()].map((item) => ({ ...item, quantity: Math.round(item.quantity * 100) / 100 }));
}

exports.importInvoices = (input, context) => {
  if (input?.encoding !== "utf-8") throw new Error("Give a CSV file in UTF-8.");
  const clients = new Map();
  for (const entry of csv.records(input.content, COLUMNS)) {
    if (!entry.client) throw new Error("An entry has no client; the heading of its column should be “Client”.");
    clients.set(entry.client, [...(clients.get(entry.client) ?? []), entry]);
  }
  return [...clients].map(([name, entries]) => {
    const days = entries.map((entry) => csv.day(entry.date)).filter(Boolean).sort();
    return {
      recipient: { name, email: entries.find((entry) => entry.email)?.email },
      items: itemsOf(entries, context.settings),
      serviceDateStart: days[0],
      serviceDateEnd: days.at(-1),
    };
  });
};
