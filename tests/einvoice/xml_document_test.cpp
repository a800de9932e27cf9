#include "einvoice/xml_document.h"
#include "einvoice/xml_encoding.h"
#include "einvoice/xml_parser.h"
#include "support/test_suite.h"

#include <QStringEncoder>

using namespace ledra;

namespace {

constexpr auto sample = R"(
<?xml version="1.0"?>

<a:doc xmlns:a="urn:a">
  <a:head kind="x"><a:Name>first</a:Name></a:head>
  <a:party><a:reg><a:ID schemeID="FC">tax</a:ID></a:reg><a:reg><a:ID schemeID="VA">vat</a:ID></a:reg></a:party>
  <a:party><a:Name>second</a:Name><a:deep><a:Code>7</a:Code></a:deep></a:party>
  <a:slot/>
  <a:tail>end</a:tail>
</a:doc>)";

Element& root(const std::optional<XMLDocument>& document)
{
    return *document->root;
}

QByteArray bytesOf(const std::string& text)
{
    return QByteArray::fromStdString(text);
}

QByteArray repeated(const char* text, int count)
{
    return QByteArray(text).repeated(count);
}

bool parses(const QByteArray& file)
{
    const std::optional<std::string> text = decodeXml(file);
    return text && XMLDocument::parse(*text).has_value();
}

} // namespace

class XmlDocumentTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void find_data();
    void find();
    void edit();
    void fragments_data();
    void fragments();
    void writesNothingThatIsEmpty();
    void writesMixedContent();
    void escapes();
    void encodings_data();
    void encodings();
    void hostile_data();
    void hostile();
    void neighbouringRunsAreOneText();
};

void XmlDocumentTest::find_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("text");
    const QByteArray none = "-";
    QTest::newRow("anywhere") << QByteArray("Name") << QByteArray("first");
    QTest::newRow("next sibling") << QByteArray("party/Name") << QByteArray("second");
    QTest::newRow("filter") << QByteArray("party/reg/ID[schemeID=VA]") << QByteArray("vat");
    QTest::newRow("first of two") << QByteArray("ID") << QByteArray("tax");
    QTest::newRow("chain below") << QByteArray("deep/Code") << QByteArray("7");
    QTest::newRow("other value") << QByteArray("ID[schemeID=va]") << none;
    QTest::newRow("prefix") << QByteArray("a:Name") << none;
    QTest::newRow("case") << QByteArray("name") << none;
    QTest::newRow("root itself") << QByteArray("doc/head") << none;
    QTest::newRow("gap") << QByteArray("party/Code") << none;
    QTest::newRow("empty") << QByteArray() << none;
    QTest::newRow("leading slash") << QByteArray("/head") << none;
}

void XmlDocumentTest::find()
{
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, text);
    const auto document = XMLDocument::parse(sample);
    const Element* found = root(document).find(path.toStdString());
    QCOMPARE(found ? bytesOf(found->text()) : QByteArray("-"), text);
}

void XmlDocumentTest::edit()
{
    const auto document = XMLDocument::parse(sample);
    Element& doc = root(document);
    doc.setText("head/Name", "new & <old>");
    doc.setText("nowhere/Name", "lost");
    doc.setAttribute("head", "kind", "y\"z");
    doc.setAttribute("head", "added", "1");
    doc.setText("deep/Code", "");
    doc.setText("tail", " \n ");
    const QByteArray expected = R"(<?xml version="1.0" encoding="UTF-8"?>
<a:doc xmlns:a="urn:a">
    <a:head kind="y&quot;z" added="1">
        <a:Name>new &amp; &lt;old&gt;</a:Name>
    </a:head>
    <a:party>
        <a:reg>
            <a:ID schemeID="FC">tax</a:ID>
        </a:reg>
        <a:reg>
            <a:ID schemeID="VA">vat</a:ID>
        </a:reg>
    </a:party>
    <a:party>
        <a:Name>second</a:Name>
    </a:party>
</a:doc>)";
    QCOMPARE(bytesOf(document->serialise()), expected);
}

