// Times two libraries at the electronic form of one invoice, warm, and prints lines "name seconds".
//   usage: node time_peers.mjs INVOICE.json PAGE.pdf
// What is timed is the library alone: its input is made beforehand, and its output is checked after the clock stops.
// The XML is timed in a process that has not made a PDF yet: in one of the libraries a single PDF makes every later
// XML about three times as slow. For the difference PDF minus XML both take turns, so that all of that hits both.
import { readFileSync } from "node:fs";
import { inflateSync } from "node:zlib";
import core from "@e-invoice-eu/core";
import { zugferd } from "node-zugferd";
import { EN16931, createProfile } from "node-zugferd/profile";
import { readFacts } from "./invoice_facts.mjs";
import { eInvoiceInput, zugferdInput } from "./peer_inputs.mjs";

const WARM_ROUNDS = 150;
const ROUNDS = 201;
const SLOW_WARM_ROUNDS = 3; // for what takes a tenth of a second
const SLOW_ROUNDS = 15;

const ENTITIES = { "&lt;": "<", "&gt;": ">", "&quot;": '"', "&apos;": "'", "&amp;": "&" };
const unescaped = (xml) => xml.replace(/&(lt|gt|quot|apos|amp);/g, (entity) => ENTITIES[entity]);

/** Throws unless the text is a CII document of this very invoice, with every line in its place. */
function requireCii(xml, facts) {
  const [head, ...lines] = xml.split("<ram:IncludedSupplyChainTradeLineItem>").map(unescaped);
  const wants = (part, text) => {
    if (!part.includes(text)) throw new Error(`the XML lacks ${text}`);
  };
  wants(head, "<rsm:CrossIndustryInvoice ");
  wants(head, `<ram:ID>${facts.number}</ram:ID>`);
  wants(xml, `<ram:GrandTotalAmount>${facts.gross}</ram:GrandTotalAmount>`);
  if (lines.length !== facts.lines.length) throw new Error(`the XML has ${lines.length} lines`);
  for (const [index, line] of facts.lines.entries()) {
    wants(lines[index], `<ram:Name>${line.name}</ram:Name>`);
    wants(lines[index], `<ram:LineTotalAmount>${line.net}</ram:LineTotalAmount>`);
  }
}

function inflated(bytes) {
  try {
    return inflateSync(bytes).toString("utf8");
  } catch {
    return ""; // a stream of another kind, such as a picture
  }
}

/** Throws unless the bytes are a PDF that names an attached XML, and one of its streams is the CII document. */
function requireHybrid(bytes, facts) {
  const pdf = Buffer.from(bytes);
  const raw = pdf.toString("latin1");
  if (!raw.startsWith("%PDF-")) throw new Error("the result is no PDF");
  // The catalogue may itself lie in a compressed stream, so all streams are looked through.
  const streams = [...raw.matchAll(/stream\r?\n/g)]
    .filter((start) => !raw.startsWith("end", start.index - 3))
    .map((start) => {
      const from = start.index + start[0].length;
      return inflated(pdf.subarray(from, raw.indexOf("endstream", from)));
    });
  const objects = [raw, ...streams].join("\n");
  if (!/\/EmbeddedFiles/.test(objects) || !/\((factur-x|xrechnung)\.xml\)/.test(objects)) {
    throw new Error("the PDF names no attached XML");
  }
  const attached = streams.find((text) => text.includes("<rsm:CrossIndustryInvoice "));
  if (!attached) throw new Error("the PDF holds no CII document");
  requireCii(attached, facts);
}

/** Off: the check against the XSD (strict), the log, and the merging of the profile's layers for each document, which
 *  the library does otherwise (..._stock) although the outcome is always the same. */
