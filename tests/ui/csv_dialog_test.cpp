#include "support/test_suite.h"
#include "ui/document_desk.h"
#include "ui/jobs/csv_dialog.h"

using namespace ledra;

class CsvDialogTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        home_ = std::make_unique<test::ProgramHome>();
        home_->enter();
    }

    void writesTheChosenColumns_data()
    {
        QTest::addColumn<QStringList>("unticked");
        QTest::addColumn<QString>("text");
        const QStringList all =
            QStringLiteral("Name,Address,Date,Invoice Number,Net,VAT,Gross,Currency,Status").split(u',');
        const auto allBut = [&](const QStringList& kept) {
            QStringList rest = all;
            for (const QString& each : kept)
                rest.removeAll(each);
            return rest;
        };
        QTest::newRow("amount only") << allBut({QStringLiteral("Gross")}) << "Gross\n190.40";
        QTest::newRow("in table order") << allBut({QStringLiteral("Status"), QStringLiteral("Name")})
                                        << "Name;Status\n\"=Sum\";\"Draft\"";
        QTest::newRow("guarded") << allBut({QStringLiteral("Name"), QStringLiteral("guard")})
                                 << "Name\n\"'=Sum\"";
    }

    void writesTheChosenColumns()
    {
        QFETCH(const QStringList, unticked);
        QFETCH(const QString, text);
        const QString target = home_->path(QStringLiteral("list.csv"));
        const bool isGuarded = QByteArray(QTest::currentDataTag()) == "guarded";
        test::DocumentDesk desk;
        desk.actions.exportList({desk.record("=Sum")});
        auto* dialog = qobject_cast<CsvDialog*>(desk.dialog());
        QVERIFY(dialog);
        for (QCheckBox* box : dialog->findChildren<QCheckBox*>()) {
            if (unticked.contains(box->text()) || (isGuarded && box->text().startsWith(u"Protect")))
                box->click();
        }
        QCOMPARE(desk.answer(target), QStringLiteral("Export as CSV"));
        QCOMPARE(desk.proposed, QStringLiteral("Invoices.csv"));
        QVERIFY(desk.says(QStringLiteral("Exported: list.csv")));
        QCOMPARE(QString::fromUtf8(test::contentOf(target)).trimmed(), text);
        QCOMPARE(desk.console.informations.last(), QStringLiteral("CSV exported to: ") + target);
        const CsvDialog again(desk.parts); // as it was left
        QCOMPARE(again.columns().size(), static_cast<std::size_t>(9 - unticked.size()));
        QCOMPARE(again.guardsFormulas(), isGuarded);
    }

    void staysWithoutColumnsAndSaysWhatFails()
    {
        test::DocumentDesk desk;
        desk.actions.exportList({desk.record("Erika")});
        auto* dialog = qobject_cast<CsvDialog*>(desk.dialog());
        QVERIFY(dialog);
        const QList<QCheckBox*> boxes = dialog->findChildren<QCheckBox*>();
        for (QCheckBox* box : boxes)
            box->setChecked(false);
        dialog->accept();
        QVERIFY(dialog->isVisible());
        for (QCheckBox* box : boxes)
            box->setChecked(true);
        (void)desk.answer(QStringLiteral("/sys/list.csv"));
        QVERIFY(desk.says(QStringLiteral("/sys/list.csv: ")));
        QVERIFY(desk.console.informations.last().startsWith(u"Error writing CSV: /sys/list.csv: "));
    }

private:
    std::unique_ptr<test::ProgramHome> home_;
};

const ledra::test::RegisterSuite<CsvDialogTest> registration("csv_dialog_test");

#include "csv_dialog_test.moc"
