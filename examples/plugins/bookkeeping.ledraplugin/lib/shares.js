const cents = (amount) => Math.sign(amount) * Math.round(Math.abs(amount) * 100 + 1e-7);

const lineNet = (invoice, item) => {
  const amount = item.quantity * item.unitPrice;
  return cents(invoice.grossPrices ? amount / (1 + item.vatPercentage / 100) : amount);
};

/** What of a document's total falls to each VAT rate, tax and discount included; adds up to the total to the cent. */
exports.sharesByRate = (invoice) => {
  const nets = new Map();
  for (const item of invoice.items)
    nets.set(item.vatPercentage, (nets.get(item.vatPercentage) ?? 0) + lineNet(invoice, item));
  const subtotal = [...nets.values()].reduce((sum, net) => sum + net, 0);
  const total = cents(invoice.summary.total);
  const rates = [...nets.keys()].sort((a, b) => b - a);
  const gross = (rate) => nets.get(rate) * (1 + rate / 100);
  const undiscounted = rates.reduce((sum, rate) => sum + gross(rate), 0);
  if (subtotal === 0 || undiscounted === 0) return [];
  const shares = rates.map((rate) => ({ rate, gross: Math.round((gross(rate) * total) / undiscounted) }));
  shares[0].gross += total - shares.reduce((sum, share) => sum + share.gross, 0);
  return shares.filter((share) => share.gross !== 0).map(({ rate, gross: all }) => ({ rate, gross: all / 100 }));
};
