#include "render/document_paginator.h"
#include "support/recording_console.h"
#include "support/test_suite.h"

#include <deque>

using namespace ledra;

namespace {

/// An engine whose answers the test gives.
class ScriptedEngine final : public WebEngine
{
public:
    struct Measurement
    {
        QString html;
        PageFormat format;
        QString script;
        Answered answered;
    };

    void measure(const QString& html, PageFormat format, const QString& script, Answered answered) override
    {
        ++measurements;
        pending.push_back({html, format, script, std::move(answered)});
    }

    void print(const QString&, const Paper&, Printed printed) override
    {
        printed(std::unexpected(WebEngineError::printFailed));
    }

    void answer(const std::expected<QString, WebEngineError>& answer)
    {
        const Measurement first = std::move(pending.front());
        pending.pop_front();
        first.answered(answer);
    }

    int measurements = 0;
    std::deque<Measurement> pending;
};

/// A document that describes the pages it is asked for.
struct DescribedDocument final : PaginatedDocument
{
    QString html = QStringLiteral("measuring");
    int count = 3;
    PageFormat format = PageFormat::a4;
    std::size_t key = 1;

    QString measuringHtml() const override { return html; }
    QStringList blockSelectors() const override { return {QStringLiteral(".a tr"), QStringLiteral(".b")}; }
    int expectedBlockCount() const override { return count; }
    PageFormat pageFormat() const override { return format; }
    std::size_t cacheKey() const override { return key; }
    std::optional<QString> headerSelector() const override { return QStringLiteral(".a thead"); }
    double continuationOffset(double rem) const override { return 2 * rem; }
    QString pageHtml(PagePosition position, const std::vector<int>& blocks, double remainingSpace,
                     double rem) const override
    {
        QStringList indices;
        for (const int block : blocks)
            indices += QString::number(block);
        return QStringLiteral(
                   "position %1, blocks %2, rest %3, rem %4, page <!--page-number--> of <!--page-count-->")
            .arg(static_cast<int>(position))
            .arg(indices.join(u' '))
            .arg(remainingSpace, 0, 'f', 1)
            .arg(rem);
    }
};

/// 10 pixels a rem, content from 20 to 300, blocks of 100 from 50 on.
QString geometryJson(int blocks)
{
    QStringList list;
    for (int i = 0; i < blocks; ++i)
        list += QStringLiteral("{\"top\":%1,\"bottom\":%2}").arg(50 + 100 * i).arg(150 + 100 * i);
    return QStringLiteral(
               "{\"rem\":10,\"contentTop\":20,\"contentBottom\":300,\"flowTop\":50,\"blocks\":[%1],"
               "\"headerHeight\":7,\"footerSectionTop\":null}")
        .arg(list.join(u','));
}

using Answer = std::expected<QString, WebEngineError>;

struct Fixture
{
    ScriptedEngine engine;
    test::RecordingConsole console;
    DocumentPaginator paginator{engine, console};

    /// Paginates, answers a measurement and returns what the completion got; a result without pages when the
    /// completion came too early, or not once.
    PaginationResult paginated(const DescribedDocument& document, const Answer& answer)
    {
        int calls = 0;
        bool isEarly = false;
        PaginationResult got;
        paginator.paginate(std::make_shared<DescribedDocument>(document),
                           [&](const PaginationResult& result) {
                               ++calls;
                               got = result;
                           });
        isEarly |= calls != 0;
        QCoreApplication::processEvents();
        if (!engine.pending.empty()) {
            engine.answer(answer);
            isEarly |= calls != 0;
        }
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
        return calls == 1 && !isEarly ? got : PaginationResult{};
    }
};

} // namespace

Q_DECLARE_METATYPE(Answer)

class DocumentPaginatorTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void pagesFollowTheMeasurement();
    void jobsRunOneAfterAnother();
    void answersMayComeAfterTheEnd();
    void failuresFallBackToOnePage_data();
    void failuresFallBackToOnePage();
    void keptResults_data();
    void keptResults();
    void failuresAreNotKept();
    void measuringScriptNamesWhatItReads();
};

void DocumentPaginatorTest::pagesFollowTheMeasurement()
{
    Fixture fixture;
    DescribedDocument document;
    document.count = 5;
    const PaginationResult result = fixture.paginated(document, geometryJson(5));
    QVERIFY(result.isMeasured);
    // The first page has 50 to 300; the others start at 20 + 2 rem + 7 = 47.
    const std::vector<QString> expected = {
        QStringLiteral("position 1, blocks 0 1, rest 50.0, rem 10, page 1 of 3"),
        QStringLiteral("position 2, blocks 2 3, rest 53.0, rem 10, page 2 of 3"),
        QStringLiteral("position 3, blocks 4, rest 153.0, rem 10, page 3 of 3"),
    };
    QCOMPARE(result.pages, expected);
    QVERIFY(fixture.console.failures.isEmpty());
}