void XmlDocumentTest::fragments_data()
{
    QTest::addColumn<QByteArray>("fragment");
    QTest::addColumn<QByteArray>("children"); // the names of the children of the root
    QTest::newRow("empty") << QByteArray(" \n ") << QByteArray("head party party tail");
    QTest::newRow("three") << QByteArray("<ram:x>1</ram:x><udt:y/> <z>3</z>")
                           << QByteArray("head party party x y z tail");
    QTest::newRow("broken") << QByteArray("<x>") << QByteArray("head party party slot tail");
    QTest::newRow("document type") << QByteArray("<!DOCTYPE x><x/>")
                                   << QByteArray("head party party slot tail");
}

void XmlDocumentTest::fragments()
{
    QFETCH(QByteArray, fragment);
    QFETCH(QByteArray, children);
    const auto document = XMLDocument::parse(sample);
    root(document).replaceWithFragment("slot", fragment.toStdString());
    root(document).replaceWithFragment("", "<lost/>");
    root(document).replaceWithFragment("nowhere", "<lost/>");
    QByteArrayList names;
    for (const Element::Child& child : root(document).children) {
        if (const auto* element = std::get_if<std::unique_ptr<Element>>(&child))
            names += QByteArray((*element)->localName().data(),
                                static_cast<qsizetype>((*element)->localName().size()));
    }
    QCOMPARE(names.join(' '), children);
}

void XmlDocumentTest::writesNothingThatIsEmpty()
{
    const auto blank = XMLDocument::parse("<a><b x='1'/><c> \n</c><d><e>\u00a0</e></d></a>");
    QVERIFY(root(blank).isEmpty());
    QCOMPARE(bytesOf(root(blank).serialise(3)), QByteArray());
    const auto kept = XMLDocument::parse("<a><b x='1'/><d><e/><f> 0 </f></d></a>");
    QCOMPARE(bytesOf(root(kept).serialise(1)),
             QByteArray("    <a>\n        <d>\n            <f> 0 </f>\n        </d>\n    </a>"));
}

void XmlDocumentTest::writesMixedContent()
{
    const auto mixed = XMLDocument::parse("<a>one<b>2</b> <c/>three</a>");
    QCOMPARE(bytesOf(root(mixed).serialise(0)), QByteArray("<a>\n    one\n    <b>2</b>\n    three\n</a>"));
}

void XmlDocumentTest::escapes()
{
    Element element("a");
    const std::string text = "<&>\"' \r\n\tü\u20ac\x01\x1f\x7f\u0085\u009f\uffff]]>";
    element.children.emplace_back(text);
    element.attributes.push_back({"k", "a\"b<c>&\n\t\r\x02"});
    const QByteArray written = bytesOf(element.serialise(0));
    QCOMPARE(
        written,
        QByteArray("<a k=\"a&quot;b&lt;c&gt;&amp;&#10;&#9;&#13;\">&lt;&amp;&gt;\"' &#13;\n\tü€]]&gt;</a>"));
    const auto again = XMLDocument::parse(written.toStdString());
    QCOMPARE(bytesOf(root(again).text()), QByteArray("<&>\"' \r\n\tü€]]>"));
    QCOMPARE(bytesOf(root(again).attributes.front().value), QByteArray("a\"b<c>&\n\t\r"));
}

void XmlDocumentTest::encodings_data()
{
    QTest::addColumn<QByteArray>("file");
    const QString text = QStringLiteral("<?xml version=\"1.0\" encoding='%1'?>\n<a>Köln €</a>");
    const auto encoded = [&](QStringConverter::Encoding encoding, const char* name, bool withMark) {
        QStringEncoder encoder(encoding,
                               withMark ? QStringConverter::Flag::WriteBom : QStringConverter::Flag::Default);
        return QByteArray(encoder(text.arg(QString::fromLatin1(name))));
    };
    QTest::newRow("UTF-8") << encoded(QStringConverter::Utf8, "UTF-8", false);
    QTest::newRow("UTF-8 with its mark") << encoded(QStringConverter::Utf8, "utf-8", true);
    QTest::newRow("UTF-16 little endian") << encoded(QStringConverter::Utf16LE, "UTF-16", true);
    QTest::newRow("UTF-16 big endian") << encoded(QStringConverter::Utf16BE, "UTF-16", true);
    QTest::newRow("UTF-16 without its mark") << encoded(QStringConverter::Utf16BE, "UTF-16", false);
    QTest::newRow("UTF-32") << encoded(QStringConverter::Utf32LE, "UTF-32", true);
    QTest::newRow("UTF-8 that says UTF-16") << encoded(QStringConverter::Utf8, "UTF-16", false);
    QTest::newRow("windows-1252") << QByteArray(
        "<?xml version='1.0' encoding='windows-1252'?><a>K\xf6ln \x80</a>");
    QTest::newRow("ISO-8859-15") << QByteArray(
        "<?xml version='1.0' encoding=\"ISO-8859-15\"?><a>K\xf6ln \xa4</a>");
    QTest::newRow("ISO-8859-1") << QByteArray(
        "<?xml version='1.0' encoding=\"iso-8859-1\"?><a>K\xf6ln &#x20AC;</a>");
}

