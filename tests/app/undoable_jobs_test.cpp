#include "app/undoable_jobs.h"
#include "support/store_home.h"
#include "support/test_suite.h"

using namespace ledra;

namespace {

struct Desk
{
    test::StoreHome home;
    ProfileManager profiles{home.context};
    InvoiceManager invoices{home.context, profiles};
    InvoiceJobs jobs{invoices, profiles};
    UndoableJobs undoable{invoices, jobs};
    QUndoStack& stack = invoices.undoStack();

    /// All records as they are, in the order of the list.
    std::vector<Invoice> state() const
    {
        std::vector<Invoice> records;
        for (const InvoicePtr& record : invoices.invoices())
            records.push_back(**record);
        return records;
    }

    void type(const QUuid& id, const QString& text)
    {
        for (qsizetype length = 1; length <= text.size(); ++length)
            QVERIFY(undoable.edit(
                id, [&](Invoice& invoice) { invoice.name = text.first(length); }, EditKind::typing));
    }
};

} // namespace

class UndoableJobsTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void typingIsOneStep();
    void othersChangesStay();
    void everythingAndBack();
    void guardedRecords();
    void whatIsGoneStaysGone();
};

void UndoableJobsTest::typingIsOneStep()
{
    Desk desk;
    const QUuid id = (**desk.undoable.create(InvoiceType::invoice))->id;
    const InvoicePtr record = desk.invoices.find(id);
    desk.type(id, QStringLiteral("Jonas"));
    QVERIFY(desk.undoable.edit(
        id, [](Invoice& invoice) { invoice.note = QStringLiteral("a"); }, EditKind::typing));
    desk.type(id, QStringLiteral("Mia"));
    QVERIFY(desk.undoable.edit(
        id, [](Invoice& invoice) { invoice.name = QStringLiteral("Mia"); },
        EditKind::single));          // nothing has changed
    QCOMPARE(desk.stack.count(), 4); // made, first name, note, second name
    QStringList names;
    for (int step = 0; step < 3; ++step, desk.stack.undo())
        names += (*record)->name + u'/' + (*record)->note;
    QCOMPARE(names.join(u' '), QStringLiteral("Mia/a Jonas/a Jonas/"));
    QCOMPARE((*record)->name, QString());
    desk.stack.redo();
    QCOMPARE((*record)->name, QStringLiteral("Jonas"));
    // Typed and taken back by hand is no step at all.
    const int steps = desk.stack.count();
    for (const char* email : {"x", ""})
        QVERIFY(desk.undoable.edit(
            id, [&](Invoice& invoice) { invoice.email = QString::fromLatin1(email); }, EditKind::typing));
    QCOMPARE(desk.stack.count(), steps - 2); // what could be redone is gone, and nothing came in its place
    // All of it reaches the file.
    desk.invoices.flush();
    const InvoiceManager second(desk.home.context, desk.profiles);
    QVERIFY(**second.find(id) == **record);
}

void UndoableJobsTest::othersChangesStay()
{
    Desk desk;
    const QUuid id = (**desk.undoable.create(InvoiceType::invoice))->id;
    desk.type(id, QStringLiteral("Jonas"));
    QVERIFY(desk.jobs.edit(
        id, [](Invoice& invoice) { invoice.reference = QStringLiteral("from elsewhere"); }, Force::no));
    desk.type(id, QStringLiteral("Jonas Ahlers")); // goes on with the same step
    desk.stack.undo();
    const Invoice& record = **desk.invoices.find(id);
    QVERIFY(record.name.isEmpty() && record.reference == u"from elsewhere");

    // Of a list of items only those that a step has touched.
    const auto namesOf = [&] {
        QStringList names;
        for (const Invoice::Item& item : record.items)
            names += item.item;
        return names.join(u' ');
    };
    const auto addItem = [&](const char* text) {
        return [&desk, text](Invoice& invoice) {
            invoice.items.push_back(newItem(**desk.profiles.activeProfile(), desk.home.context.ids));
            invoice.items.back().item = QString::fromLatin1(text);
        };
    };
    for (const char* text : {"a", "b", "c"})
        QVERIFY(desk.undoable.edit(id, addItem(text), EditKind::single));
    QVERIFY(desk.undoable.edit(
        id, [](Invoice& invoice) { invoice.items[1].item = QStringLiteral("typed"); }, EditKind::typing));
    QVERIFY(desk.jobs.edit(
        id,
        [](Invoice& invoice) {
            invoice.items.erase(invoice.items.begin());
            invoice.items.back().item = QStringLiteral("C");
        },
        Force::no));
    QCOMPARE(namesOf(), QStringLiteral("typed C"));
    desk.stack.undo();
    QCOMPARE(namesOf(), QStringLiteral("b C"));
    desk.stack.undo(); // adding c
    QCOMPARE(namesOf(), QStringLiteral("b"));
    desk.stack.redo();
    QCOMPARE(namesOf(), QStringLiteral("b c"));
}

