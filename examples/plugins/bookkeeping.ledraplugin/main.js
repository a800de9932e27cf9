// Settings (ledra plugin set bookkeeping KEY=VALUE), with the accounts of SKR 03 as they are usual:
//   debtor=10000  revenue19=8400  revenue7=8300  revenue0=8200  key19= key7= key0=
const { sharesByRate } = require("lib/shares");

const COLUMNS = ["Umsatz", "Soll/Haben", "Konto", "Gegenkonto", "BU-Schlüssel", "Belegdatum", "Belegfeld 1",
  "Buchungstext"];
const USUAL = { debtor: "10000", revenue19: "8400", revenue7: "8300", revenue0: "8200" };
const BOOKED = ["Sent", "Paid", "Cancelled"]; // a cancelled invoice is taken back by its cancellation

const quoted = (text) => `"${String(text).replaceAll('"', '""').replace(/[\r\n]+/g, " ")}"`;
const dayAndMonth = (date) => date.slice(8, 10) + date.slice(5, 7);

function rowsOf(invoice, settings) {
  const { summary } = invoice;
  return sharesByRate(invoice).map(({ rate, gross }) => {
    const revenue = settings[`revenue${rate}`];
    if (!revenue) throw new Error(`Which account has the revenue at ${rate} %? Set revenue${rate}.`);
    return [
      Math.abs(gross).toFixed(2).replace(".", ","),
      gross < 0 ? "H" : "S",
      settings.debtor,
      revenue,
      settings[`key${rate}`] ?? "",
      dayAndMonth(summary.date),
      quoted(summary.formattedNumber.slice(0, 36)),
      quoted((invoice.recipient.businessName || summary.name).slice(0, 60)),
    ].join(";");
  });
}

exports.exportInvoices = (invoices, context) => {
  const settings = { ...USUAL, ...context.settings };
  const booked = invoices.filter((invoice) => invoice.type !== "quote" && BOOKED.includes(invoice.status));
  booked.sort((a, b) => a.summary.date.localeCompare(b.summary.date) || a.number - b.number);
  const rows = booked.flatMap((invoice) => rowsOf(invoice, settings));
  console.log(`${booked.length} documents, ${rows.length} rows`);
  return { fileName: "bookings.csv", content: [COLUMNS.join(";"), ...rows, ""].join("\r\n"), encoding: "utf-8" };
};
