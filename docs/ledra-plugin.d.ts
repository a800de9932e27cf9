// What a Ledra plugin gets and gives. For editors: /// <reference path="ledra-plugin.d.ts" />

export type Status = "Draft" | "Sent" | "Paid" | "Cancelled";
export type Unit = "Piece" | "Hour" | "Day" | "Week" | "Lump Sum";

/** A day "yyyy-MM-dd", a moment in ISO 8601, or seconds since 2001-01-01T00:00:00Z. */
export type Moment = string | number;

export interface Summary {
  id: string;
  number: number;
  /** As it is printed. */
  formattedNumber: string;
  status: Status;
  total: number;
  currency: string;
  /** yyyy-MM-dd */
  date: string;
  /** Empty when there is none. */
  reference: string;
  name: string;
}

export interface Address {
  lineOne: string;
  lineTwo: string;
  postcode: string;
  city: string;
  state: string;
  /** ISO 3166-1 alpha-2 */
  country: string;
}

export interface Item {
  id: string;
  quantity: number;
  unit: Unit;
  unitPrice: number;
  /** Percent. */
  vatPercentage: number;
  description: string;
}

/** The record as in its file. Moments are seconds since 2001-01-01T00:00:00Z. */
export interface Invoice {
  version: number;
  type: "invoice" | "cancellation" | "quote";
  id: string;
  cancelledInvoiceId?: string;
  quoteId?: string;
  number: number;
  date: number;
  serviceDateStart: number;
  serviceDateEnd?: number;
  recipient: { name: string; businessName: string; address: Address; email: string };
  sender: {
    name: string; businessName: string; address: Address; email: string; phone: string; web: string;
    additional: string; iban: string; bic: string; taxNumber: string; vatNumber: string; additionalNumbers: string;
  };
  items: Item[];
  grossPrices: boolean;
  discountPercentage?: number;
  discountAmount?: number;
  vatExemptionReason: string;
  marginalNote: string;
  daysToPay: number;
  currency: string;
  language?: "en" | "de";
  status: Status;
  statusUpdateDate: number;
  note: string;
  reference?: string;
  summary: Summary;
}

export interface FileContent {
  fileName: string;
  content: string;
  encoding: "utf-8" | "base64";
}

export interface Context {
  version: string;
  profile: string;
  language: "en" | "de";
  settings: Record<string, string>;
  /** The file that an update was given. */
  input?: FileContent;
}

/** What is there overwrites the invoice's field. */
export interface ImportPatch {
  recipient?: { name?: string; email?: string; address?: Partial<Address> };
  items?: Partial<Item>[];
  currency?: string;
  date?: Moment;
  serviceDateStart?: Moment;
  serviceDateEnd?: Moment;
  marginalNote?: string;
  status?: Status;
  statusDate?: Moment;
}

type Result<T> = T | Promise<T>;
export type Exported = string | { fileName?: string; content: string; encoding?: "utf-8" | "base64" };

/** What main.js may export. */
export interface Plugin {
  exportInvoice?(invoice: Invoice, context: Context): Result<Exported>;
  exportInvoices?(invoices: Invoice[], context: Context): Result<Exported>;
  importInvoices?(input: FileContent | null, context: Context): Result<(ImportPatch & { number?: string })[]>;
  updateInvoices?(summaries: Summary[], context: Context): Result<Record<string, ImportPatch>>;
}

export interface FetchReply {
  ok: boolean;
  status: number;
  url: string;
  headers: { get(name: string): string | null };
  text(): Promise<string>;
  json(): Promise<unknown>;
}

declare global {
  function require(path: string): any;
  const module: { exports: Plugin };
  const exports: Plugin;
  const console: { log(...values: unknown[]): void };
  /** Only with the capability "network:HOST" and the user's consent. */
  function fetch(
    url: string,
    options?: { method?: string; headers?: Record<string, string>; body?: string },
  ): Promise<FetchReply>;
  /** Only with the capability "connector". */
  const connector: { run(value: unknown): Promise<{ value: unknown }> };
}
