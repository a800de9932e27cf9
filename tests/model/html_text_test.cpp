#include "model/html_text.h"
#include "model/template_text.h"
#include "support/test_suite.h"
#include "support/text_table.h"

#include <QTest>

using namespace ledra;

class HtmlTextTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void texts_data()
    {
        test::textTable({"text", "attribute", "lines"},
                        {
                            {"", "", ""},
                            {"Müller's", "Müller's", "Müller's"},
                            {"<b a=\"1\">&", "&lt;b a=&quot;1&quot;&gt;&amp;", "&lt;b a=\"1\"&gt;&amp;"},
                            {"&lt;", "&amp;lt;", "&amp;lt;"},
                            {"a\nb\r\nc\rd\n\ne", "a\nb\r\nc\rd\n\ne", "a<br>b<br>c<br>d<br><br>e"},
                        });
    }

    void texts()
    {
        QTEST(attributeEscaped(test::cell("text")), "attribute");
        QTEST(htmlLines(test::cell("text")), "lines");
        QCOMPARE(htmlEscaped(QStringLiteral("a\0<")), QStringLiteral("a&lt;"));
    }

    void markdown_data()
    {
        test::textTable({"text", "html"},
                        {
                            {"a **b c** d", "a <strong>b c</strong> d"},
                            {"**a** and *b*, **c**", "<strong>a</strong> and <em>b</em>, <strong>c</strong>"},
                            {"*a **b** c*", "<em>a <strong>b</strong> c</em>"},
                            {"a **b", "a **b"},
                            {"2 * 3", "2 * 3"},
                            {"a **** b", "a **** b"},
                            {"*a\nb*", "*a\nb*"},
                            {"**&lt;b&gt;**", "<strong>&lt;b&gt;</strong>"},
                        });
    }

    void markdown() { QTEST(inlineMarkdown(test::cell("text")), "html"); }

    void templates_data()
    {
        test::textTable({"text", "filled"}, {
                                                {"<p>a { b }</p>", "<p>a { b }</p>"},
                                                {"{{name}}, {{name}}!", "Ada, Ada!"},
                                                {"[{{nobody}}{{Name}}]", "[]"},
                                                {"{{evil}}{{name}}", "{{name}}Ada"},
                                                {"{{name}} {{name}", "Ada {{name}"},
                                            });
    }

    void templates()
    {
        const TemplateValues values = {{QStringLiteral("name"), QStringLiteral("Ada")},
                                       {QStringLiteral("evil"), QStringLiteral("{{name}}")}};
        QTEST(filledTemplate(test::cell("text"), values), "filled");
    }
};

const ledra::test::RegisterSuite<HtmlTextTest> registration("html_text_test");

#include "html_text_test.moc"