void UndoableJobsTest::everythingAndBack()
{
    Desk desk;
    const auto idOf = [](const JobResult<InvoicePtr>& made) { return (**made)->id; };
    std::vector<std::vector<Invoice>> states = {desk.state()};
    const auto step = [&](bool isDone) {
        QVERIFY(isDone);
        desk.home.clock.moment = Timestamp(desk.home.clock.moment.secondsSinceReference() + 60);
        states.push_back(desk.state());
    };
    const auto invoice = desk.undoable.create(InvoiceType::invoice);
    step(invoice.has_value());
    const auto quote = desk.undoable.create(InvoiceType::quote);
    step(quote.has_value());
    step(desk.undoable.edit(
                          idOf(invoice), [](Invoice& record) { record.daysToPay = 3; }, EditKind::single)
             .has_value());
    step(desk.undoable.duplicate(idOf(invoice)).has_value());
    step(desk.undoable.convert(idOf(quote)).has_value());
    step(desk.undoable.setStatus(idOf(invoice), Status::sent).has_value());
    step(desk.undoable.cancel(idOf(invoice)).has_value());
    step(desk.undoable.remove(idOf(quote)).has_value());
    QCOMPARE(static_cast<std::size_t>(desk.stack.count()), states.size() - 1);
    for (int round = 0; round < 2; ++round) {
        for (std::size_t back = states.size() - 1; back > 0; --back) {
            QVERIFY(desk.state() == states[back]);
            desk.stack.undo();
        }
        for (const std::vector<Invoice>& state : states) {
            QVERIFY(desk.state() == state);
            desk.stack.redo();
        }
    }
    QVERIFY(desk.home.console.failures.isEmpty());
}

void UndoableJobsTest::guardedRecords()
{
    Desk desk;
    const QUuid id = (**desk.undoable.create(InvoiceType::invoice))->id;
    QVERIFY(desk.undoable.setStatus(id, Status::sent));
    const int steps = desk.stack.count();
    const auto change = [](Invoice& invoice) { invoice.name = QStringLiteral("x"); };
    QCOMPARE(desk.undoable.edit(id, change, EditKind::single).error().kind, JobFailure::Kind::guarded);
    QCOMPARE(desk.undoable.remove(id).error().kind, JobFailure::Kind::guarded);
    QVERIFY(!desk.undoable.convert(id) && !desk.undoable.cancel(QUuid::createUuid()));
    QCOMPARE(desk.stack.count(), steps);
    QVERIFY(desk.undoable.edit(id, change, EditKind::single, Force::yes));
    desk.stack.undo(); // what was forced can be taken back
    QVERIFY((*desk.invoices.find(id))->name.isEmpty());
}

void UndoableJobsTest::whatIsGoneStaysGone()
{
    Desk desk;
    const QUuid id = (**desk.undoable.create(InvoiceType::invoice))->id;
    desk.type(id, QStringLiteral("Jonas"));
    QVERIFY(desk.invoices.remove(id)); // by somebody else
    desk.stack.undo();
    QVERIFY(desk.state().empty());
    desk.stack.undo();
    desk.stack.redo(); // only the step that made it brings it back
    QCOMPARE(desk.state().size(), std::size_t{1});
}

const ledra::test::RegisterSuite<UndoableJobsTest> registration("undoable_jobs_test");

#include "undoable_jobs_test.moc"
