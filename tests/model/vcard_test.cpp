#include "model/vcard.h"
#include "support/test_suite.h"

using namespace ledra;

namespace {

const Country home{QStringLiteral("DE")};

QString textOf(const std::optional<Recipient>& recipient)
{
    if (!recipient)
        return QStringLiteral("none");
    const Recipient& r = *recipient;
    return QStringList{r.name,           r.businessName,        r.addressLineOne,
                       r.addressLineTwo, r.addressPostcode,     r.addressCity,
                       r.addressState,   r.addressCountry.code, r.email}
        .join(u'|');
}

} // namespace

class VCardTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void cards_data()
    {
        QTest::addColumn<QByteArray>("card");
        QTest::addColumn<QString>("recipient");
        const auto row = [](const char* title, const char* lines, const char* recipient) {
            QTest::newRow(title) << "BEGIN:VCARD\r\n" + QByteArray(lines).replace('\n', "\r\n") +
                                        "\r\nEND:VCARD\r\n"
                                 << QString::fromUtf8(recipient);
        };
        row("version 4",
            "VERSION:4.0\nFN:Jonas Ahlers\nN:Ahlers;Jonas;;;\nORG:Rösterei Ahlers;Einkauf\n"
            "ADR;TYPE=work:;;Ufergasse 5;Lübeck;SH;23552;Germany\nEMAIL:jonas@example.de",
            "Jonas Ahlers|Rösterei Ahlers|Ufergasse 5||23552|Lübeck|SH|DE|jonas@example.de");
        row("name in parts, other country", "N:Muster;Erika\nADR:;Hof 2;Weg 1;Wien;;1010;Österreich",
            "Erika Muster||Weg 1|Hof 2|1010|Wien||AT|");
        row("escapes and groups",
            "item1.FN:A\\, B\\; C\\\\D\nitem2.ADR;TYPE=\"home;x:y\":;;Weg 1\\nHaus 2;X;;1;us",
            "A, B; C\\D||Weg 1|Haus 2|1|X||US|");
        row("folded lines", "FN:Jonas\n  Ahl\n ers\nEMAIL:a@\n\tb.de", "Jonas Ahlers|||||||DE|a@b.de");
        row("version 2.1",
            "VERSION:2.1\nFN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:J=C3=BCrgen =\nWei=C3=9F\n"
            "EMAIL;INTERNET:j@x.de",
            "Jürgen Weiß|||||||DE|j@x.de");
        row("Latin-1", "FN:J\xfcrgen", "Jürgen|||||||DE|");
        row("preferred of several",
            "FN:A\nEMAIL:first@x.de\nEMAIL;TYPE=PREF:best@x.de\nEMAIL;PREF=1:second@x.de",
            "A|||||||DE|best@x.de");
        row("business", "FN:Rösterei GmbH\nORG:Rösterei GmbH", "|Rösterei GmbH||||||DE|");
        row("unknown country", "FN:A\nADR:;;;;;;Atlantis", "A|||||||DE|");
        row("nobody", "VERSION:4.0\nNOTE:nothing", "none");
        QTest::newRow("only the first")
            << QByteArray("BEGIN:VCARD\nFN:A\nEND:VCARD\nBEGIN:VCARD\nFN:B\nEND:VCARD")
            << QStringLiteral("A|||||||DE|");
        QTest::newRow("not ended") << QByteArray("begin:vcard\nFN:A\nORG") << QStringLiteral("A|||||||DE|");
        QTest::newRow("no card") << QByteArray("FN:A\n\x00\xff=\n=", 10) << QStringLiteral("none");
    }

    void cards()
    {
        QFETCH(QByteArray, card);
        QFETCH(QString, recipient);
        QCOMPARE(textOf(recipientFromVCard(card, home)), recipient);
    }
};

const ledra::test::RegisterSuite<VCardTest> registration("vcard_test");

#include "vcard_test.moc"
