#include "exchange/profile_exporter.h"
#include "exchange/profile_importer.h"
#include "exchange/styling_archives.h"
#include "platform/zip_archive.h"
#include "store/profile_json.h"
#include "store/styling_json.h"
#include "support/program_run.h"
#include "support/store_home.h"
#include "support/test_suite.h"
#include "support/zip_of_entries.h"

using namespace ledra;
using test::filesBelow;
using test::StoreHome;

namespace {

/// The stores in a home of their own.
struct Desk
{
    QString folder(const QString& name) const { return home.data(name); }
    QString archive() const { return home.path(QStringLiteral("out.ledradata")); }

    QString displayNames() const
    {
        QStringList names;
        for (const ProfilePtr& profile : profiles.profiles())
            names += (*profile)->displayName();
        return names.join(u'|');
    }

    /// Packs files, by their paths in the archive.
    bool pack(const QMap<QString, QByteArray>& files) const
    {
        const QTemporaryDir source;
        for (const auto& [name, content] : files.asKeyValueRange()) {
            if (!home.put(source.filePath(name), content))
                return false;
        }
        return writeArchive(source.path(), archive(), Overwrite::replace).has_value();
    }

    StoreHome home;
    ProfileManager profiles{home.context};
    UsageSignals usage{home.path(QStringLiteral("usage.txt")), home.defaults};
    ProfileExporter exporter{profiles, home.writer};
    ProfileImporter importer{home.context, profiles};
};

QByteArray profileJson(const QString& business)
{
    Profile profile = newProfile(QUuid::createUuid(), QStringLiteral("DE"));
    profile.businessName = business;
    return fileText(profile);
}

QStringList workingFolders()
{
    return QDir::temp().entryList({QStringLiteral("LedraData*"), QStringLiteral("LedraStyle*")}, QDir::Dirs);
}

} // namespace

class ArchivesTest : public test::Suite
{
    Q_OBJECT

private Q_SLOTS:
    void profilesComeBackAsTheyWere();
    void names();
    void exportFailures();
    void importFailures_data();
    void importFailures();
    void hostileArchivesChangeNothing();
    void someProfilesFail();
    void unpacking();
    void stylings();
    void stylingFailures();
};