void DocumentPaginatorTest::jobsRunOneAfterAnother()
{
    Fixture fixture;
    QStringList served;
    const auto add = [&](const QString& html) {
        auto document = std::make_shared<DescribedDocument>();
        document->html = html;
        fixture.paginator.paginate(document, [&served, html](const PaginationResult&) { served += html; });
    };
    add(QStringLiteral("first"));
    add(QStringLiteral("second"));
    add(QStringLiteral("third"));
    for (const QString& html : {QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")}) {
        QTRY_COMPARE(fixture.engine.pending.size(), std::size_t{1});
        QCOMPARE(fixture.engine.pending.front().html, html);
        const auto before = served.size();
        fixture.engine.answer(geometryJson(3));
        QTRY_COMPARE(served.size(), before + 1);
    }
    QCOMPARE(served.join(u' '), QStringLiteral("first second third"));
    QVERIFY(fixture.engine.pending.empty());
}

/// A preview is closed while its document is being measured.
void DocumentPaginatorTest::answersMayComeAfterTheEnd()
{
    ScriptedEngine engine;
    bool isServed = false;
    {
        test::RecordingConsole console;
        DocumentPaginator paginator(engine, console);
        paginator.paginate(std::make_shared<DescribedDocument>(),
                           [&](const PaginationResult&) { isServed = true; });
        QTRY_COMPARE(engine.pending.size(), std::size_t{1});
    }
    engine.answer(geometryJson(3));
    QCoreApplication::processEvents();
    QVERIFY(!isServed);
}

void DocumentPaginatorTest::failuresFallBackToOnePage_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::newRow("load failed") << Answer(std::unexpected(WebEngineError::loadFailed));
    QTest::newRow("timed out") << Answer(std::unexpected(WebEngineError::timedOut));
    QTest::newRow("garbage") << Answer(QStringLiteral("<html>"));
    QTest::newRow("nothing") << Answer(QString());
    QTest::newRow("a key is missing")
        << Answer(geometryJson(3).replace(QStringLiteral("\"rem\":10,"), QString()));
    QTest::newRow("no number") << Answer(
        geometryJson(3).replace(QStringLiteral("\"flowTop\":50"), QStringLiteral("\"flowTop\":null")));
    QTest::newRow("half a block") << Answer(
        geometryJson(3).replace(QStringLiteral(",\"bottom\":150"), QString()));
    QTest::newRow("a row too few") << Answer(geometryJson(2));
    QTest::newRow("a row too many") << Answer(geometryJson(4));
}

void DocumentPaginatorTest::failuresFallBackToOnePage()
{
    Fixture fixture;
    QFETCH(Answer, answer);
    const PaginationResult result = fixture.paginated({}, answer);
    QVERIFY(!result.isMeasured);
    QCOMPARE(result.pages.size(), std::size_t{1});
    QVERIFY2(
        result.pages.front().startsWith(QStringLiteral("position 0, blocks 0 1 2, rest 1000000.0, rem 1, ")),
        qPrintable(result.pages.front()));
    QCOMPARE(fixture.console.failures,
             QStringList{QStringLiteral("Pagination measurement failed, falling back to a single page")});
}

void DocumentPaginatorTest::keptResults_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("measurements");
    QTest::newRow("equal document") << "measuring" << 1 << 1;
    QTest::newRow("other record, styling or scheme") << "measuring" << 2 << 2;
    // What the key leaves out stands in the HTML: labels of another language, another logo, another number.
    QTest::newRow("other words") << "Messen" << 1 << 2;
}

void DocumentPaginatorTest::keptResults()
{
    Fixture fixture;
    QFETCH(QString, html);
    QFETCH(int, key);
    DescribedDocument document;
    const PaginationResult first = fixture.paginated(document, geometryJson(3));
    document.html = html;
    document.key = static_cast<std::size_t>(key);
    const PaginationResult second = fixture.paginated(document, geometryJson(3));
    QCOMPARE(second.pages, first.pages);
    QVERIFY(second.isMeasured);
    QTEST(fixture.engine.measurements, "measurements");
}

void DocumentPaginatorTest::failuresAreNotKept()
{
    Fixture fixture;
    QVERIFY(!fixture.paginated({}, std::unexpected(WebEngineError::rendererDied)).isMeasured);
    QVERIFY(fixture.paginated({}, geometryJson(3)).isMeasured);
}

void DocumentPaginatorTest::measuringScriptNamesWhatItReads()
{
    Fixture fixture;
    DescribedDocument document;
    document.format = PageFormat::usLetter;
    fixture.paginator.paginate(std::make_shared<DescribedDocument>(document), [](const PaginationResult&) {});
    QTRY_COMPARE(fixture.engine.pending.size(), std::size_t{1});
    const ScriptedEngine::Measurement& measurement = fixture.engine.pending.front();
    QCOMPARE(measurement.format, PageFormat::usLetter);
    QVERIFY(measurement.script.contains(QStringLiteral("[\".a tr\",\".b\"]")));
    QVERIFY(measurement.script.contains(QStringLiteral("\".a thead\"")));
    QVERIFY(measurement.script.contains(QStringLiteral("27.94 * rem")));
}

const ledra::test::RegisterSuite<DocumentPaginatorTest> registration("document_paginator_test");

#include "document_paginator_test.moc"
