#include "model/invoice.h"
#include "support/test_suite.h"

#include <QTest>

using namespace ledra;

namespace {

void setName(InvoiceRecord& record, const QString& name)
{
    record.edit([&](Invoice& invoice) { invoice.name = name; });
}

const auto ada = QStringLiteral("Ada");
const auto grace = QStringLiteral("Grace");

} // namespace

class RecordTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void anEditIsToldOnceWithTheFieldsThatDiffer()
    {
        InvoiceRecord record{Invoice{}};
        int numbers = 0;
        std::vector<Changes<Invoice>> told;
        const Observation any =
            record.observe([&](const Changes<Invoice>& changes) { told.push_back(changes); });
        const Observation number = record.observe<&Invoice::number>([&] { ++numbers; });
        record.edit([](Invoice& invoice) {
            invoice.note = QStringLiteral("Thank you");
            invoice.items.emplace_back();
            invoice.number = 7;
            invoice.number = 0; // as it was
        });
        QCOMPARE(told.size(), std::size_t{1});
        QVERIFY(told[0].has<&Invoice::note>() && told[0].has<&Invoice::items>());
        QVERIFY(!told[0].has<&Invoice::number>() && !told[0].has<&Invoice::name>());
        QCOMPARE(numbers, 0);

        setName(record, QString());
        QCOMPARE(told.size(), std::size_t{1});

        record.edit([](Invoice& invoice) {
            invoice.items.front().unitPrice = 3;
            invoice.number = 3;
        });
        QCOMPARE(told.size(), std::size_t{2});
        QVERIFY(told[1].has<&Invoice::items>() && !told[1].has<&Invoice::note>());
        QCOMPARE(numbers, 1);
    }

    void observersMayLeave()
    {
        InvoiceRecord record{Invoice{}};
        QString calls;
        Observation self;
        Observation later;
        Observation before = record.observe([&](const Changes<Invoice>&) { calls += u'b'; });
        self = record.observe([&](const Changes<Invoice>&) {
            self.reset();
            later.reset();
            calls += u's'; // what the observer holds must still be there
        });
        later = record.observe([&](const Changes<Invoice>&) { calls += u'l'; });
        const Observation last = record.observe([&](const Changes<Invoice>&) { calls += u'x'; });
        before.reset();
        setName(record, ada);
        setName(record, grace);
        QCOMPARE(calls, QStringLiteral("sxx"));
    }

    void observersMayEdit()
    {
        InvoiceRecord record{Invoice{}};
        QString seen;
        const Observation trimming = record.observe<&Invoice::name>(
            [&] { record.edit([](Invoice& invoice) { invoice.name = invoice.name.trimmed(); }); });
        const Observation reading = record.observe<&Invoice::name>([&] { seen = record->name; });
        setName(record, QStringLiteral("  Ada "));
        QCOMPARE(record->name, ada);
        QCOMPARE(seen, ada);
    }

    void theLastObserverMayLeaveInAnEditOfItsOwn()
    {
        InvoiceRecord record{Invoice{}};
        int told = 0;
        Observation only;
        only = record.observe([&](const Changes<Invoice>&) {
            ++told;
            only.reset();
            setName(record, grace);
        });
        setName(record, ada);
        QCOMPARE(told, 1);
        QCOMPARE(record->name, grace);
        const Observation next = record.observe([&](const Changes<Invoice>&) { ++told; });
        setName(record, ada);
        QCOMPARE(told, 2);
    }
};

const ledra::test::RegisterSuite<RecordTest> registration("record_test");

#include "record_test.moc"
