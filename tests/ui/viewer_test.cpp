#include "app/received_attachments.h"
#include "einvoice/xml_generator.h"
#include "support/desk.h"
#include "support/named_widget.h"
#include "support/pdf_of_objects.h"
#include "support/pdf_text.h"
#include "support/sample_invoice.h"
#include "support/test_suite.h"
#include "support/wait_for.h"
#include "ui/document_desk.h"
#include "ui/viewer/viewer_tab.h"
#include "ui/viewer/viewer_window.h"

#include <QDesktopServices>
#include <QDropEvent>
#include <QListWidget>
#include <QMimeData>
#include <QTabBar>
#include <QToolButton>
#include <QWebEnginePage>

#include <numeric>

using namespace ledra;
using test::named;

namespace {

/// An e-invoice of another firm, with a line that tells one from the other.
QByteArray received(const char* line)
{
    Invoice invoice = test::sampleInvoice();
    invoice.email = QStringLiteral("erika@example.de");
    invoice.items = {test::sampleItem(QString::fromUtf8(line), 2, Unit::hour, 80, 19)};
    return XMLGenerator::generate(invoice, Profile(), [](const QUuid&) { return std::nullopt; }).value();
}

/// The same with files embedded in it, as pairs of name and content.
QByteArray withEmbedded(QByteArray xml, const QList<std::pair<QByteArray, QByteArray>>& files)
{
    QByteArray references;
    for (const auto& [name, content] : files)
        references += "<ram:AdditionalReferencedDocument><ram:IssuerAssignedID>1</"
                      "ram:IssuerAssignedID><ram:TypeCode>916"
                      "</ram:TypeCode><ram:AttachmentBinaryObject mimeCode=\"application/pdf\" filename=\"" +
                      name + "\">" + content.toBase64() +
                      "</ram:AttachmentBinaryObject></ram:AdditionalReferencedDocument>";
    return xml.replace("</ram:ApplicableHeaderTradeAgreement>",
                       references + "</ram:ApplicableHeaderTradeAgreement>");
}

QByteArray fileStream(const QByteArray& content)
{
    return "<< /Type /EmbeddedFile /Length " + QByteArray::number(content.size()) + " >>\nstream\n" +
           content + "\nendstream";
}

/// A PDF that carries an e-invoice and a sheet of hours.
QByteArray hybrid(const QByteArray& xml)
{
    return test::pdfOf({"<< /Type /Catalog /Pages 2 0 R /Names << /EmbeddedFiles << /Names [(factur-x.xml) "
                        "<< /Type /Filespec "
                        "/F (factur-x.xml) /EF << /F 4 0 R >> >> (hours.csv) << /Type /Filespec /F "
                        "(hours.csv) /EF << /F 5 0 R "
                        ">> >>] >> >> >>",
                        "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
                        "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 595 842] >>", fileStream(xml),
                        fileStream("day;hours")});
}

/// Takes what would be handed to the desktop.
class Desktop : public QObject
{
    Q_OBJECT

public:
    Desktop() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "take"); }
    ~Desktop() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    Q_INVOKABLE void take(const QUrl& url)
    {
        names += url.fileName();
        contents += test::contentOf(url.toLocalFile());
        QVERIFY(!(QFile::permissions(url.toLocalFile()) & QFile::ExeOwner));
    }

    QStringList names;
    QByteArrayList contents;
};

/// Somebody before the viewer.
struct Reader
{
    explicit Reader(const test::ProgramHome& place) : home(place)
    {
        viewer.show();
        viewer.activateWindow();
        QApplication::setActiveWindow(&viewer);
    }

    QString put(const char* name, const QByteArray& content) const
    {
        const QString path = home.path(QString::fromUtf8(name));
        return test::writeFile(path, content) ? path : QString();
    }

    void drop(const QStringList& files)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& file : files)
            urls += QUrl::fromLocalFile(file);
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&viewer, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&viewer, &drop);
    }

    QString tabs() const
    {
        const auto* bar = viewer.findChild<QTabBar*>();
        QStringList titles;
        for (int place = 0; place < bar->count(); ++place)
            titles += (place == bar->currentIndex() ? u'*' : u' ') + bar->tabText(place);
        return titles.join(u'|').trimmed();
    }

    /// The text of the document in front once it is drawn.
    QString text()
    {
        ViewerWebView& view = viewer.currentTab()->view();
        test::Waiting waiting;
        QString found;
        const auto ask = [&] {
            view.page()->toPlainText([&](const QString& plain) {
                found = plain;
                waiting.done();
            });
        };
        QObject::connect(&view, &ViewerWebView::shown, &view, ask);
        if (view.isShown())
            ask();
        const bool isThere = waiting.wait(20'000);
        view.disconnect(&view);
        return isThere ? found : QStringLiteral("nothing");
    }

    const test::ProgramHome& home;
    test::DocumentDesk desk;
    ViewerWindow viewer{desk.app, desk.engine, desk.fonts};
};

