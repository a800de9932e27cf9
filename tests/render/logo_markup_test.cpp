#include "render/logo_markup.h"
#include "support/test_suite.h"

#include <QXmlStreamReader>

using namespace ledra;

namespace {

/// The elements of a markup, each "name attribute=value …", in order.
QStringList elementsOf(const QString& markup)
{
    QStringList elements;
    QXmlStreamReader reader(markup);
    reader.setNamespaceProcessing(false);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        QString text = reader.qualifiedName().toString();
        for (const QXmlStreamAttribute& attribute : reader.attributes())
            text += u' ' + attribute.qualifiedName().toString() + u'=' + attribute.value().toString();
        elements += text;
    }
    return reader.hasError() ? QStringList{reader.errorString()} : elements;
}

} // namespace

class LogoMarkupTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void onlyDrawingGetsThrough_data();
    void onlyDrawingGetsThrough();
    void rootAttributes_data();
    void rootAttributes();
    void refusedFiles_data();
    void refusedFiles();
    void textAndStyleAreKeptEscaped();
    void wrapper();
};

void LogoMarkupTest::onlyDrawingGetsThrough_data()
{
    QTest::addColumn<QString>("inside");
    QTest::addColumn<QString>("left"); ///< the elements below the root
    const QString path = QStringLiteral("path d=M0 0h9z");
    QTest::newRow("drawing") << "<g fill='none'><path d='M0 0h9z'/></g>"
                             << QStringLiteral("g fill=none|") + path;
    QTest::newRow("script") << "<script>alert(1)</script><path d='M0 0h9z'/>" << path;
    QTest::newRow("script in capitals") << "<SCRIPT>alert(1)</SCRIPT>" << "";
    QTest::newRow("script with a prefix")
        << "<x:script xmlns:x='http://www.w3.org/2000/svg'>alert(1)</x:script>" << "";
    QTest::newRow("foreign content with all it holds")
        << "<foreignObject><body xmlns='http://www.w3.org/1999/xhtml'><path d='M1 1'/></body></foreignObject>"
        << "";
    QTest::newRow("frames, links, animation")
        << "<iframe src='x'/><a href='http://x/'><path d='M1 1'/></a><animate onbegin='f()'/><set/><handler/>"
        << "";
    QTest::newRow("event handlers") << "<path onload='f()' ONCLICK='f()' d='M0 0h9z' onfocusin=''/>" << path;
    QTest::newRow("outside reference")
        << "<use href='http://127.0.0.1/x.svg#a'/><use xlink:href='//x/y'/>" << "use|use";
    QTest::newRow("a reference in capitals is one to HTML")
        << "<use HREF='http://x/'/><use Xlink:Href='http://x/'/>" << "use|use";
    QTest::newRow("file reference") << "<image href='file:///etc/passwd'/><image src='x.png'/>"
                                    << "image|image";
    QTest::newRow("script reference") << "<use href=' javascript:f()'/>" << "use";
    QTest::newRow("page as data") << "<image href='data:text/html,&lt;script&gt;'/>" << "image";
    QTest::newRow("inner reference") << "<use href='#a'/>" << "use href=#a";
    QTest::newRow("embedded image") << "<image href='data:image/png;base64,AA=='/>"
                                    << "image href=data:image/png;base64,AA==";
    QTest::newRow("comment and instruction") << "<!-- <script/> --><?php f() ?><path d='M0 0h9z'/>" << path;
}

void LogoMarkupTest::onlyDrawingGetsThrough()
{
    QFETCH(QString, inside);
    const auto svg =
        safeSvg(QStringLiteral("<?xml version='1.0'?>\n<svg viewBox='0 0 9 9'>%1</svg>\n").arg(inside),
                LogoAnchor::bottomLeft);
    QVERIFY(svg.has_value());
    QStringList elements = elementsOf(*svg);
    QCOMPARE(elements.takeFirst(), QStringLiteral("svg viewBox=0 0 9 9 preserveAspectRatio=xMinYMax"));
    QTEST(elements.join(u'|'), "left");
}

