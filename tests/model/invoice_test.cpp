#include "model/invoice.h"
#include "support/test_suite.h"
#include "support/text_table.h"

#include <QTest>

#include <limits>

using namespace ledra;

namespace {

/// Items written as "quantity*price@rate", discounts as "10%" or "15", gross prices as "gross".
Invoice invoiceOf(const QString& description)
{
    Invoice invoice;
    const QStringList words = description.split(u' ', Qt::SkipEmptyParts);
    for (const QString& word : words) {
        const qsizetype times = word.indexOf(u'*');
        const qsizetype at = word.indexOf(u'@');
        if (word == u"gross")
            invoice.grossPrices = true;
        else if (word.endsWith(u'%'))
            invoice.discountPercentage = word.chopped(1).toDouble();
        else if (times < 0)
            invoice.discountAmount = word.toDouble();
        else
            invoice.items.push_back({{},
                                     {},
                                     word.left(times).toDouble(),
                                     Unit::piece,
                                     word.sliced(times + 1, at - times - 1).toDouble(),
                                     word.sliced(at + 1).toDouble()});
    }
    return invoice;
}

/// An amount to the hundredth of a cent, where a rounding that is missing shows.
QString shown(double amount)
{
    return QString::number(amount, 'f', 4).remove(QRegularExpression(QStringLiteral("\\.?0+$")));
}

Timestamp moment(const QString& text)
{
    return Timestamp::fromDateTime(QDateTime::fromString(text, Qt::ISODate));
}

} // namespace

class InvoiceTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void amounts_data()
    {
        // Worked out by hand.
        test::textTable(
            {"invoice", "subtotal", "discount", "vat", "total"},
            {
                {"10%", "0", "0", "", "0"},
                {"2*50@19 1*30@7 1*20@0", "150", "0", "7:2.1 19:19", "171.1"},
                {"1*100@19 1*100@5.5 1*100@19 1*100@7", "400", "0", "5.5:5.5 7:7 19:38", "450.5"},
                {"gross 1*100@-19", "100", "0", "", "100"},
                {"gross 1*50@0 1*107@7", "150", "0", "7:7", "157"},
                {"gross 1*0.99@19 1*0.99@19 1*0.99@19", "2.49", "0", "19:0.47",
                 "2.96"},                                         // a cent less than 2.97
                {"1*0.125@0 1*0.625@0", "0.76", "0", "", "0.76"}, // half a cent, away from 0
                {"-1*0.125@0 1*-0.625@0", "-0.76", "0", "", "-0.76"},
                {"0.5*0.25@0 0.5*0.25@0 0.5*0.25@0", "0.39", "0", "", "0.39"},     // lines are rounded first
                {"1*0.03@19 1*0.03@19 1*0.03@19", "0.09", "0", "19:0.02", "0.11"}, // VAT on their sum
                {"1*0.25@50 1*-0.75@25", "-0.5", "0", "25:-0.19 50:0.13", "-0.56"},
                {"2*50@19 1*30@7 1*20@0 10%", "150", "15", "7:1.89 19:17.1", "153.99"},
                {"2*50@19 1*30@7 1*20@0 15", "150", "15", "7:1.89 19:17.1", "153.99"},
                {"2*50@19 1*30@7 1*20@0 10% 50", "150", "15", "7:1.89 19:17.1", "153.99"},
                {"2*50@19 1*30@7 1*20@0 0% 15", "150", "15", "7:1.89 19:17.1", "153.99"},
                {"1*100@19 -10", "100", "0", "19:19", "119"},
                {"1*100@0 10.125", "100", "10.13", "", "89.87"},
                {"1*0.5@0 25%", "0.5", "0.13", "", "0.37"},
                {"1*100@19 500", "100", "100", "19:0", "0"},
                {"1*100@19 150%", "100", "150", "19:-9.5", "-59.5"},
                {"1*-100@19 10", "-100", "-10", "19:-17.1", "-107.1"},
                {"1*-100@19 500", "-100", "-100", "19:0", "0"},
                {"-1*100@19 10%", "-100", "-10", "19:-17.1", "-107.1"},
                {"1*100@19 -1*100@7 10", "0", "0", "7:-7 19:19", "12"}, // no subtotal to spread a discount on
            });
    }

    void amounts()
    {
        const Invoice invoice = invoiceOf(test::cell("invoice"));
        QTEST(shown(invoice.subtotal()), "subtotal");
        QTEST(shown(invoice.discount()), "discount");
        QStringList vat;
        for (const VATAmount& amount : invoice.vatAmounts())
            vat += shown(amount.rate) + u':' + shown(amount.amount);
        QTEST(vat.join(u' '), "vat");
        QTEST(shown(invoice.total()), "total");
    }

    void dueDate_data()
    {
        test::textTable({"name", "date", "days", "due"},
                        {
                            {"summer time begins", "2026-03-20T10:00:00", "14", "2026-04-03T10:00:00+02:00"},
                            {"summer time ends", "2026-10-20T23:30:00", "14", "2026-11-03T23:30:00+01:00"},
                            {"year's end", "2025-12-20T08:00:00", "14", "2026-01-03T08:00:00+01:00"},
                            {"leap day", "2028-02-20T08:00:00", "10", "2028-03-01T08:00:00+01:00"},
                            {"local day", "2026-06-30T22:30:00Z", "30", "2026-07-31T00:30:00+02:00"},
                            {"in advance", "2026-05-05T12:00:00", "-7", "2026-04-28T12:00:00+02:00"},
                        });
    }

    void dueDate()
    {
        Invoice invoice;
        invoice.date = moment(test::cell("date"));
        invoice.daysToPay = test::cell("days").toLongLong();
        const QDateTime due = invoice.dueDate();
        QTEST(due.toOffsetFromUtc(due.offsetFromUtc()).toString(Qt::ISODate), "due");
    }

    void overdue()
    {
        Invoice invoice;
        invoice.date = moment(QStringLiteral("2026-03-20T10:00:00"));
        const Timestamp due = moment(QStringLiteral("2026-04-03T10:00:00"));
        const Timestamp later(due.secondsSinceReference() + 1);
        for (const Status status : {Status::draft, Status::sent, Status::paid, Status::cancelled}) {
            invoice.status = status;
            QVERIFY(!invoice.isOverdue(due));
            QCOMPARE(invoice.isOverdue(later), status == Status::sent);
        }
        invoice.status = Status::sent;
        invoice.daysToPay = std::numeric_limits<std::int64_t>::max(); // beyond any calendar
        QVERIFY(!invoice.isOverdue(later));
    }
};

const ledra::test::RegisterSuite<InvoiceTest> registration("invoice_test");

#include "invoice_test.moc"