void ArchivesTest::profilesComeBackAsTheyWere()
{
    const QStringList before = workingFolders();
    Desk desk;
    const QString original = desk.folder(QStringLiteral("1_Default"));
    QVERIFY(desk.home.put(original + QStringLiteral("/Invoices/2026-03-05-9F2C41.json"), "{\"a\": 1}"));
    QVERIFY(desk.home.put(original + QStringLiteral("/Invoices/2026-03-05-9F2C41-reminder.json"), "{}"));
    QVERIFY(desk.home.put(original + QStringLiteral("/logo.svg"), "<svg/>"));
    QVERIFY(desk.home.put(original + QStringLiteral("/Übersicht \u00e4.txt"), QByteArray(100'000, 'x')));
    QByteArray profile = readFile(original + QStringLiteral("/profile.json"), 100'000).value();
    profile.replace("\"icon\"", "\"ofANewerVersion\": [1, 2],\n  \"icon\"");
    QVERIFY(desk.home.put(original + QStringLiteral("/profile.json"), profile));
    desk.profiles.reload();

    QVERIFY(desk.exporter.writeAll(desk.archive(), Overwrite::refuse));
    QVERIFY(!desk.exporter.writeAll(desk.archive(), Overwrite::refuse)); // it is there
    const auto imported = desk.importer.importFile(desk.archive());
    QVERIFY(imported && imported->failures.empty());
    QCOMPARE(desk.displayNames(), QStringLiteral("Default|Default Copy"));
    QMap<QString, QByteArray> expected;
    const QString copy = desk.folder(QStringLiteral("2_Default Copy"));
    for (const auto& [path, content] : filesBelow(original).asKeyValueRange())
        expected.insert(copy + path.mid(original.size()), content);
    const QUuid id = (*imported->profiles.front())->id;
    QVERIFY(id != (*desk.profiles.activeProfile())->id); // which stays the active one
    expected[copy + QStringLiteral("/profile.json")].replace(
        idText((*desk.profiles.activeProfile())->id).toLatin1(), idText(id).toLatin1());
    QCOMPARE(filesBelow(copy), expected);
    QCOMPARE(StoreHome::names(desk.folder({})), QStringLiteral("1_Default 2_Default Copy"));
    QCOMPARE(workingFolders(), before);
}

void ArchivesTest::names()
{
    Desk desk;
    QVERIFY(desk.profiles.createProfile(QStringLiteral("Work")));
    QVERIFY(desk.profiles.createProfile(QStringLiteral("Work Copy")));
    QVERIFY(desk.pack({{QStringLiteral("7_Work/profile.json"), profileJson(QStringLiteral("A"))},
                       {QStringLiteral("wrapped/3_Other/profile.json"), profileJson(QStringLiteral("B"))}}));
    for (int i = 0; i < 2; ++i)
        QVERIFY(desk.importer.importFile(desk.archive()));
    QCOMPARE(desk.displayNames(),
             QStringLiteral("Default|Work|Work Copy|Work Copy 2|Other|Work Copy 3|Other Copy"));
    QCOMPARE((*desk.profiles.profiles()[3])->businessName, QStringLiteral("A")); // printed names stay
    QCOMPARE(ProfileExporter::fileName(**desk.profiles.profiles()[1], QDate(2026, 3, 5)),
             QStringLiteral("Work 2026-03-05.ledradata"));
    QCOMPARE(ProfileExporter::fileNameForAll(QDate(2026, 3, 5), Language::german),
             QStringLiteral("Profile 2026-03-05.ledradata"));
}

void ArchivesTest::exportFailures()
{
    Desk desk;
    const auto record = std::make_shared<ProfileRecord>(**desk.profiles.activeProfile());
    record->edit([](Profile& profile) { profile.profileName.reset(); });
    const auto nameless = desk.exporter.write({record}, desk.archive(), Overwrite::refuse);
    QCOMPARE(nameless.error().message, QStringLiteral("Profile has no name"));
    record->edit([](Profile& profile) { profile.profileName = QStringLiteral("9_Gone"); });
    const auto gone = desk.exporter.write({record}, desk.archive(), Overwrite::refuse);
    QCOMPARE(gone.error().message,
             QStringLiteral("Profile directory not found: ") + desk.folder(QStringLiteral("9_Gone")));
    QVERIFY(!QFile::exists(desk.archive()));
}

void ArchivesTest::importFailures_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("message");
    const QString invalid = QStringLiteral("The selected file is not a valid Ledra Data file.");
    const QString extraction = QStringLiteral("Failed to extract the Ledra Data file.");
    Desk desk;
    QTest::newRow("no archive") << QByteArray("{\"id\": 1}") << invalid;
    QTest::newRow("empty file") << QByteArray() << invalid;
    QVERIFY(desk.pack({{QStringLiteral("readme.txt"), "x"}, {QStringLiteral("a/b/c/d/profile.json"), "x"}}));
    QByteArray archive = readFile(desk.archive(), 100'000).value();
    QTest::newRow("no profile") << archive
                                << QStringLiteral("No valid profiles found in the Ledra Data file.");
    QTest::newRow("half of it") << archive.first(archive.size() / 2) << invalid;
    QTest::newRow("out of the folder")
        << QByteArray(archive).replace("readme.txt", "../eme.txt") << extraction;
}

void ArchivesTest::importFailures()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    Desk desk;
    QVERIFY(desk.home.put(desk.archive(), content));
    const auto before = filesBelow(desk.home.path({}));
    const auto imported = desk.importer.importFile(desk.archive());
    QCOMPARE(imported.error().message, message);
    QVERIFY(filesBelow(desk.home.path({})) == before);
    const auto missing = desk.importer.importFile(desk.home.path(QStringLiteral("nothing.ledradata")));
    QCOMPARE(missing.error().text(),
             QStringLiteral("The selected file is not a valid Ledra Data file. (no such file)"));
}

/// Whatever is wrong with an archive, the importers say it in their own words and nothing else is different.
void ArchivesTest::hostileArchivesChangeNothing()
{
    using test::ZipEntry;
    const ZipEntry profile{"1_Good/profile.json", profileJson(QStringLiteral("A")), 8};
    QList<QByteArray> archives;
    for (const ZipEntry& entry : {ZipEntry{"../x"}, ZipEntry{"/tmp/x"}, ZipEntry{profile.name},
                                  ZipEntry{"link", "/etc", 0, 0, 0120777}, ZipEntry{"x", "secret", 0, 1},
                                  ZipEntry{"bomb", QByteArray(70 << 20, '\0'), 8}, ZipEntry{"x", "x", 99},
                                  ZipEntry{"short", "1234", 8, 0, 0, 9}})
        archives += test::zipOf({profile, entry});
    const QByteArray whole = test::zipOf({profile, {"styling.json", "{}"}});
    for (qsizetype size = 0; size < whole.size(); size += 64)
        archives += whole.first(size);

    Desk desk;
    StylingManager stylings(desk.home.context, desk.profiles, desk.usage);
    StylingImporter styleImporter(desk.home.context, stylings);
    const QStringList folders = workingFolders();
    for (const QByteArray& archive : std::as_const(archives)) {
        QVERIFY(desk.home.put(desk.archive(), archive));
        const auto before = filesBelow(desk.home.path({}));
        const auto imported = desk.importer.importFile(desk.archive());
        QVERIFY(!imported && (imported.error().message.endsWith(u"Ledra Data file.")));
        const auto styled = styleImporter.importFile(desk.archive());
        QVERIFY(!styled && (styled.error().message.endsWith(u"Style file.")));
        QVERIFY(filesBelow(desk.home.path({})) == before && workingFolders() == folders);
    }
    QVERIFY(desk.home.put(desk.archive(), whole)); // which is a good one
    QVERIFY(desk.importer.importFile(desk.archive()) && styleImporter.importFile(desk.archive()));
}

void ArchivesTest::someProfilesFail()
{
    Desk desk;
    QVERIFY(desk.pack({{QStringLiteral("1_Good/profile.json"), profileJson(QStringLiteral("A"))},
                       {QStringLiteral("2_Bad/profile.json"), "{"}}));
    const auto imported = desk.importer.importFile(desk.archive());
    QVERIFY(imported.has_value());
    QCOMPARE(imported->profiles.size(), std::size_t{1});
    QCOMPARE(imported->summary(),
             QStringLiteral("Successfully imported 1 profile(s).\nFailed to import 1 profile(s)."));
    QVERIFY(
        desk.home.console.failures.join(u'|').contains(u"Warning: Could not update profile ID and name: "));
    QCOMPARE(desk.displayNames(), QStringLiteral("Default|Good"));
    // What cannot be read is not left for every later start to complain of; it can be looked at in the trash.
    QCOMPARE(StoreHome::names(desk.folder({})), QStringLiteral("1_Default 2_Good"));
    QCOMPARE(desk.home.trash.filesFrom(desk.folder({})).size(), std::size_t{1});
    desk.home.console.failures.clear();
    desk.profiles.reload();
    QCOMPARE(desk.home.console.failures, QStringList());
}

void ArchivesTest::unpacking()
{
    Desk desk;
    QVERIFY(desk.exporter.writeAll(desk.archive(), Overwrite::refuse));
    const QString place = desk.home.path(QStringLiteral("elsewhere/data"));
    QCOMPARE(ProfileImporter::unpack(desk.archive(), place).value(),
             QStringList{QStringLiteral("1_Default")});
    QCOMPARE(test::contentOf(place + QStringLiteral("/1_Default/profile.json")),
             test::contentOf(desk.folder(QStringLiteral("1_Default/profile.json")))); // ids and all
    QVERIFY(!ProfileImporter::unpack(desk.archive(), place)); // never into a folder with something in it
}

void ArchivesTest::stylings()
{
    Desk desk;
    StylingManager stylings(desk.home.context, desk.profiles, desk.usage);
    QVERIFY(desk.home.put(desk.home.path(QStringLiteral("a.svg")),
                          "<svg xmlns=\"http://www.w3.org/2000/svg\"/>"));
    QVERIFY(desk.home.put(desk.home.path(QStringLiteral("a.css")), "h1 { color: red }"));
    QVERIFY(stylings.importLogo(desk.home.path(QStringLiteral("a.svg"))));
    QVERIFY(stylings.importStyleSheet(desk.home.path(QStringLiteral("a.css"))));
    QVERIFY(stylings.edit([](Styling& styling) { styling.primaryColor = QStringLiteral("112233"); }));
    const Styling original = **stylings.styling();
    const QString archive = desk.home.path(QStringLiteral("a.ledrastyle"));
    const QUuid first = (*desk.profiles.activeProfile())->id;
    QVERIFY(StylingExporter(desk.profiles).write(first, archive, Overwrite::refuse));

    const ProfilePtr other = desk.profiles.createProfile(QStringLiteral("Other")).value();
    desk.profiles.resolveActiveProfile((*other)->id);
    QVERIFY(desk.home.put(desk.folder(QStringLiteral("2_Other/logo.png")), "old"));
    stylings.load();
    const QUuid ownId = (*stylings.styling())->id;
    QVERIFY(StylingImporter(desk.home.context, stylings).importFile(archive));
    Styling expected = original;
    expected.id = ownId;
    QVERIFY(**stylings.styling() == expected);
    QCOMPARE(StoreHome::names(desk.folder(QStringLiteral("2_Other"))),
             QStringLiteral("logo.svg profile.json style.css styling.json"));
    QCOMPARE(desk.home.trash.filesFrom(desk.folder({})).size(), std::size_t{1}); // the earlier logo
}

void ArchivesTest::stylingFailures()
{
    Desk desk;
    StylingManager stylings(desk.home.context, desk.profiles, desk.usage);
    const StylingExporter exporter(desk.profiles);
    const auto message = [](const auto& result) { return result ? QString() : result.error().message; };
    QCOMPARE(message(exporter.write(QUuid::createUuid(), desk.archive(), Overwrite::refuse)),
             QStringLiteral("The profile could not be found."));
    QCOMPARE(message(exporter.write((*desk.profiles.activeProfile())->id, desk.archive(), Overwrite::refuse)),
             QStringLiteral("This profile has no styling to export yet."));
    QVERIFY(!QFile::exists(desk.archive()));

    StylingImporter importer(desk.home.context, stylings);
    QVERIFY(desk.pack({{QStringLiteral("logo.svg"), "<svg/>"}}));
    QCOMPARE(message(importer.importFile(desk.archive())),
             QStringLiteral("The Style file doesn’t contain any styling."));
    QVERIFY(desk.pack({{QStringLiteral("styling.json"), "{\"logoSize\": \"large\"}"}}));
    QCOMPARE(message(importer.importFile(desk.archive())),
             QStringLiteral("The selected file is not a valid Style file."));
    QVERIFY(desk.home.put(desk.archive(), "PK"));
    QCOMPARE(message(importer.importFile(desk.archive())),
             QStringLiteral("The selected file is not a valid Style file."));
    for (const QString& unreadable : {desk.home.path({}), desk.home.path(QStringLiteral("none.ledrastyle"))})
        QCOMPARE(message(importer.importFile(unreadable)),
                 QStringLiteral("The selected file is not a valid Style file."));
    QCOMPARE(StoreHome::names(desk.folder(QStringLiteral("1_Default"))), QStringLiteral("profile.json"));
}

const ledra::test::RegisterSuite<ArchivesTest> registration("archives_test");

#include "archives_test.moc"
