/** Rows of cells (RFC 4180); the separator is the one that the first line has most of. */
exports.parse = (text) => {
  const source = text.replace(/^\uFEFF/, "");
  const heading = source.split(/\r?\n/, 1)[0];
  const separator = [";", ",", "\t"].reduce((best, next) =>
    heading.split(next).length > heading.split(best).length ? next : best);
  const cell = new RegExp(`(?:"((?:[^"]|"")*)"|([^${separator}\\r\\n]*))(${separator}|\\r?\\n|$)`, "gy");
  const rows = [];
  let row = [];
  while (cell.lastIndex < source.length) {
    const found = cell.exec(source);
    if (!found) throw new Error(`Row ${rows.length + 1} has a quotation mark that is never closed.`);
    row.push((found[1]?.replaceAll('""', '"') ?? found[2]).trim());
    if (found[3] === separator && cell.lastIndex < source.length) continue;
    if (row.some((text) => text !== "")) rows.push(row);
    row = [];
  }
  return rows;
};

/** Objects by the wanted names; `names` says which headings mean each. */
exports.records = (text, names) => {
  const [headings = [], ...rows] = exports.parse(text);
  const known = headings.map((heading) => heading.toLowerCase());
  const columns = Object.entries(names).map(([name, meant]) =>
    [name, known.findIndex((heading) => meant.includes(heading))]);
  return rows.map((row) => Object.fromEntries(columns.map(([name, column]) => [name, row[column] ?? ""])));
};

/** "1.234,50", "1,234.50", "1234.5" */
exports.number = (text) => {
  const digits = text.replace(/[^0-9.,+-]/g, "");
  const comma = digits.lastIndexOf(","), point = digits.lastIndexOf(".");
  return Number(comma > point ? digits.replaceAll(".", "").replace(",", ".") : digits.replaceAll(",", ""));
};

/** "2026-03-05", "05.03.2026", "5.3.26" as "2026-03-05"; nothing for other texts. */
exports.day = (text) => {
  if (/^\d{4}-\d{2}-\d{2}/.test(text)) return text.slice(0, 10);
  const parts = /^(\d{1,2})\.(\d{1,2})\.(\d{2}|\d{4})$/.exec(text);
  if (!parts) return undefined;
  const [, day, month, year] = parts;
  return `${year.length === 2 ? "20" + year : year}-${month.padStart(2, "0")}-${day.padStart(2, "0")}`;
};
