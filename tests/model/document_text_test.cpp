#include "model/amount_text.h"
#include "model/document_labels.h"
#include "support/test_suite.h"
#include "support/text_table.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace ledra;

namespace {

/// "_" stands for a no-break space and "~" for the minus sign, which look like others.
QString spelled(const char* column)
{
    return test::cell(column).replace(u'_', QChar(u'\u00a0')).replace(u'~', QChar(u'\u2212'));
}

/// The lines of a language's table that are neither blank nor comments.
QStringList tableLines(const QString& language)
{
    documentLabel(QString(), Language::english); // makes the resources known
    QFile file(QStringLiteral(":/strings/%1/Invoice.strings").arg(language));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    lines.removeIf([](const QString& line) { return line.startsWith(u'#'); });
    return lines;
}

QSet<QString> placeholders(const QString& wording)
{
    static const QRegularExpression placeholder(QStringLiteral("\\{\\w+\\}"));
    QSet<QString> names;
    for (auto matches = placeholder.globalMatch(wording); matches.hasNext();)
        names.insert(matches.next().captured());
    return names;
}

} // namespace

class DocumentTextTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void amounts_data()
    {
        test::textTable({"amount", "currency", "german", "english"},
                        {
                            {"1234567.891", "EUR", "1.234.567,89_€", "€1,234,567.89"},
                            {"25361.200000000004", "GBP", "25.361,20_£", "£25,361.20"},
                            {"-4311.25", "EUR", "~4.311,25_€", "~€4,311.25"},
                            {"-0.0", "EUR", "0,00_€", "€0.00"},
                            {"-0.004", "EUR", "0,00_€", "€0.00"},
                            {"-0.01", "USD", "~0,01_$", "~$0.01"},
                            {"12345", "JPY", "12.345_¥", "¥12,345"},
                            {"-0.3", "JPY", "0_¥", "¥0"},
                            {"-1.2345", "KWD", "~1,234_KWD", "~KWD_1.234"},
                            {"99.9", "CHF", "99,90_CHF", "CHF_99.90"},
                            {"99.9", "XYZ", "99,90_XYZ", "XYZ_99.90"},
                        });
    }

    void amounts()
    {
        const double amount = test::cell("amount").toDouble();
        const Currency currency{test::cell("currency")};
        QCOMPARE(amountText(amount, currency, Language::german), spelled("german"));
        QCOMPARE(amountText(amount, currency, Language::english), spelled("english"));
    }

    void quantitiesAndRates_data()
    {
        test::textTable({"number", "german", "english"}, {
                                                             {"1000", "1.000", "1,000"},
                                                             {"1250.5", "1.250,5", "1,250.5"},
                                                             {"0", "0", "0"},
                                                             {"-7.7", "~7,7", "~7.7"},
                                                             {"0.12345678", "0,123457", "0.123457"},
                                                             {"-0.0000001", "0", "0"},
                                                         });
    }

    void quantitiesAndRates()
    {
        const double number = test::cell("number").toDouble();
        QCOMPARE(quantityText(number, Language::german), spelled("german"));
        QCOMPARE(quantityText(number, Language::english), spelled("english"));
        QCOMPARE(percentText(number, Language::german), spelled("german") + QStringLiteral("\u00a0%"));
        QCOMPARE(percentText(number, Language::english), spelled("english") + u'%');
    }

    void labels()
    {
        const auto page = [](Language language) {
            return documentLabel(QStringLiteral("Page Number"), language,
                                 {{QStringLiteral("page"), QStringLiteral("2")},
                                  {QStringLiteral("pages"), QStringLiteral("10")}});
        };
        QCOMPARE(page(Language::german), QStringLiteral("Seite 2 von 10"));
        QCOMPARE(page(Language::english), QStringLiteral("Page 2 of 10"));
        QCOMPARE(documentLabel(QStringLiteral("Quantity"), Language::german), QStringLiteral("Menge"));
        QCOMPARE(documentLabel(QStringLiteral("Quantity"), Language::english), QStringLiteral("Quantity"));
        QCOMPARE(documentLabel(QStringLiteral("No Label"), Language::german), QStringLiteral("No Label"));
        const QDate day(2026, 3, 5);
        QCOMPARE(dateText(day, Language::english), QStringLiteral("5 March 2026"));
        QCOMPARE(shortDateText(day, Language::german), QStringLiteral("5 März"));
    }

    void tablesOfBothLanguagesAgree()
    {
        static const QRegularExpression form(QStringLiteral("^\"([^\"]+)\" = \"[^\"]+\";$"));
        QHash<QString, QStringList> keys;
        for (const QString& language : {QStringLiteral("de"), QStringLiteral("en")}) {
            const QStringList lines = tableLines(language);
            for (const QString& line : lines) {
                const QString key = form.match(line).captured(1);
                QVERIFY2(!key.isEmpty() && !keys[language].contains(key), line.toUtf8().constData());
                keys[language] += key;
            }
        }
        for (const QString& key : std::as_const(keys[QStringLiteral("en")]))
            QVERIFY2(keys[QStringLiteral("de")].contains(key), key.toUtf8().constData());
        for (const QString& key : std::as_const(keys[QStringLiteral("de")])) {
            const QString german = documentLabel(key, Language::german);
            const QString english = documentLabel(key, Language::english);
            QVERIFY2(placeholders(german) == placeholders(english), key.toUtf8().constData());
            // The name of a sentence is no wording; documents must not print it.
            const bool isSentence = german.endsWith(u'.') && german.contains(u' ');
            QVERIFY2(!isSentence || english != key, key.toUtf8().constData());
        }
    }

    void everyCaseHasItsWording()
    {
        for (const auto& row : enumTexts<VATExemptionReason>) {
            const bool none = row.value == VATExemptionReason::none;
            QCOMPARE(exemptionText(row.value, Language::english).endsWith(u'.'), !none);
            QCOMPARE(exemptionText(row.value, Language::german).endsWith(u'.'), !none);
        }
        const auto german = [](Unit unit, double quantity) {
            return unitLabel(unit, quantity, Language::german);
        };
        QCOMPARE(german(Unit::piece, 2), QStringLiteral("Stück"));
        QCOMPARE(german(Unit::hour, 1), QStringLiteral("Stunde"));
        QCOMPARE(german(Unit::hour, 0.5), QStringLiteral("Stunden"));
        QCOMPARE(german(Unit::day, 0), QStringLiteral("Tage"));
        QCOMPARE(german(Unit::week, -1), QStringLiteral("Wochen"));
        QCOMPARE(german(Unit::lumpSum, 1), QStringLiteral("pauschal"));
        QCOMPARE(unitLabel(Unit::lumpSum, 3, Language::english), QStringLiteral("Lump Sums"));
    }
};

const ledra::test::RegisterSuite<DocumentTextTest> registration("document_text_test");

#include "document_text_test.moc"
