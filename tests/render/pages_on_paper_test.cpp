#include "render/document_paginator.h"
#include "render/invoice_document.h"
#include "render/measuring_script.h"
#include "render/pdf_renderer.h"
#include "render/qt_web_engine.h"
#include "support/pdf_text.h"
#include "support/recording_console.h"
#include "support/sample_invoice.h"
#include "support/test_suite.h"
#include "support/wait_for.h"

#include <QTcpServer>
#include <QTcpSocket>

#include <numeric>

using namespace ledra;
using test::PdfPage;
using test::PdfWord;

namespace {

constexpr double tolerance = 0.5; // points

/// What a document is made of.
struct Sample
{
    int items = 0;
    int noteLines = 0;
    PageFormat format = PageFormat::a4;
    bool footer = false;
    bool logo = false;
    bool longTexts = false;
    bool ruled = false; ///< rule lines and a frame instead of tinted rows
};

Invoice invoiceOf(const Sample& sample)
{
    Invoice invoice = test::sampleInvoice();
    test::addItems(invoice, sample.items, sample.longTexts);
    test::addNoteLines(invoice, sample.noteLines);
    return invoice;
}

Styling stylingOf(const Sample& sample)
{
    Styling styling;
    styling.pageFormat = sample.format;
    styling.marginalColumn = !sample.footer;
    styling.emptyItemRows = false;
    styling.tintRowBackground = !sample.ruled;
    styling.backgroundPattern = sample.ruled ? BackgroundPattern::frame : BackgroundPattern::none;
    if (sample.logo)
        styling.logo = QStringLiteral("<svg viewBox='0 0 4 1'><rect width='4' height='1'/></svg>");
    return styling;
}

/// The words that begin with one of the two tokens of items and note lines, from top to bottom.
std::vector<PdfWord> tokensOf(const PdfPage& page)
{
    std::vector<PdfWord> tokens;
    for (const PdfWord& word : page.words) {
        if (word.text.startsWith(QStringLiteral("ITEM")) || word.text.startsWith(QStringLiteral("NOTE")))
            tokens.push_back(word);
    }
    std::ranges::sort(tokens, {}, [](const PdfWord& word) { return word.box.top(); });
    return tokens;
}

/// The token that a block's first line begins with; none for totals and empty lines.
QString tokenOf(const Invoice& invoice, int block)
{
    const int items = static_cast<int>(invoice.items.size());
    if (block < items)
        return test::token("ITEM", block);
    return block == items ? QString() : invoice.note.split(u'\n').at(block - items - 1).left(8);
}

/// Where a page's blocks start, from what was measured: the first at the page's own start, the others as far
/// below one another as they were.
std::vector<double> blockTops(const Geometry& geometry, const PagePlan& plan, double continuationOffset)
{
    const bool isFirst = plan.position == PagePosition::single || plan.position == PagePosition::first;
    const double start =
        isFirst ? geometry.flowTop : geometry.contentTop + continuationOffset + geometry.headerHeight;
    std::vector<double> tops;
    for (const int block : plan.blocks)
        tops.push_back(start + geometry.blocks[static_cast<std::size_t>(block)].top -
                       geometry.blocks[static_cast<std::size_t>(plan.blocks.front())].top);
    return tops;
}

} // namespace

Q_DECLARE_METATYPE(Sample)

/// Documents as they come out on paper, read by another program.
class PagesOnPaperTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void blocksStandWhereTheyWereMeasured_data();
    void blocksStandWhereTheyWereMeasured();
    void hostileStylingReachesNothing();
    void unmeasuredDocumentLosesNothing();

private:
    Geometry measured(const InvoiceDocument& document);
    QByteArray printed(const std::shared_ptr<const InvoiceDocument>& document);
    std::shared_ptr<const InvoiceDocument> documentOf(const Sample& sample) const;
    double textOffset(const char* kind);

    std::unique_ptr<QtWebEngine> engine_;
    std::unique_ptr<WebFontManager> fonts_;
    test::RecordingConsole console_;
    std::unique_ptr<DocumentPaginator> paginator_;
    QHash<QString, double> textOffsets_;
};