void LogoMarkupTest::rootAttributes_data()
{
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<QString>("rewritten");
    QTest::newRow("added") << "viewBox='0 0 9 9'" << "viewBox=0 0 9 9 preserveAspectRatio=xMaxYMax";
    QTest::newRow("replaced") << "preserveAspectRatio=\"xMidYMid slice\" viewBox='0 0 9 9'"
                              << "viewBox=0 0 9 9 preserveAspectRatio=xMaxYMax";
    QTest::newRow("view box from the size")
        << "width='120px' height=' 40.5 '"
        << "width=120px height= 40.5  viewBox=0 0 120 40.5 preserveAspectRatio=xMaxYMax";
    QTest::newRow("none from a relative size") << "width='100%' height='4em'"
                                               << "width=100% height=4em preserveAspectRatio=xMaxYMax";
    QTest::newRow("a handler on the root") << "onload='f()'" << "preserveAspectRatio=xMaxYMax";
}

void LogoMarkupTest::rootAttributes()
{
    QFETCH(QString, attributes);
    const auto svg = safeSvg(QStringLiteral("<svg %1><g preserveAspectRatio='none'/></svg>").arg(attributes),
                             LogoAnchor::bottomRight);
    QVERIFY(svg.has_value());
    QTEST(elementsOf(*svg).value(0).sliced(4), "rewritten");
    QCOMPARE(svg->count(QStringLiteral("preserveAspectRatio")), 1);
}

void LogoMarkupTest::refusedFiles_data()
{
    QTest::addColumn<QString>("markup");
    QTest::newRow("nothing") << " \n";
    QTest::newRow("not well-formed") << "<svg><path></svg>";
    QTest::newRow("cut off") << "<svg><path/>";
    QTest::newRow("HTML") << "<html><svg/></html>";
    QTest::newRow("another drawing element as root") << "<g><svg/></g>";
    QTest::newRow("text before the drawing") << "x<svg/>";
    QTest::newRow("unknown prefix") << "<svg>&nbsp;</svg>";
    QString bomb = QStringLiteral("<!DOCTYPE svg [<!ENTITY e0 \"ha\">");
    for (int i = 1; i < 30; ++i)
        bomb += QStringLiteral("<!ENTITY e%1 \"&e%2;&e%2;\">").arg(i).arg(i - 1);
    QTest::newRow("entity bomb") << bomb + QStringLiteral("]><svg><text>&e29;</text></svg>");
}

void LogoMarkupTest::refusedFiles()
{
    QFETCH(QString, markup);
    QCOMPARE(logoMarkup(markup, LogoAnchor::bottomLeft), QString());
}

void LogoMarkupTest::textAndStyleAreKeptEscaped()
{
    const auto svg = safeSvg(
        QStringLiteral("<!DOCTYPE svg [<!ENTITY s \"<script>f()</script><path d='M0'/>\"><!ENTITY f SYSTEM "
                       "\"file:///etc/hostname\">]><svg><title>A &amp; &lt;B&gt;</title><style><![CDATA["
                       "a > b {} </style><script>f()</script>]]></style>&s;&f;</svg>"),
        LogoAnchor::bottomLeft);
    if (svg) { // an entity may also make the file refused
        QVERIFY2(!svg->contains(QStringLiteral("<script")), qPrintable(*svg));
        QCOMPARE(svg->count(QStringLiteral("</style>")), 1);
        QVERIFY(svg->contains(QStringLiteral("<title>A &amp; &lt;B&gt;</title>")));
    }
    const auto quoted = safeSvg(QStringLiteral("<svg><text x='\"&gt;&lt;script&gt;'>&lt;b&gt;</text></svg>"),
                                LogoAnchor::bottomLeft);
    QVERIFY(quoted.has_value());
    QVERIFY(quoted->contains(QStringLiteral("<text x=\"&quot;&gt;&lt;script&gt;\">&lt;b&gt;</text>")));
}

void LogoMarkupTest::wrapper()
{
    QCOMPARE(logoMarkup(std::nullopt, LogoAnchor::bottomLeft), QString());
    const QString svg = logoMarkup(QStringLiteral("<svg/>"), LogoAnchor::bottomRight);
    QCOMPARE(svg, QStringLiteral("<div class='logo'><svg preserveAspectRatio=\"xMaxYMax\"></svg></div>"));
    const QString image =
        logoMarkup(QStringLiteral("data:image/png;base64,AA==\" onerror=\"f()"), LogoAnchor::bottomLeft);
    QVERIFY(image.startsWith(QStringLiteral("<div class='logo'><img ")));
    QVERIFY(image.contains(QStringLiteral("src=\"data:image/png;base64,AA==&quot; onerror=&quot;f()\"")));
    QVERIFY(image.endsWith(QStringLiteral("></div>")));
}

const ledra::test::RegisterSuite<LogoMarkupTest> registration("logo_markup_test");

#include "logo_markup_test.moc"
