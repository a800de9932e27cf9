#include "app/plugin_operations.h"
#include "app/plugin_settings_text.h"
#include "support/test_suite.h"

using namespace ledra;

class PluginOperationsTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void offers_data();
    void offers();
    void namesOfOutputs();
    void settingsAsText();
};

void PluginOperationsTest::offers_data()
{
    using enum PluginOperation;
    using Operations = std::vector<PluginOperation>;
    QTest::addColumn<QString>("extension");
    QTest::addColumn<QString>("capability");
    QTest::addColumn<bool>("isImporter"); ///< else it updates
    QTest::addColumn<Operations>("operations");
    QTest::newRow("files") << "csv"
                           << "" << true << Operations{importFile};
    QTest::newRow("any files") << ""
                               << "" << true << Operations{importFile};
    QTest::newRow("from a host") << ""
                                 << "network:example.com" << true << Operations{importFetched};
    QTest::newRow("from a script") << ""
                                   << "connector" << true << Operations{importFetched};
    QTest::newRow("both ways") << "csv"
                               << "network:example.com" << true << Operations{importFile, importFetched};
    QTest::newRow("updates") << ""
                             << "" << false << Operations{updateSelected, updateAll, updateFromFile};
    QTest::newRow("updates from a host")
        << ""
        << "network:example.com" << false << Operations{updateSelected, updateAll};
}

void PluginOperationsTest::offers()
{
    QFETCH(QString, extension);
    QFETCH(QString, capability);
    QFETCH(bool, isImporter);
    QFETCH(std::vector<PluginOperation>, operations);
    Plugin plugin;
    if (!extension.isEmpty())
        plugin.manifest.fileExtension = extension;
    plugin.manifest.capabilities = {capability};
    QVERIFY(offeredOperations(plugin, {}).empty());
    QVERIFY(offeredOperations(plugin, {.isLoaded = true,
                                       .lastError = {},
                                       .hasImportInvoices = isImporter,
                                       .hasUpdateInvoices = !isImporter}) == operations);
    QCOMPARE(filePattern(plugin), extension.isEmpty() ? QStringLiteral("*") : QStringLiteral("*.csv"));
}

void PluginOperationsTest::namesOfOutputs()
{
    const QTemporaryDir folder;
    QFile there(folder.filePath(QStringLiteral("a 2.txt")));
    QVERIFY(there.open(QIODevice::WriteOnly));
    std::vector<PluginOutput> outputs(4);
    const char* names[] = {"a.txt", "A.txt", "a.txt", "plain"};
    for (std::size_t i = 0; i < outputs.size(); ++i)
        outputs[i].fileName = QString::fromLatin1(names[i]);
    const auto told = [&] {
        QStringList texts;
        for (const PluginOutput& output : outputs)
            texts += output.fileName;
        return texts.join(u'|');
    };
    std::vector<PluginOutput> beside = outputs;
    tellApart(outputs);
    QCOMPARE(told(), QStringLiteral("a.txt|A 2.txt|a 3.txt|plain"));
    QCOMPARE(existingFiles(outputs, folder.path()).size(), 0);
    outputs = std::move(beside);
    outputs[0].fileName = QStringLiteral("a 2.txt");
    QCOMPARE(existingFiles(outputs, folder.path()).size(), 1);
    keepBoth(outputs, folder.path());
    QCOMPARE(told(), QStringLiteral("a 2 2.txt|A.txt|a 3.txt|plain"));
}

void PluginOperationsTest::settingsAsText()
{
    const auto settings = pluginSettingsFrom(QStringLiteral("key = a=b \n\n empty=\r\n"));
    QVERIFY(settings);
    QCOMPARE(pluginSettingsText(*settings), QStringLiteral("empty=\nkey=a=b"));
    for (const char* line : {"key", "=value"})
        QVERIFY2(!pluginSettingsFrom(QString::fromLatin1(line)), line);
}

const test::RegisterSuite<PluginOperationsTest> registration("plugin_operations_test");

#include "plugin_operations_test.moc"