void XmlDocumentTest::encodings()
{
    QFETCH(QByteArray, file);
    const std::optional<std::string> text = decodeXml(file);
    QVERIFY(text);
    const auto document = XMLDocument::parse(*text);
    QVERIFY(document);
    QCOMPARE(bytesOf(root(document).text()), QByteArray("Köln €"));
}

void XmlDocumentTest::hostile_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<bool>("isRead");
    const auto nested = [](int levels) { return repeated("<a>", levels) + repeated("</a>", levels); };
    QTest::newRow("nothing") << QByteArray() << false;
    QTest::newRow("only a declaration") << QByteArray("<?xml version='1.0'?>") << false;
    QTest::newRow("text alone") << QByteArray("hello") << false;
    QTest::newRow("entity bomb") << QByteArray(
                                        "<!DOCTYPE a [<!ENTITY b 'x'><!ENTITY c '&b;&b;&b;&b;'>]><a>&c;</a>")
                                 << false;
    QTest::newRow("external entity")
        << QByteArray("<!DOCTYPE a [<!ENTITY b SYSTEM 'file:///etc/passwd'>]><a>&b;</a>") << false;
    QTest::newRow("document type alone") << QByteArray("<!DOCTYPE html><a/>") << false;
    QTest::newRow("unknown entity") << QByteArray("<a>&nbsp;</a>") << false;
    QTest::newRow("deepest") << nested(deepestXml) << true;
    QTest::newRow("too deep") << nested(deepestXml + 1) << false;
    QTest::newRow("10,000 levels") << nested(10'000) << false;
    QTest::newRow("half a file") << QByteArray(sample).left(200) << false;
    QTest::newRow("two roots") << QByteArray("<a/><b/>") << false;
    QTest::newRow("NUL") << QByteArray("<a>x\0y</a>", 10) << false;
    QTest::newRow("bytes that are not UTF-8") << QByteArray("<a>\xff\xfe</a>") << false;
    QTest::newRow("unknown encoding") << QByteArray("<?xml version='1.0' encoding='KLINGON'?><a/>") << false;
    QTest::newRow("half a UTF-16 file") << QByteArray("\xff\xfe<\0a\0>", 7) << false;
    QTest::newRow("too many elements")
        << "<a>" + repeated("<b/>", static_cast<int>(mostXmlElements)) + "</a>" << false;
    QTest::newRow("too large") << "<a>" + QByteArray(static_cast<qsizetype>(largestXml), 'x') + "</a>"
                               << false;
    QByteArray attributes;
    for (std::size_t i = 0; i <= mostXmlAttributes; ++i)
        attributes += " a" + QByteArray::number(i) + "='1'";
    QTest::newRow("too many attributes") << "<a" + attributes + "/>" << false;
    QTest::newRow("attribute twice") << QByteArray("<a b='1' b='2'/>") << false;
}

void XmlDocumentTest::hostile()
{
    QFETCH(QByteArray, file);
    QFETCH(bool, isRead);
    QCOMPARE(parses(file), isRead);
}

void XmlDocumentTest::neighbouringRunsAreOneText()
{
    const auto document =
        XMLDocument::parse("<a>one &amp; two\nthree<!-- no --><![CDATA[ <four>]]><?pi?> five</a>");
    QCOMPARE(root(document).children.size(), std::size_t{1});
    QCOMPARE(bytesOf(root(document).text()), QByteArray("one & two\nthree <four> five"));
}

static const test::RegisterSuite<XmlDocumentTest> registered("xml_document_test");

#include "xml_document_test.moc"
