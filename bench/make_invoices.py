#!/usr/bin/python3
"""Makes many one-page invoices out of one: usage make_invoices.py TEMPLATE.json FOLDER COUNT [ITEMS]."""
import json
import pathlib
import sys
import uuid

CITIES = ["Lübeck", "Köln", "Görlitz", "Münster", "Würzburg", "Saarbrücken", "Berlin"]
PERSONS = ["Jonas Ahlers", "Jürgen Weiß", "Zoë Brückner", "Aylin Özdemir", "Mia Grünwald"]
WORKS = ["Korrekturlauf", "Satz und Umbruch", "Bildauswahl, drei Motive", "Reinzeichnung für den Druck"]


def varied(template: dict, number: int, items: int) -> dict:
    """The template with another number, recipient and amounts, so that no two pages are the same, and with as
    many items as wanted, which repeat those of the template."""
    invoice = json.loads(json.dumps(template))
    once = invoice["items"]
    invoice["items"] = [dict(once[position % len(once)]) for position in range(items)]
    invoice["id"] = str(uuid.uuid5(uuid.NAMESPACE_OID, f"invoice {number}")).upper()
    invoice["number"] = number
    invoice["recipient"]["name"] = PERSONS[number % len(PERSONS)]
    invoice["recipient"]["address"]["city"] = CITIES[number % len(CITIES)]
    invoice["recipient"]["address"]["postcode"] = f"{10000 + 37 * number % 89999}"
    for position, item in enumerate(invoice["items"]):
        item["id"] = str(uuid.uuid5(uuid.NAMESPACE_OID, f"item {number} {position}")).upper()
        item["unitPrice"] = round(item["unitPrice"] + number * 1.37, 2)
    invoice["items"][-1]["description"] = f"{WORKS[number % len(WORKS)]}, Teil {number}"
    return invoice


def main() -> None:
    template = json.loads(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"))
    folder = pathlib.Path(sys.argv[2])
    folder.mkdir(parents=True, exist_ok=True)
    items = int(sys.argv[4]) if len(sys.argv) > 4 else len(template["items"])
    for number in range(1, int(sys.argv[3]) + 1):
        text = json.dumps(varied(template, number, items), ensure_ascii=False, indent=2)
        (folder / f"invoice-{number:04}.json").write_text(text + "\n", encoding="utf-8")


if __name__ == "__main__":
    main()