function zugferdWorks(facts, pdf) {
  const options = { strict: false, logger: { disabled: true } };
  const { extends: layers, mask, ...own } = EN16931;
  const merged = { ...own, schema: zugferd({ profile: EN16931, ...options }).context.mergeSchemas(EN16931) };
  const input = zugferdInput(facts);
  const stock = zugferd({ profile: EN16931, ...options });
  const quick = zugferd({ profile: createProfile(merged), ...options });
  return {
    cii: { name: "node_zugferd_cii", run: () => quick.create(input).toXML(), check: requireCii },
    hybrid: { name: "node_zugferd_hybrid", run: () => quick.create(input).embedInPdf(pdf), check: requireHybrid },
    usual: { name: "node_zugferd_cii_stock", run: () => stock.create(input).toXML(), check: requireCii },
  };
}

/** Off: the compilation of the JSON schema and the check of the input, by asking the library's formats directly.
 *  The whole service, which does both for each document, is timed too (..._checked). */
function eInvoiceWorks(facts, pdf) {
  const factory = new core.FormatFactoryService();
  const service = new core.InvoiceService(console);
  const cii = factory.createFormatService("XRECHNUNG-CII", console);
  const hybrid = factory.createFormatService("Factur-X-XRechnung", console); // makes the very XML of the first
  const input = eInvoiceInput(facts);
  const complete = structuredClone(input);
  cii.fillInvoiceDefaults(complete);
  const file = { buffer: pdf, filename: "page.pdf", mimetype: "application/pdf" };
  const ciiOptions = { format: "xrechnung-cii", lang: "de" };
  const hybridOptions = { format: "factur-x-xrechnung", lang: "de", pdf: file };
  return {
    cii: { name: "e_invoice_eu_cii", run: () => cii.generate(complete, ciiOptions), check: requireCii },
    hybrid: { name: "e_invoice_eu_hybrid", run: () => hybrid.generate(complete, hybridOptions), check: requireHybrid },
    usual: { name: "e_invoice_eu_cii_checked", run: () => service.generate(input, { ...ciiOptions }),
      check: requireCii, isSlow: true },
  };
}

async function timed(work, facts) {
  const start = process.hrtime.bigint();
  const result = await work.run();
  const seconds = Number(process.hrtime.bigint() - start) / 1e9;
  work.check(result, facts);
  return seconds;
}

const median = (values) => [...values].sort((left, right) => left - right)[Math.floor(values.length / 2)];

/** The median seconds of each of the works, which take turns. */
async function measure(facts, ...works) {
  const isSlow = works.some((work) => work.isSlow);
  const warmRounds = isSlow ? SLOW_WARM_ROUNDS : WARM_ROUNDS;
  const rounds = isSlow ? SLOW_ROUNDS : ROUNDS;
  const times = works.map(() => []);
  for (let round = -warmRounds; round < rounds; ++round) {
    for (const [index, work] of works.entries()) {
      const seconds = await timed(work, facts);
      if (round >= 0) times[index].push(seconds);
    }
  }
  return times.map(median);
}

/** Neither library takes a finished XML for its PDF, so the making of it, measured in the same turns, is subtracted. */
async function report({ cii, hybrid, usual }, facts) {
  const say = (name, seconds) => console.log(`${name} ${seconds.toFixed(9)}`);
  say(cii.name, ...(await measure(facts, cii)));
  const [ciiInTurn, hybridInTurn] = await measure(facts, cii, hybrid);
  say(hybrid.name, hybridInTurn);
  say(`${hybrid.name}_without_cii`, hybridInTurn - ciiInTurn);
  say(usual.name, ...(await measure(facts, usual)));
}

async function main([invoicePath, pagePath]) {
  if (!invoicePath || !pagePath) throw new Error("usage: node time_peers.mjs INVOICE.json PAGE.pdf");
  const facts = readFacts(invoicePath);
  const page = readFileSync(pagePath);
  for (const [library, worksOf] of [["node-zugferd", zugferdWorks], ["@e-invoice-eu/core", eInvoiceWorks]]) {
    try {
      await report(worksOf(facts, page), facts);
    } catch (error) {
      console.error(`time_peers.mjs: ${library}: ${error.message.split("\n")[0]}`);
      process.exitCode = 1;
    }
  }
}

main(process.argv.slice(2)).catch((error) => {
  console.error(`time_peers.mjs: ${error.message}`);
  process.exitCode = 1;
});