void PagesOnPaperTest::initTestCase()
{
    engine_ = std::make_unique<QtWebEngine>();
    fonts_ = std::make_unique<WebFontManager>();
    paginator_ = std::make_unique<DocumentPaginator>(*engine_, console_);
}

void PagesOnPaperTest::cleanupTestCase()
{
    paginator_.reset();
    engine_.reset();
}

std::shared_ptr<const InvoiceDocument> PagesOnPaperTest::documentOf(const Sample& sample) const
{
    DocumentSetting setting;
    setting.styling = stylingOf(sample);
    return std::make_shared<const InvoiceDocument>(invoiceOf(sample), setting, *fonts_);
}

Geometry PagesOnPaperTest::measured(const InvoiceDocument& document)
{
    const double height = document.pageFormat() == PageFormat::usLetter ? 27.94 : 29.7;
    QString json;
    test::Waiting measuring;
    engine_->measure(document.measuringHtml(), document.pageFormat(),
                     measuringScript(document.blockSelectors(), document.headerSelector(), height),
                     [&](const std::expected<QString, WebEngineError>& answer) {
                         json = answer.value_or(QString());
                         measuring.done();
                     });
    return measuring.wait() ? parseGeometry(json).value_or(Geometry()) : Geometry();
}

QByteArray PagesOnPaperTest::printed(const std::shared_ptr<const InvoiceDocument>& document)
{
    PDFRenderer renderer(*engine_, console_);
    test::Waiting printing;
    QByteArray bytes;
    paginator_->paginate(document, [&](const PaginationResult& pages) {
        renderer.render(pages, document->pageFormat(), [&](const std::optional<PdfFile>& pdf) {
            if (pdf)
                bytes = pdf->bytes().value_or(QByteArray());
            printing.done();
        });
    });
    const bool isDone = printing.wait();
    return isDone ? bytes : QByteArray();
}

/// How far below its block's top the word of an item or a note line stands, from documents of one block each.
double PagesOnPaperTest::textOffset(const char* kind)
{
    const QString name = QString::fromLatin1(kind);
    if (!textOffsets_.contains(name)) {
        Sample sample;
        (name == u"ITEM" ? sample.items : sample.noteLines) = 1;
        const auto document = documentOf(sample);
        const std::vector<PdfPage> pages = test::pagesOfPdf(printed(document));
        const Geometry geometry = measured(*document);
        const std::vector<PdfWord> tokens = pages.empty() ? std::vector<PdfWord>() : tokensOf(pages.front());
        const double top = geometry.blocks.at(name == u"ITEM" ? 0 : 1).top;
        textOffsets_.insert(name, tokens.empty() ? -1000 : tokens.front().box.top() - top);
    }
    return textOffsets_.value(name);
}

void PagesOnPaperTest::blocksStandWhereTheyWereMeasured_data()
{
    QTest::addColumn<Sample>("sample");
    constexpr auto a4 = PageFormat::a4;
    constexpr auto letter = PageFormat::usLetter;
    const auto samples = std::to_array<Sample>({
        {0, 0, a4, false, false, false, false},    {0, 40, letter, false, false, false, true},
        {0, 200, a4, true, true, false, false},    {1, 0, a4, false, false, false, true},
        {1, 1, letter, false, true, true, false},  {2, 0, letter, true, false, false, true},
        {2, 200, a4, false, false, false, false},  {7, 1, a4, true, true, true, true},
        {7, 40, letter, true, false, true, false}, {12, 0, a4, false, false, true, false},
        {12, 1, letter, true, true, false, true},  {12, 40, a4, true, false, false, false},
        {30, 0, a4, false, true, false, true},     {30, 0, letter, false, false, true, false},
        {30, 1, a4, true, true, true, false},      {30, 40, letter, true, true, false, true},
        {60, 0, a4, true, false, false, false},    {60, 1, letter, false, false, false, true},
        {60, 40, a4, false, true, true, false},    {60, 200, letter, true, false, true, true},
        {150, 0, a4, true, true, true, true},      {150, 40, letter, false, false, false, false},
        {300, 0, a4, false, false, false, true},   {300, 1, letter, true, false, true, false},
        {300, 200, a4, true, true, false, false},
    });
    for (const Sample& s : samples)
        QTest::addRow("%d items, %d note lines, %s, %s%s%s%s", s.items, s.noteLines,
                      s.format == a4 ? "A4" : "Letter", s.footer ? "footer" : "column",
                      s.logo ? ", logo" : "", s.longTexts ? ", long" : "", s.ruled ? ", ruled" : "")
            << s;
}

