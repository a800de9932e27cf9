#include "app/in_turn.h"
#include "support/test_suite.h"

using namespace ledra;

namespace {

/// Three jobs that write down what they say.
struct Jobs
{
    void say(std::size_t turn, const QString& word)
    {
        inTurn.tell(turn, [this, word] { said += word; });
    }

    InTurn inTurn;
    QStringList said;
};

} // namespace

class InTurnTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void lateOnesHoldBackTheRest();
    void whatWaitsCanBeTold();
};

void InTurnTest::lateOnesHoldBackTheRest()
{
    Jobs jobs;
    jobs.say(1, QStringLiteral("b"));
    jobs.say(2, QStringLiteral("d"));
    jobs.inTurn.done(2);
    QCOMPARE(jobs.said, QStringList());
    jobs.say(0, QStringLiteral("a")); // its turn: at once
    QCOMPARE(jobs.said, QStringList({QStringLiteral("a")}));
    jobs.inTurn.done(0);
    QCOMPARE(jobs.said.join(u' '), QStringLiteral("a b")); // the second goes on
    jobs.say(1, QStringLiteral("c"));
    jobs.inTurn.done(1);
    jobs.say(3, QStringLiteral("e"));
    QCOMPARE(jobs.said.join(u' '), QStringLiteral("a b c d e"));
}

void InTurnTest::whatWaitsCanBeTold()
{
    Jobs jobs;
    jobs.say(2, QStringLiteral("c"));
    jobs.say(1, QStringLiteral("b"));
    jobs.inTurn.tellAll();
    jobs.inTurn.done(0);
    jobs.inTurn.done(1);
    QCOMPARE(jobs.said.join(u' '), QStringLiteral("b c")); // and only once
}

const ledra::test::RegisterSuite<InTurnTest> registration("in_turn_test");

#include "in_turn_test.moc"
