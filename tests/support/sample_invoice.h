#pragma once

#include "model/invoice.h"

#include <QStringList>

#include <initializer_list>

namespace ledra::test {

/// A moment at noon of a day, so that no time zone of Europe moves the day.
inline Timestamp noon(int year, int month, int day)
{
    return Timestamp::fromDateTime(QDateTime(QDate(year, month, day), QTime(12, 0), Qt::UTC));
}

inline Invoice::Item sampleItem(const QString& text, double quantity, Unit unit, double price, double vat)
{
    return {QUuid::createUuidV5(QUuid(), text), text, quantity, unit, price, vat};
}

/// A German invoice of 1 April 2026 in English, without items and note.
inline Invoice sampleInvoice()
{
    const Country germany{QStringLiteral("DE")};
    Invoice invoice =
        newInvoice(QUuid(QStringLiteral("0d9c9a9e-5c1f-4d0a-8a38-0c4f2b1d7e11")), noon(2026, 4, 1), germany);
    invoice.number = 7;
    invoice.numberFormat = QStringLiteral("{YYYY}-{NNN}");
    invoice.language = Language::english;
    invoice.name = QStringLiteral("Erika Muster");
    invoice.addressLineOne = QStringLiteral("Ufergasse 5");
    invoice.addressPostcode = QStringLiteral("23552");
    invoice.addressCity = QStringLiteral("Lübeck");
    invoice.senderBusinessName = QStringLiteral("Studio Meridian");
    invoice.senderName = QStringLiteral("Paula Kern");
    invoice.senderAddressLineOne = QStringLiteral("Lindenallee 12");
    invoice.senderAddressPostcode = QStringLiteral("10115");
    invoice.senderAddressCity = QStringLiteral("Berlin");
    invoice.senderEmail = QStringLiteral("kern@example.de");
    invoice.senderIban = QStringLiteral("DE02200505501015871393");
    invoice.senderBic = QStringLiteral("HASPDEHHXXX");
    invoice.senderTaxNumber = QStringLiteral("48/123/45678");
    return invoice;
}

inline QString token(const char* word, int number)
{
    return QString::fromLatin1(word) + QString::number(number).rightJustified(4, u'0');
}

/// Items "ITEM0000", "ITEM0001" …; with `longTexts` some of them run over two to four lines.
inline void addItems(Invoice& invoice, int count, bool longTexts)
{
    for (int i = 0; i < count; ++i) {
        QString text = token("ITEM", i);
        if (longTexts && i % 3 != 0)
            text += QStringLiteral(" described at length").repeated(i % 7) + QStringLiteral("\nsecond line");
        invoice.items.push_back(sampleItem(text, 1 + i % 5, Unit::hour, 80, 19));
    }
}

/// Note lines "NOTE0000" …, every fifth one followed by an empty line.
inline void addNoteLines(Invoice& invoice, int count)
{
    QStringList lines;
    for (int i = 0; i < count; ++i) {
        lines += token("NOTE", i) + QStringLiteral(" and some words");
        if (i % 5 == 4 && i + 1 < count)
            lines += QString();
    }
    invoice.note = lines.join(u'\n');
}

} // namespace ledra::test
