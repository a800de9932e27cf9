#!/usr/bin/python3
"""Times other programs at the same work, beside Ledra. Prints lines "name seconds" or "name kilobytes".

  peers.py weasyprint PAGE.html…                      the library in one warm process, a document
  peers.py cold LEDRA ENGINE_BENCH PAGE.html INVOICE.json   one process for one document, in turn, with Chromium
  peers.py batch LEDRA ENGINE_BENCH IN_FLIGHT INVOICE.json…   many documents, in turn with the bare engine
"""
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

COLD_ROUNDS = 7
BATCH_ROUNDS = 3
CHROMIUM = ["chromium", "--headless", "--no-sandbox", "--disable-gpu", "--no-first-run",
            "--disable-background-networking"]


def run(command: list[str]) -> tuple[float, str]:
    """The seconds that a program took from start to end, and what it printed; it must succeed."""
    start = time.perf_counter()
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=True)
    return time.perf_counter() - start, done.stdout


def require_pdf(path: pathlib.Path) -> None:
    if not path.read_bytes().startswith(b"%PDF"):
        sys.exit(f"peers.py: {path} is no PDF")


def say_median(name: str, values: list[float]) -> None:
    print(f"{name} {statistics.median(values):.6f}", flush=True)


def weasyprint(pages: list[str]) -> None:
    import weasyprint  # a slow import that the other modes need not wait for

    weasyprint.HTML(pages[0]).write_pdf()
    times = []
    for page in pages:
        start = time.perf_counter()
        if not weasyprint.HTML(page).write_pdf().startswith(b"%PDF"):
            sys.exit("peers.py: WeasyPrint made no PDF")
        times.append(time.perf_counter() - start)
    say_median("weasyprint", times)


def cold(ledra: str, engine_bench: str, page: str, invoice: str) -> None:
    times: dict[str, list[float]] = {"cold_export": [], "cold_chromium": [], "cold_parts": []}
    parts: dict[str, list[float]] = {}
    with tempfile.TemporaryDirectory() as folder:
        own, peer = pathlib.Path(folder, "own.pdf"), pathlib.Path(folder, "peer.pdf")
        for _ in range(COLD_ROUNDS):
            times["cold_export"].append(run([ledra, "export", "-q", "--force", invoice, "-o", str(own)])[0])
            times["cold_chromium"].append(run([*CHROMIUM, f"--print-to-pdf={peer}", page])[0])
            seconds, lines = run([engine_bench, "parts", invoice])
            times["cold_parts"].append(seconds)
            for name, value in (line.split() for line in lines.splitlines()):
                parts.setdefault(name, []).append(float(value))
            require_pdf(own)
            require_pdf(peer)
    for name, values in {**times, **parts}.items():
        say_median(name, values)


def batch(ledra: str, engine_bench: str, in_flight: str, invoices: list[str]) -> None:
    exports, bare = [], []
    for _ in range(BATCH_ROUNDS):
        with tempfile.TemporaryDirectory() as folder:
            exports.append(run([ledra, "export", "-q", *invoices, "-o", folder])[0] / len(invoices))
            written = sorted(pathlib.Path(folder).glob("*.pdf"))
            if len(written) != len(invoices):
                sys.exit("peers.py: documents are missing")
            require_pdf(written[-1])
        bare.append(float(run([engine_bench, "print", in_flight, *invoices])[1].split()[1]))
    say_median("batch_export", exports)
    say_median("batch_bare", bare)


def main() -> None:
    mode, arguments = sys.argv[1], sys.argv[2:]
    if mode == "weasyprint":
        weasyprint(arguments)
    elif mode == "cold":
        cold(*arguments)
    elif mode == "batch":
        batch(arguments[0], arguments[1], arguments[2], arguments[3:])
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main()