void PagesOnPaperTest::blocksStandWhereTheyWereMeasured()
{
    QFETCH(Sample, sample);
    const Invoice invoice = invoiceOf(sample);
    const auto document = documentOf(sample);
    const double itemOffset = textOffset("ITEM");
    const double noteOffset = textOffset("NOTE");

    const Geometry geometry = measured(*document);
    QCOMPARE(static_cast<int>(geometry.blocks.size()), document->expectedBlockCount());
    QCOMPARE(geometry.footerSectionTop.has_value(), sample.footer);
    const double offset = document->continuationOffset(geometry.rem);
    const std::vector<PagePlan> plans = breakIntoPages(geometry, offset);
    const double limit =
        sample.footer ? *geometry.footerSectionTop - 1.2 * geometry.rem : geometry.contentBottom;

    const std::vector<PdfPage> pages = test::pagesOfPdf(printed(document));
    QVERIFY(console_.failures.isEmpty());
    QCOMPARE(pages.size(), plans.size());
    const QSizeF paper = sample.format == PageFormat::usLetter ? QSizeF(612, 792) : QSizeF(595, 842);
    int next = 0;
    for (std::size_t page = 0; page < pages.size(); ++page) {
        QCOMPARE(pages[page].size, paper);
        const QString text = pages[page].text();
        const bool holdsTotals =
            std::ranges::find(plans[page].blocks, sample.items) != plans[page].blocks.end();
        const QString sumLabel = sample.items > 0 ? QStringLiteral("Subtotal") : QStringLiteral("Total");
        QCOMPARE(std::ranges::count(pages[page].words, sumLabel, &PdfWord::text), holdsTotals ? 1 : 0);
        if (pages.size() > 1)
            QVERIFY2(text.contains(QStringLiteral("Page %1 of %2").arg(page + 1).arg(pages.size())),
                     qPrintable(text));
        if (sample.footer)
            QVERIFY2(text.contains(QStringLiteral("Meridian")), qPrintable(text));

        const std::vector<PdfWord> tokens = tokensOf(pages[page]);
        const std::vector<double> tops = blockTops(geometry, plans[page], offset);
        std::size_t found = 0;
        for (std::size_t i = 0; i < tops.size(); ++i) {
            QCOMPARE(plans[page].blocks[i], next);
            const QString token = tokenOf(invoice, next++);
            if (token.isEmpty())
                continue;
            QVERIFY(found < tokens.size());
            const PdfWord& word = tokens[found++];
            QCOMPARE(word.text, token);
            const double expected =
                tops[i] + (token.startsWith(QStringLiteral("ITEM")) ? itemOffset : noteOffset);
            QVERIFY2(std::abs(word.box.top() - expected) <= tolerance,
                     qPrintable(QStringLiteral("%1 stands at %2, was measured for %3")
                                    .arg(token)
                                    .arg(word.box.top())
                                    .arg(expected)));
            QVERIFY(word.box.left() > 2.4 * geometry.rem &&
                    word.box.right() < paper.width() - 1.8 * geometry.rem);
            QVERIFY(word.box.top() > geometry.contentTop && word.box.bottom() < limit + tolerance);
        }
        QCOMPARE(found, tokens.size());
    }
    QCOMPARE(next, document->expectedBlockCount());
}

