#include "support/test_suite.h"
#include "support/wait_for.h"
#include "ui/document_desk.h"
#include "ui/jobs/auto_export_reporter.h"
#include "ui/jobs/export_job.h"
#include "ui/jobs/export_orders.h"

#include <QClipboard>
#include <QMimeData>
#include <QSignalSpy>
#include <QUndoStack>

using namespace ledra;

namespace {

QStringList namesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

/// Puts a script in the place of a program; it writes its arguments into a file, one a line.
void putTool(const QString& folder, const QString& name, const QByteArray& end)
{
    const QString path = folder + u'/' + name;
    QVERIFY(test::writeFile(path, "#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$0.said\"\n" + end + '\n'));
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

} // namespace

class DocumentActionsTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        home_ = std::make_unique<test::ProgramHome>();
        home_->enter();
        QDir().mkpath(out());
        QDir().mkpath(home_->path(QStringLiteral("bin")));
        path_ = qgetenv("PATH");
        qputenv("PATH", home_->path(QStringLiteral("bin")).toUtf8() + ":/usr/bin:/bin");
    }
    void cleanup() { qputenv("PATH", path_); }

    void exportsOne_data()
    {
        QTest::addColumn<ExportFormat>("format");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("start"); ///< of the proposed name
        QTest::addColumn<QByteArray>("magic");
        QTest::addColumn<QString>("log");
        QTest::newRow("PDF") << ExportFormat::pdf << "Export as PDF" << "Invoice " << QByteArray("%PDF-")
                             << "";
        QTest::newRow("ZUGFeRD") << ExportFormat::zugferd << "Export as ZUGFeRD PDF" << "Invoice "
                                 << QByteArray("%PDF-") << "ZUGFeRD PDF saved to ";
        QTest::newRow("XRechnung") << ExportFormat::xrechnung << "Export as XRechnung" << "E-Invoice "
                                   << QByteArray("<?xml") << "XML saved to ";
    }

    void exportsOne()
    {
        QFETCH(const ExportFormat, format);
        QFETCH(const QString, title);
        QFETCH(const QString, start);
        QFETCH(const QByteArray, magic);
        QFETCH(const QString, log);
        test::DocumentDesk desk;
        const QString extension = fileExtension(format);
        const InvoicePtr record = desk.record("Erika Muster");
        desk.actions.exportAs(format, {record});
        QCOMPARE(desk.answer(out(QStringLiteral("letter"))), title); // the panel adds the extension
        QVERIFY2(desk.proposed.startsWith(start) && desk.proposed.endsWith(extension),
                 qPrintable(desk.proposed));
        QVERIFY(desk.says(QStringLiteral("Exported: letter") + extension));
        const QString target = out(QStringLiteral("letter") + extension);
        QVERIFY(test::contentOf(target).startsWith(magic));
        if (!log.isEmpty())
            QVERIFY(desk.console.informations.contains(log + target));
        desk.actions.exportAs(format, {record}); // the folder is kept, and the file is not taken unasked
        QVERIFY(test::writeFile(target, "mine"));
        QTimer::singleShot(500, &desk.window, [&] { // over the panel
            QCOMPARE(desk.dialog()->metaObject()->className(), "QMessageBox");
            test::DocumentDesk::pressButton(*desk.dialog(), QStringLiteral("No"));
        });
        (void)desk.answer(QStringLiteral("letter") + extension);
        QVERIFY(qobject_cast<QFileDialog*>(desk.dialog()));
        QCOMPARE(desk.answer({}), title);
        QCOMPARE(test::contentOf(target), QByteArray("mine"));
    }

    void exportsSeveral_data()
    {
        QTest::addColumn<QString>("choice"); ///< for a file that is there already
        QTest::addColumn<int>("files");
        QTest::addColumn<bool>("isKept");
        QTest::newRow("none there") << "" << 3 << false;
        QTest::newRow("replace") << "Replace" << 3 << false;
        QTest::newRow("keep both") << "Keep Both" << 4 << true;
        QTest::newRow("cancel") << "Cancel" << 1 << true;
    }

    void exportsSeveral()
    {
        QFETCH(const QString, choice);
        QFETCH(const int, files);
        QFETCH(const bool, isKept);
        test::DocumentDesk desk;
        const auto records = desk.records(3);
        const ExportOrder order = exportOrder(records, desk.app, ExportFormat::pdf, ExportPurpose::keeping);
        const QString existing = out(order.sources[1].stem + QStringLiteral(".pdf"));
        if (!choice.isEmpty())
            QVERIFY(test::writeFile(existing, "mine"));
        desk.actions.exportAs(ExportFormat::pdf, records);
        QCOMPARE(desk.answer(out()), QStringLiteral("Export as PDF"));
        if (!choice.isEmpty())
            QVERIFY(desk.answer(choice).endsWith(u"|Cancel,Keep Both,Replace"));
        if (choice != u"Cancel")
            QVERIFY(desk.says(QStringLiteral("3 documents exported")));
        QTest::qWait(50);
        QCOMPARE(namesIn(out()).size(), files);
        QCOMPARE(test::contentOf(existing) == "mine", isKept);
    }

    void saysWhichFailed()
    {
        test::DocumentDesk desk;
        const auto records = desk.records(2);
        desk.actions.exportAs(ExportFormat::pdf, records);
        (void)desk.answer(QStringLiteral("/sys")); // where nobody makes files
        QVERIFY(desk.says(QStringLiteral("/sys/")));
        QCOMPARE(desk.messages->lines().size(), 2);
        desk.actions.exportAs(ExportFormat::zugferd, {records[0]});
        (void)desk.answer(QStringLiteral("/sys/letter.pdf"));
        const QString said = desk.answer(QStringLiteral("OK"));
        QVERIFY2(said.startsWith(u"ZUGFeRD Export Failed|/sys/letter.pdf: "), qPrintable(said));
        QVERIFY(desk.console.informations.last().startsWith(u"ZUGFeRD export failed: /sys/letter.pdf"));
    }

    void cancelsInTheMiddle()
    {
        constexpr int count = 60;
        test::DocumentDesk desk;
        ExportOrder order =
            exportOrder(desk.records(count), desk.app, ExportFormat::pdf, ExportPurpose::keeping);
        order.target = out();
        test::Waiting end;
        ExportOutcome outcome;
        auto* job = new ExportJob(std::move(order), desk.parts);
        job->showProgress();
        connect(job, &ExportJob::advanced, job, [](int done) {
            if (done >= 3 && test::DocumentDesk::dialog())
                test::DocumentDesk::pressButton(*test::DocumentDesk::dialog(), QStringLiteral("Cancel"));
        });
        job->start([&](const ExportOutcome& ended) {
            outcome = ended;
            end.done();
        });
        QVERIFY(end.wait());
        QVERIFY(outcome.isCancelled);
        QVERIFY(outcome.files.size() >= 3 && outcome.files.size() < count);
        QCOMPARE(namesIn(out()).size(), outcome.files.size()); // no temporary one is left
        for (const QString& file : std::as_const(outcome.files))
            QVERIFY(test::contentOf(file).trimmed().endsWith("%%EOF"));
        QTest::qWait(300);
        QCOMPARE(namesIn(out()).size(), outcome.files.size());
        QVERIFY(!test::DocumentDesk::dialog());
    }

    void asksAboutMissingFields()
    {
        test::DocumentDesk desk;
        const InvoicePtr bare = desk.record("Erika Muster", false);
        desk.actions.exportAs(ExportFormat::xrechnung, {bare});
        const QString said = desk.answer(QStringLiteral("Cancel"));
        QVERIFY2(said.startsWith(QStringLiteral("Missing Required Fields|The following required fields for "
                                                "e-invoices are empty:\n\n\u2013\u2002Sender name\n")),
                 qPrintable(said));
        QVERIFY(said.endsWith(u"\n\nThe exported invoice may not be valid.|Cancel,Export as XRechnung"));
        QVERIFY(!desk.dialog()); // no panel follows
        desk.actions.exportAs(ExportFormat::xrechnung, {bare, desk.record("Jonas Ahlers")});
        const QString both = desk.answer(QStringLiteral("Export as XRechnung"));
        QCOMPARE(both.count(QStringLiteral("Sender name, ")), 1);
        QCOMPARE(desk.answer(out()), QStringLiteral("Export as XRechnung"));
        QVERIFY(desk.says(QStringLiteral("2 documents exported")));
        QVERIFY(!desk.messages->lines().join(u'\n').contains(u"Sender name")); // it was said before
    }

    void sendsByMail_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<QByteArray>("tool"); ///< how it ends; null: there is none
        QTest::addColumn<QString>("last");    ///< argument
        QTest::addColumn<QString>("said");
        QTest::newRow("fine") << "erika@example.de" << QByteArray("exit 0") << "erika@example.de" << "";
        QTest::newRow("option") << "--attach=/etc/passwd" << QByteArray("exit 0") << ".pdf" << "";
        QTest::newRow("field") << "a@b.de?attach=/etc/passwd" << QByteArray("exit 0") << ".pdf" << "";
        QTest::newRow("refused") << "erika@example.de" << QByteArray("exit 3") << "erika@example.de"
                                 << "could not be opened";
        QTest::newRow("no tool") << "erika@example.de" << QByteArray() << "" << "xdg-utils";
    }

    void sendsByMail()
    {
        QFETCH(const QString, address);
        QFETCH(const QByteArray, tool);
        QFETCH(const QString, last);
        QFETCH(const QString, said);
        const QString bin = home_->path(QStringLiteral("bin"));
        if (tool.isNull())
            qputenv("PATH", bin.toUtf8());
        else
            putTool(bin, QStringLiteral("xdg-email"), tool);
        QString attached;
        {
            test::DocumentDesk desk;
            const InvoicePtr record = desk.record("Erika Muster");
            QVERIFY(desk.app.jobs().edit((*record)->id, [&](Invoice& invoice) { invoice.email = address; },
                                         Force::no));
            desk.actions.sendByMail(record);
            if (!said.isEmpty())
                QVERIFY(desk.says(said));
            if (tool.isNull())
                return;
            const QString file = bin + QStringLiteral("/xdg-email.said");
            QVERIFY(test::waitUntil([&] { return QFileInfo(file).size() > 0; }));
            const QStringList words =
                QString::fromUtf8(test::contentOf(file)).split(u'\n', Qt::SkipEmptyParts);
            QCOMPARE(words.mid(0, 2).join(u' '), QStringLiteral("--utf8 --subject"));
            QVERIFY(words[2].startsWith(u"Invoice ") && words[3] == u"--attach");
            QVERIFY2(words.last().endsWith(last), qPrintable(words.last()));
            attached = words[4];
            const auto isOver = [&] { return desk.window.findChildren<QProcess*>().isEmpty(); };
            QVERIFY(test::waitUntil(isOver));
            QVERIFY(test::contentOf(attached).startsWith("%PDF-"));
            QCOMPARE(QFileInfo(attached).completeBaseName(), words[2]);
        }
        QVERIFY(!QFileInfo::exists(attached)); // gone with the window
    }

    void printsThePdfItself()
    {
        const QString bin = home_->path(QStringLiteral("bin"));
        putTool(bin, QStringLiteral("lp"), "for last; do :; done; cp \"$last\" \"$0.pdf\"");
        test::DocumentDesk desk;
        const std::vector<InvoicePtr> record = {desk.record("Erika Muster")};
        desk.actions.printer().print(record, {.printer = QStringLiteral("Office"),
                                              .title = QStringLiteral("Invoice 1"),
                                              .copies = 2,
                                              .pages = QStringLiteral("1-3,5"),
                                              .sides = QStringLiteral("two-sided-long-edge")});
        QVERIFY(desk.says(QStringLiteral("Sent to the printer: Invoice 1")));
        const QString words = QString::fromUtf8(test::contentOf(bin + QStringLiteral("/lp.said")));
        QVERIFY2(words.startsWith(
                     u"-d\nOffice\n-t\nInvoice 1\n-n\n2\n-P\n1-3,5\n-o\nsides=two-sided-long-edge\n--\n"),
                 qPrintable(words));
        const QByteArray printed = test::contentOf(bin + QStringLiteral("/lp.pdf"));
        QVERIFY(printed.startsWith("%PDF-") && printed.contains("/Font")); // text, and no picture of it
        desk.actions.printer().print(record, {.output = out(QStringLiteral("paper.pdf"))});
        QVERIFY(desk.says(QStringLiteral("Printed to: ")));
        QVERIFY(test::contentOf(out(QStringLiteral("paper.pdf"))).contains("/Font"));
        putTool(bin, QStringLiteral("lp"), "echo 'no such printer' >&2; exit 1");
        desk.actions.printer().print(record, {.title = QStringLiteral("Invoice 1")});
        QVERIFY(desk.says(QStringLiteral("Invoice 1 was not printed: no such printer")));
    }

    void dragsAndCopiesFiles()
    {
        test::DocumentDesk desk;
        const auto records = desk.records(2);
        const std::unique_ptr<QMimeData> dragged = desk.actions.dragData(records);
        QCOMPARE(dragged->formats(), QStringList{QStringLiteral("text/uri-list")});
        const QList<QUrl> urls = dragged->urls();
        QCOMPARE(urls.size(), 2);
        QCOMPARE(dragged->data(QStringLiteral("text/uri-list")).count("\r\n"), 2);
        const ExportOrder order = exportOrder(records, desk.app, ExportFormat::pdf, ExportPurpose::keeping);
        const QString first =
            order.sources[0].stem + QStringLiteral(".pdf"); // not always the first to be ready
        QVERIFY(urls[0].fileName() == first || urls[1].fileName() == first);
        for (const QUrl& url : urls)
            QVERIFY(test::contentOf(url.toLocalFile()).startsWith("%PDF-"));
        desk.actions.copyAsFiles(records);
        QVERIFY(desk.says(QStringLiteral("Copied")));
        const QList<QUrl> copied = QGuiApplication::clipboard()->mimeData()->urls();
        QCOMPARE(copied.size(), 2);
        QVERIFY(test::contentOf(copied[1].toLocalFile()).startsWith("%PDF-") && copied != urls);
    }

    void importsAndTakesBack()
    {
        test::DocumentDesk desk;
        const InvoicePtr record = desk.record("Erika Muster");
        const QUuid id = (*record)->id;
        const QString file = out(QStringLiteral("letter.pdf"));
        const QString foreign = out(QStringLiteral("note.xml"));
        QVERIFY(test::writeFile(foreign, "<note/>"));
        desk.actions.exportAs(ExportFormat::pdf, {record});
        (void)desk.answer(file);
        QVERIFY(desk.says(QStringLiteral("Exported")));
        desk.actions.importer().importPDFs();
        QCOMPARE(desk.answer(file), QStringLiteral("Import PDF"));
        QVERIFY(desk.answer(QStringLiteral("OK"))
                    .startsWith(u"Import Failed|There is already another version of this invoice. If you "
                                "still want to import it, you must first delete the existing one.|OK"));
        QVERIFY(desk.app.jobs().remove(id, Force::no));
        QSignalSpy imported(&desk.actions.importer(), &FileImporter::imported);
        desk.actions.importer().importDropped({QUrl::fromLocalFile(foreign), QUrl::fromLocalFile(file)});
        QVERIFY(
            desk.answer(QStringLiteral("OK"))
                .startsWith(u"Import Failed|note.xml: This file does not appear to be a valid e-invoice."));
        QCOMPARE(imported.size(), 1);
        QVERIFY(desk.app.invoiceManager().find(id));
        desk.app.undoStack().undo();
        QVERIFY(!desk.app.invoiceManager().find(id));
        desk.app.undoStack().redo();
        QVERIFY(desk.app.invoiceManager().find(id));
    }

private:
    QString out(const QString& name = {}) const { return home_->path(QStringLiteral("out/") + name); }

    std::unique_ptr<test::ProgramHome> home_;
    QByteArray path_;
};

const ledra::test::RegisterSuite<DocumentActionsTest> registration("document_actions_test");

#include "document_actions_test.moc"
