#!/usr/bin/python3
"""Makes many one-page invoices out of one: usage make_invoices.py TEMPLATE.json FOLDER COUNT."""
import json
import pathlib
import sys
import uuid

CITIES = ["Lübeck", "Köln", "Görlitz", "Münster", "Würzburg", "Saarbrücken", "Berlin"]
PERSONS = ["Jonas Ahlers", "Jürgen Weiß", "Zoë Brückner", "Aylin Özdemir", "Mia Grünwald"]
WORKS = ["Korrekturlauf", "Satz und Umbruch", "Bildauswahl, drei Motive", "Reinzeichnung für den Druck"]


def varied(template: dict, number: int) -> dict:
    """The template with another number, recipient and amounts, so that no two pages are the same."""
    invoice = json.loads(json.dumps(template))
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
    for number in range(1, int(sys.argv[3]) + 1):
        text = json.dumps(varied(template, number), ensure_ascii=False, indent=2)
        (folder / f"invoice-{number:04}.json").write_text(text + "\n", encoding="utf-8")


if __name__ == "__main__":
    main()