// A logo and a style sheet come from files of whoever sent them: nothing in them may ask the network or run.
void PagesOnPaperTest::hostileStylingReachesNothing()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    const QString url = QStringLiteral("http://127.0.0.1:%1/").arg(server.serverPort());
    DocumentSetting setting;
    setting.styling.css = QStringLiteral("@import url(%1a.css); @import '%1b.css';\n"
                                         "@font-face { font-family: Far; src: url(%1c.woff2); }\n"
                                         "body { background: url(%1d.png); font-family: Far; }\n"
                                         ".item td::after { content: url(%1e.svg); }\n"
                                         "</style><script src='%1f.js'></script><img src='%1g.png'>")
                              .arg(url);
    setting.styling.logo =
        QStringLiteral("<svg viewBox='0 0 9 9' onload=\"document.body.innerHTML = 'RAN'\">"
                       "<style>@import url(%1h.css); rect { fill: url(%1i.svg#p); }</style>"
                       "<script href='%1j.js'>document.body.innerHTML = 'RAN';</script>"
                       "<image href='%1k.png'/><use href='%1l.svg#a'/><use HREF='%1m.svg#a'/>"
                       "<rect width='9' height='9' filter='url(%1n.svg#f)'/></svg>")
            .arg(url);
    Sample sample;
    sample.items = 40;
    const QByteArray pdf =
        printed(std::make_shared<const InvoiceDocument>(invoiceOf(sample), setting, *fonts_));
    QStringList tokens;
    for (const PdfPage& page : test::pagesOfPdf(pdf)) {
        QVERIFY(!page.text().contains(QStringLiteral("RAN")));
        for (const PdfWord& word : tokensOf(page))
            tokens += word.text;
    }
    QCOMPARE(tokens.size(), 40);
    QVERIFY(!server.hasPendingConnections());

    QTcpSocket probe; // the server would have noticed
    probe.connectToHost(QHostAddress::LocalHost, server.serverPort());
    QTRY_VERIFY(server.hasPendingConnections());
}

// The page that stands in when measuring fails may run over several sheets, but shows everything, once.
void PagesOnPaperTest::unmeasuredDocumentLosesNothing()
{
    Sample sample;
    sample.items = 90;
    sample.noteLines = 30;
    sample.footer = true;
    const auto document = documentOf(sample);
    std::vector<int> all(static_cast<std::size_t>(document->expectedBlockCount()));
    std::iota(all.begin(), all.end(), 0);
    const PaginationResult fallback{{document->pageHtml(PagePosition::single, all, unmeasuredSpace, 1)},
                                    false};

    PDFRenderer renderer(*engine_, console_);
    std::optional<PdfFile> pdf;
    test::Waiting printing;
    renderer.render(fallback, PageFormat::a4, [&](std::optional<PdfFile> made) {
        pdf = std::move(made);
        printing.done();
    });
    QVERIFY(printing.wait());
    QVERIFY(pdf.has_value());
    const std::vector<PdfPage> pages = test::pagesOfPdf(pdf->bytes().value_or(QByteArray()));
    QVERIFY(pages.size() > 2);
    QStringList found;
    QString text;
    for (const PdfPage& page : pages) {
        QCOMPARE(page.size, QSizeF(595, 842));
        text += page.text() + u' ';
        for (const PdfWord& word : tokensOf(page))
            found += word.text;
    }
    QStringList expected;
    for (int i = 0; i < sample.items; ++i)
        expected += test::token("ITEM", i);
    for (int i = 0; i < sample.noteLines; ++i)
        expected += test::token("NOTE", i);
    QCOMPARE(found, expected);
    QCOMPARE(text.count(QStringLiteral("Subtotal")), 1);
    QVERIFY(text.contains(QStringLiteral("Meridian")));
}

const ledra::test::RegisterSuite<PagesOnPaperTest> registration("pages_on_paper_test");

#include "pages_on_paper_test.moc"