/// How bright a page of a PDF is on the whole, from 0 to 255.
double brightness(const QByteArray& pdf)
{
    const QByteArray drawn = test::outputOfPdfTool(pdf, "pdftoppm", "-r 20 -gray -f 1 -l 1");
    const QByteArray pixels = drawn.mid(drawn.indexOf("255\n") + 4);
    const auto sum = std::accumulate(pixels.begin(), pixels.end(), 0.0,
                                     [](double all, char pixel) { return all + static_cast<uchar>(pixel); });
    return pixels.isEmpty() ? 0 : sum / static_cast<double>(pixels.size());
}

} // namespace

class ViewerWindowTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        test::failOnWindowWarnings();
        home_ = std::make_unique<test::ProgramHome>();
        home_->enter();
    }
    void cleanup() { QApplication::setPalette(lightPalette()); }

    void readsSeveralInTabs()
    {
        Reader reader(*home_);
        const QString first = reader.put("a & b.xml", received("Gestaltung"));
        const QString second = reader.put("hybrid.pdf", hybrid(received("Fotografie")));
        QVERIFY(named<QWidget>(reader.viewer, "Drop e-invoices here")->isVisible());
        reader.drop({first, second});
        QCOMPARE(reader.tabs(), QStringLiteral("a && b.xml|*hybrid.pdf"));
        QVERIFY(reader.text().contains(u"Fotografie"));
        QTest::keyClick(&reader.viewer, Qt::Key_PageUp, Qt::ControlModifier);
        QCOMPARE(reader.viewer.windowTitle(), QStringLiteral("a & b.xml – E-Invoice Viewer"));
        QVERIFY(reader.text().contains(u"Invoice 2026-007"));
        QTest::keyClick(&reader.viewer, Qt::Key_PageUp, Qt::ControlModifier); // round and round
        QCOMPARE(reader.tabs(), QStringLiteral("a && b.xml|*hybrid.pdf"));
        QVERIFY(test::writeFile(first, received("Nachgereicht"))); // is read again in its tab
        reader.drop({first});
        QCOMPARE(reader.tabs(), QStringLiteral("*a && b.xml| hybrid.pdf"));
        QVERIFY(reader.text().contains(u"Nachgereicht"));
        auto* bar = reader.viewer.findChild<QTabBar*>();
        QTest::mouseClick(bar->tabButton(1, QTabBar::RightSide), Qt::LeftButton);
        QCOMPARE(reader.tabs(), QStringLiteral("*a && b.xml"));
        QTest::keyClick(&reader.viewer, Qt::Key_W, Qt::ControlModifier);
        QVERIFY(named<QWidget>(reader.viewer, "Drop e-invoices here")->isVisible());
        QTest::keyClick(&reader.viewer, Qt::Key_W, Qt::ControlModifier);
        QVERIFY(!reader.viewer.isVisible());
    }

    void selectsInAPanel()
    {
        Reader reader(*home_);
        const QString file = reader.put("one.xml", received("Satz"));
        QTest::keyClick(&reader.viewer, Qt::Key_O, Qt::ControlModifier);
        auto* panel = qobject_cast<QFileDialog*>(test::DocumentDesk::dialog());
        QVERIFY(panel);
        QCOMPARE(panel->labelText(QFileDialog::Accept), QStringLiteral("Import E-Invoices"));
        QCOMPARE(reader.desk.answer(file), QStringLiteral("Select E-Invoices"));
        QCOMPARE(reader.tabs(), QStringLiteral("*one.xml"));
    }

    /// What cannot be read opens no tab and is told in one report, and what can be read is shown all the
    /// same.
    void reportsWhatCannotBeRead()
    {
        Reader reader(*home_);
        const QByteArray good = hybrid(received("Druck"));
        const QString foreign = QStringLiteral("This file does not appear to be a valid e-invoice.");
        const QString gone = QStringLiteral("Could not read the selected XML file.");
        const std::pair<QString, QString> cases[] = {
            {reader.put("letter.xml", "Dear all,"), foreign},
            {reader.put("other.xml", "<Invoice xmlns=\"urn:oasis:ubl\"><ID>1</ID></Invoice>"), foreign},
            {reader.put("cut.xml", received("Druck").chopped(200)), foreign},
            {reader.put("broken.pdf", good.left(good.size() / 3)), foreign},
            {reader.put("plain.pdf", test::pdfOf({"<< /Type /Catalog /Pages 2 0 R >>",
                                                  "<< /Type /Pages /Kids [] /Count 0 >>"})),
             foreign},
            {reader.put("empty.xml", ""), foreign},
            {home_->path(QStringLiteral("missing.xml")), gone},
            {home_->path(), gone},
        };
        QStringList files = {reader.put("good.pdf", good)};
        QStringList report;
        for (const auto& [file, why] : cases) {
            files += file;
            report += QFileInfo(file).fileName() + QStringLiteral(": ") + why;
        }
        reader.drop(files);
        QCOMPARE(reader.desk.answer(QStringLiteral("OK")),
                 QStringLiteral("The selected files could not be read as e-invoices.|%1|OK")
                     .arg(report.join(u'\n')));
        QCOMPARE(reader.tabs(), QStringLiteral("*good.pdf"));
    }

    void followsTheAppearance()
    {
        Reader reader(*home_);
        reader.viewer.open({reader.put("one.xml", received("Satz"))});
        const ViewerWebView& view = reader.viewer.currentTab()->view();
        (void)reader.text();
        QVERIFY(view.html().contains(u"data-scheme=\"light\""));
        QSignalSpy shown(&view, &ViewerWebView::shown);
        QApplication::setPalette(darkPalette());
        QVERIFY(shown.wait(20'000));
        QVERIFY(view.html().contains(u"data-scheme=\"dark\"") && view.html().contains(u"#161616"));
        QVERIFY(reader.text().contains(u"Satz"));
    }

    /// From a dark window, on the paper of the user's own documents.
    void goesOnPaper_data()
    {
        QTest::addColumn<PageFormat>("format");
        QTest::addColumn<QSizeF>("size");
        QTest::newRow("A4") << PageFormat::a4 << QSizeF(595, 842);
        QTest::newRow("Letter") << PageFormat::usLetter << QSizeF(612, 792);
    }

    void goesOnPaper()
    {
        QFETCH(const PageFormat, format);
        QFETCH(const QSizeF, size);
        Reader reader(*home_);
        QApplication::setPalette(darkPalette());
        QVERIFY(
            reader.desk.app.stylingManager().edit([&](Styling& styling) { styling.pageFormat = format; }));
        QByteArray lines = received("Satz");
        const qsizetype begin = lines.indexOf("<ram:IncludedSupplyChainTradeLineItem");
        const qsizetype end = lines.indexOf("</ram:IncludedSupplyChainTradeLineItem>") + 39;
        constexpr int count = 60; // more than one sheet
        reader.viewer.open(
            {reader.put("one.xml", lines.insert(end, lines.mid(begin, end - begin).repeated(count - 1)))});
        QTest::keyClick(&reader.viewer, Qt::Key_S, Qt::ControlModifier);
        const QString target = home_->path(QStringLiteral("out.pdf"));
        QCOMPARE(reader.desk.answer(target), QStringLiteral("Save as PDF"));
        QCOMPARE(reader.desk.proposed, QStringLiteral("Invoice 2026-007.pdf"));
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(target), 20'000);
        const QByteArray pdf = test::contentOf(target);
        const std::vector<test::PdfPage> pages = test::pagesOfPdf(pdf);
        QVERIFY(pages.size() > 1);
        qsizetype written = 0;
        for (const test::PdfPage& page : pages) {
            QCOMPARE(page.size, size);
            written += page.text().count(QStringLiteral("Satz"));
            for (const test::PdfWord& word : page.words) // within the margins
                QVERIFY2(QRectF(QPointF(40, 40), size - QSizeF(80, 80)).contains(word.box),
                         qPrintable(QStringLiteral("%1 at %2 %3 to %4 %5")
                                        .arg(word.text)
                                        .arg(word.box.left())
                                        .arg(word.box.top())
                                        .arg(word.box.right())
                                        .arg(word.box.bottom())));
        }
        QCOMPARE(written, qsizetype{count});
        QVERIFY(brightness(pdf) > 200);
    }

    void printsWithTheDialog()
    {
        Reader reader(*home_);
        reader.viewer.open({reader.put("one.xml", received("Satz"))});
        QTest::keyClick(&reader.viewer, Qt::Key_P, Qt::ControlModifier);
        QCOMPARE(reader.desk.answer({}), QStringLiteral("Print"));
        test::Waiting waiting;
        TemporaryFolders folders;
        ViewerPaper paper(reader.desk.parts, folders);
        QByteArray made;
        paper.make(reader.viewer.currentTab()->opened(), [&](const QByteArray& pdf) {
            made = pdf;
            waiting.done();
        });
        QVERIFY(waiting.wait());
        QVERIFY(made.contains("Invoice 2026-007") && made.startsWith("%PDF-"));
    }

    void listsAttachmentsSafely()
    {
        Reader reader(*home_);
        Desktop desktop;
        const QByteArray pdf = test::pdfOf({"<< /Type /Catalog >>"});
        reader.viewer.open({reader.put(
            "one.xml", withEmbedded(received("Satz"), {{"../../hours.pdf", pdf},
                                                       {"start.desktop", "[Desktop Entry]\nExec=rm"},
                                                       {"script.pdf", "#!/bin/sh\nrm"},
                                                       {"a\u202efdp.exe", "MZ"}}))});
        auto* list = named<QListWidget>(reader.viewer, "Attachments");
        auto* open = named<QPushButton>(reader.viewer, "Open");
        QStringList shown;
        for (int row = 0; row < list->count(); ++row) {
            list->setCurrentRow(row);
            shown += list->item(row)->text() + (open->isEnabled() ? u'+' : u'-');
            QTest::mouseClick(open, Qt::LeftButton);
        }
        QCOMPARE(shown.join(u' '), QStringLiteral("hours.pdf+ start.desktop- script.pdf+ afdp.exe-"));
        QCOMPARE(desktop.names, QStringList{QStringLiteral("hours.pdf")});
        QCOMPARE(desktop.contents, QByteArrayList{pdf});
        const auto isSaid = [&](const char* text) {
            const QStringList lines = reader.viewer.findChild<MessageBar*>()->lines();
            return lines.join(u'\n').contains(QString::fromUtf8(text));
        };
        QVERIFY(isSaid("script.pdf is not what its name says"));
        list->setCurrentRow(1);
        QTest::mouseClick(named<QPushButton>(reader.viewer, "Save…"), Qt::LeftButton);
        const QString target = home_->path(QStringLiteral("saved"));
        QCOMPARE(reader.desk.answer(target), QStringLiteral("Save Attachment"));
        QCOMPARE(reader.desk.proposed, QStringLiteral("start.desktop"));
        QCOMPARE(test::contentOf(target + QStringLiteral(".desktop")),
                 QByteArray("[Desktop Entry]\nExec=rm"));
        QVERIFY(QFile::remove(home_->path(QStringLiteral("one.xml")))); // behind the viewer's back
        QTest::mouseClick(named<QPushButton>(reader.viewer, "Save…"), Qt::LeftButton);
        QVERIFY(isSaid("start.desktop cannot be taken out of one.xml."));
        reader.viewer.open({reader.put("h.pdf", hybrid(received("Satz")))});
        auto* ofPdf = reader.viewer.currentTab()->findChild<QListWidget*>();
        QVERIFY(ofPdf->count() == 1 && ofPdf->item(0)->text() == u"hours.csv");
        QTest::mouseClick(named<QPushButton>(*reader.viewer.currentTab(), "Open"), Qt::LeftButton);
        QCOMPARE(desktop.contents.last(), QByteArray("day;hours"));
    }

    void attachmentNames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("saved");
        const QString letters(300, u'x');
        QTest::newRow("path") << QStringLiteral("/etc/cron.d/job.txt") << QStringLiteral("job.txt");
        QTest::newRow("backslashes") << QStringLiteral("..\\..\\job.txt") << QStringLiteral("job.txt");
        QTest::newRow("dots") << QStringLiteral("..") << QStringLiteral("document");
        QTest::newRow("nothing") << QString() << QStringLiteral("document");
        QTest::newRow("hidden") << QStringLiteral(".bashrc") << QStringLiteral("bashrc");
        QTest::newRow("option") << QStringLiteral("-rf") << QStringLiteral("rf");
        QTest::newRow("control letters") << QStringLiteral("a\nb\u200b.pdf") << QStringLiteral("ab.pdf");
        QTest::newRow("umlaut") << QStringLiteral("Stücke.pdf") << QStringLiteral("Stücke.pdf");
        QTest::newRow("long") << letters + QStringLiteral(".pdf")
                              << letters.left(76) + QStringLiteral(".pdf");
    }

    void attachmentNames()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, saved);
        QCOMPARE(attachmentFileName(name), saved);
    }

    /// Quietly above the document.
    void noticesOtherTotals()
    {
        Reader reader(*home_);
        QByteArray other = received("Satz");
        other.replace("<ram:DuePayableAmount>190.40", "<ram:DuePayableAmount>90.40");
        reader.viewer.open({reader.put("one.xml", received("Satz"))});
        QCOMPARE(reader.viewer.currentTab()->notice(), QString());
        reader.viewer.open({reader.put("two.xml", other)});
        QVERIFY2(reader.viewer.currentTab()->notice().contains(u"€90.40 (here €190.40)"),
                 qPrintable(reader.viewer.currentTab()->notice()));
        QVERIFY(named<QLabel>(*reader.viewer.currentTab(), "Notice")->isVisible());
    }

    /// From the menu of the window to a draft there, and back.
    void importsIntoTheWindow()
    {
        test::Desk desk;
        const QString file = home_->path(QStringLiteral("one.xml"));
        QVERIFY(test::writeFile(file, received("Satz")));
        desk.press("Ctrl+Shift+O");
        ViewerWindow& viewer = desk.window.openViewer();
        QVERIFY(viewer.isVisible());
        QApplication::setActiveWindow(&viewer); // which the platform without a display does not do
        viewer.open({file});
        QCOMPARE(desk.model().recordCount(), std::size_t(0)); // looking makes nothing
        QTest::keyClick(&viewer, Qt::Key_I, Qt::ControlModifier);
        QCOMPARE(desk.model().recordCount(), std::size_t(1));
        QCOMPARE(desk.invoice().items.front().item, QStringLiteral("Satz"));
        QVERIFY(desk.invoice().status == Status::draft);
        desk.press("Ctrl+Z");
        QCOMPARE(desk.model().recordCount(), std::size_t(0));
        QVERIFY(QFile::remove(file));
        QTest::keyClick(&viewer, Qt::Key_I, Qt::ControlModifier);
        QCOMPARE(desk.model().recordCount(), std::size_t(0));
        QCOMPARE(test::DialogAnswers().answer(QStringLiteral("OK")),
                 QStringLiteral("Import Failed|Could not read the selected XML file.|OK"));
        desk.window.close();
        QVERIFY(!viewer.isVisible());
    }

    /// What the desktop hands over is read, unless it is a record of one's own.
    void opensWhatIsHandedOver()
    {
        test::Desk desk;
        QStringList files;
        for (const char* name : {"one.xml", "two.xml"}) {
            files += home_->path(QString::fromLatin1(name));
            QVERIFY(test::writeFile(files.last(), received(name)));
        }
        desk.app.appDelegate().open({QUrl::fromLocalFile(files[0]), QUrl::fromLocalFile(files[1])});
        QTRY_COMPARE(desk.window.openViewer().tabCount(), 2);
        QCOMPARE(desk.model().recordCount(), std::size_t(0));
        desk.press("Ctrl+N");
        const QUuid id = desk.invoice().id;
        const QString own = home_->path(QStringLiteral("own.pdf"));
        QCOMPARE(
            test::runProgram({QStringLiteral("export"), id.toString(QUuid::WithoutBraces),
                              QStringLiteral("--format"), QStringLiteral("pdf"), QStringLiteral("-o"), own})
                .exitCode,
            0);
        QVERIFY(desk.app.jobs().remove(id, Force::no));
        desk.app.appDelegate().open({QUrl::fromLocalFile(own)});
        QTRY_VERIFY(desk.app.invoiceManager().find(id));
        QCOMPARE(desk.window.openViewer().tabCount(), 2);
    }

    void everyControlHasAName()
    {
        Reader reader(*home_);
        reader.viewer.open({reader.put("one.pdf", hybrid(received("Satz")))});
        int controls = 0;
        for (const QWidget* each : reader.viewer.findChildren<QWidget*>()) {
            const auto* button = qobject_cast<const QAbstractButton*>(each);
            if ((!button && !qobject_cast<const QListWidget*>(each) && !qobject_cast<const QTabBar*>(each)) ||
                each->objectName().startsWith(u"qt_") || each->objectName() == u"ScrollLeftButton" ||
                each->objectName() == u"ScrollRightButton")
                continue;
            QVERIFY2(!each->accessibleName().isEmpty() || (button && !button->text().isEmpty()),
                     each->metaObject()->className());
            ++controls;
        }
        QVERIFY(controls > 8);
    }

private:
    std::unique_ptr<test::ProgramHome> home_;
};

const ledra::test::RegisterSuite<ViewerWindowTest> registration("viewer_test");

#include "viewer_test.moc"
